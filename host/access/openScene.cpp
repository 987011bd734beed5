#include "host/access/openScene.h"

#include <exception>

#include "host/access/sceneLoad.h"
#include "host/base/resultCodes.h"
#include "jobs/VX_DataTypes_plugin.h"
#include "scan/scanBudget.h"

namespace vxH {

void withScene(const QString& scene, _sceneHead& head,
               const std::function<void(const vxN::_scene&, const vxP::_sceneFile&)>& work) {
    const auto fail = [&](qint32 code, const QString& error) { head = failedHead(scene, code, error); };
    const vxP::_sceneFile file(scene);
    if (!file.isOpen()) return fail(vxP::resultCannotOpen, errorOf(vxP::resultCannotOpen, scene));
    head = {scene, vxP::resultSuccess, {}, {}};
    lookAtFile(head, false);
    if (!head.isLoaded()) return;
    vxP::beginBudget();
    vxP::allowWorkFor(file.byteCount());
    try {
        const vxN::_scene opened(file);
        if (opened.archiveEnd() == vxN::_archiveEnd::unreadable)
            fail(vxP::resultException, QStringLiteral("cannot be read to its end"));
        else if (opened.archiveKind() == vxN::_archiveKind::none)
            fail(hostNoScene, QStringLiteral("is no scene archive"));
        else
            work(opened, file);
    } catch (const std::exception& problem) {
        fail(vxP::resultException, QString::fromUtf8(problem.what()));
    }
}

}  // namespace vxH
