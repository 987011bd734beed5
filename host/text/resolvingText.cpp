#include "host/text/resolvingText.h"

#include "host/base/displayText.h"

namespace vxH {

namespace {

constexpr int hangingIndent = 2;

}  // namespace

QString resolvingText(const _sceneResult& scene, int width) {
    if (!scene.whenResolved) return {};
    const auto [differ, come] = *scene.whenResolved;
    const int jobs = static_cast<int>(scene.jobs.size());
    QString text;
    if (differ > 0) {
        text = QString::number(differ) + QLatin1String{" of "} + counted(jobs, "job differs", "jobs differ") +
               QLatin1String{" when resolved"};
        if (come > 0) text += QLatin1String{", "} + counted(come, "more comes", "more come");
    } else if (come > 0) {
        text = counted(come, "more job comes", "more jobs come") + QLatin1String{" when resolved"};
    }
    if (text.isEmpty()) return text;
    return wrapped(text + QLatin1String{": --resolve"}, width, hangingIndent).join(QLatin1Char('\n')) +
           QLatin1Char('\n');
}

}  // namespace vxH
