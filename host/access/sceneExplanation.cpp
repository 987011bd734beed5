#include "host/access/sceneExplanation.h"

#include "explain/explainedLoad.h"
#include "host/base/resultCodes.h"
#include "input/candidateScan.h"
#include "input/sectionKinds.h"
#include "plugin/sceneLoad.h"

namespace vxH {
namespace {

/// Bytes that the notes of all jobs may take: copies for takes and wedges repeat those of their driver.
constexpr qint64 mostBytesOfNotes = qint64{32} * 1024 * 1024;

qint64 bytesOf(const QList<vxP::_resolvedValue>& values) {
    qint64 sum = 0;
    for (const auto& one : values)
        sum += static_cast<qint64>(sizeof one) + vxP::bytesOf(one.node) + vxP::bytesOf(one.parameter) +
               vxP::bytesOf(one.expression) + vxP::bytesOf(one.stored) + vxP::bytesOf(one.value) +
               vxP::bytesOf(one.reason);
    return sum;
}

/// Tells each job of a resolved load what was computed for it.
void addNotes(_explainedScene& explained) {
    if (!explained.explanation.isResolved) return;
    vxE::_share room(mostBytesOfNotes);
    for (const auto& section : explained.explanation.sections) {
        const qint64 bytes = bytesOf(section.resolved);
        for (const int number : section.jobs + section.copies) {
            const auto index = static_cast<std::size_t>(number) - 1;
            const bool isRecord = index < explained.jobs.size();  // the array may count one more than it has room for
            if (isRecord && room.take(bytes)) explained.jobs[index].resolved = section.resolved;
        }
    }
}

}  // namespace

_explainedScene explainScene(const QString& scene, const _submitterArguments& arguments, vxE::_surveyBreadth breadth) {
    return explainScene(
        scene, arguments, [](const auto&, const auto&) {}, breadth);
}

_explainedScene explainScene(const QString& scene, const _submitterArguments& arguments,
                             const std::function<void(const _explainedScene&, const vxJ::_JobBasicsArray&)>& use,
                             vxE::_surveyBreadth breadth) {
    _explainedScene explained;
    const auto loader = [&](auto* load) { return vxE::loadExplained(*load, explained.explanation, {}, breadth); };
    static_cast<_sceneResult&>(explained) =
        loadScene(loader, scene, arguments, [&](const _sceneResult& loaded, const vxJ::_JobBasicsArray& records) {
            static_cast<_sceneResult&>(explained) = loaded;
            use(explained, records);
        });
    if (explained.code == hostNoScene) explained.explanation = {};
    if (explained.code == vxP::resultNoUsableOutput) explained.error = whyNoJobs(explained.explanation);
    addNotes(explained);
    return explained;
}

bool isOwnPlugin(const _pluginInfo& info) {
    return info.code == vxP::resultSuccess && info.fileFilter == sceneFileFilter() &&
           info.qtVersion == QLatin1String{qVersion()};
}

void tellWhyThereAreNoJobs(_sceneHead& head, const _submitterArguments& arguments) {
    if (head.code != vxP::resultNoUsableOutput) return;
    const _explainedScene explained = explainScene(head.scene, arguments);
    if (explained.code == head.code) head.error = explained.error;
}

QString searchMethod() {
    return QLatin1String{vxP::searchPathName()};
}

std::vector<std::string> readerNames() {
    std::vector<std::string> names;
    for (const auto& kind : vxP::sectionKinds()) names.emplace_back(kind.name.data());
    return names;
}

_sceneResult loadWithNotes(const QString& scene, const _submitterArguments& arguments) {
    return explainScene(scene, arguments, vxE::_surveyBreadth::nodes);
}

_sceneLoader builtInLoader() {
    return [](auto* load) {
        vxP::_sceneFacts facts;
        return vxP::loadScene(*load, facts);
    };
}

QString sceneFileFilter() {
    return vxP::sceneFileFilter.toString();
}

}  // namespace vxH
