#include "host/text/resolvingText.h"

#include <QStringList>

namespace vxH {

QString resolvingText(const _sceneResult& scene) {
    if (!scene.whenResolved) return {};
    const auto& [differ, come] = *scene.whenResolved;
    QStringList changes;
    if (differ > 0)
        changes += QStringLiteral("%1 of %2 %3 when resolved")
                       .arg(QString::number(differ), QString::number(scene.jobs.size()),
                            scene.jobs.size() == 1 ? QLatin1String{"job differs"} : QLatin1String{"jobs differ"});
    if (come > 0)
        changes += QStringLiteral("%1 more %2%3")
                       .arg(QString::number(come), come == 1 ? QLatin1String{"comes"} : QLatin1String{"come"},
                            differ > 0 ? QLatin1String{} : QLatin1String{" when resolved"});
    if (changes.isEmpty()) return {};
    return changes.join(QLatin1String{", "}) + QLatin1String{": --resolve\n"};
}

}  // namespace vxH
