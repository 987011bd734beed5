#include "host/text/resolvingText.h"

namespace vxH {

namespace {

QString counted(int count, const char* one, const char* many) {
    return QString::number(count) + QLatin1Char(' ') + QLatin1String{count == 1 ? one : many};
}

}  // namespace

QString resolvingText(const _sceneResult& scene) {
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
    return text.isEmpty() ? text : text + QLatin1String{": --resolve\n"};
}

}  // namespace vxH
