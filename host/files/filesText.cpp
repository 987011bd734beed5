#include "host/files/filesText.h"

#include <map>

#include "host/base/displayText.h"

namespace vxH {
namespace {

constexpr int jobWidth = 5;
constexpr int wordWidth = 8;
constexpr int countWidth = 9;

QString rightAligned(const QString& text, int width) {
    return text.rightJustified(width);
}

/// "  3      100  /img/a.####.exr 1-100"; what follows the path stands behind a blank.
QString lineOf(const _outputFiles& files, const QString& word, qint64 count, const QString& behind) {
    QString line = rightAligned(QString::number(files.job), jobWidth) + QLatin1String("  ");
    if (!word.isEmpty()) line += word.leftJustified(wordWidth);
    line += rightAligned(count > 0 ? QString::number(count) : QStringLiteral("?"), countWidth);
    return printable(line + QLatin1String("  ") + files.path() + QLatin1Char(' ') + behind) + QLatin1Char('\n');
}

QString framesText(const _outputFiles& files) {
    const QString frames = files.frames ? frameListText({*files.frames}) : QString{};
    switch (files.use) {
        case _frameUse::oneEach:
            return frames;
        case _frameUse::allInOne:
            return QStringLiteral("(one file)");
        case _frameUse::overwritten:
            return QStringLiteral("(every frame overwrites this file: %1)").arg(frames);
    }
    return {};
}

QString lineOf(const _outputFiles& files) {
    const QString behind = files.isKnown() ? framesText(files) : QLatin1String("unknown: ") + files.unknown;
    return lineOf(files, {}, files.count(), behind);
}

QString linesOf(const _outputFiles& files, const _diskState& state) {
    if (!state.isTold()) return lineOf(files, QStringLiteral("unknown"), 0, state.problem);
    QString lines;
    for (std::size_t i = 0; i < faultWords.size(); ++i) {
        const auto& frames = state.faults[i];
        if (frames.empty()) continue;
        const bool isOneEach = files.use == _frameUse::oneEach;
        lines += lineOf(files, faultWords[i].word, isOneEach ? countOf(frames) : 1,
                        isOneEach ? frameListText(frames) : framesText(files));
    }
    return lines;
}

/// A line for each folder that is not there, in place of the lines of its sets.
class _missingFolders {
 public:
    explicit _missingFolders(const _sceneFiles& scene) {
        for (std::size_t i = 0; i < scene.files.size(); ++i)
            if ((*scene.states)[i].isFolderMissing) add(scene.files[i]);
    }

    /// Where the folder of this set is told, that is with its first one; else nothing.
    QString lineAt(const _outputFiles& files) {
        auto& folder = folders[files.folder];
        if (folder.isTold) return {};
        folder.isTold = true;
        const bool isOne = folder.jobs.size() == 1 && folder.jobs.front().first == folder.jobs.front().last;
        const QString jobs = frameListText(foldedFrames({0, folder.jobs.back().last, 1}, folder.jobs));
        return rightAligned(QString::number(files.job), jobWidth) + QLatin1String("  ") +
               QStringLiteral("folder").leftJustified(wordWidth) +
               rightAligned(QString::number(folder.files), countWidth) + QLatin1String("  ") + printable(files.folder) +
               QStringLiteral(" is not there: %1 %2\n").arg(QLatin1String{isOne ? "job" : "jobs"}, jobs);
    }

 private:
    struct _folder {
        qint64 files = 0;
        std::vector<_frameRun> jobs;
        bool isTold = false;
    };

    void add(const _outputFiles& files) {
        auto& folder = folders[files.folder];
        folder.files += files.count();
        if (!folder.jobs.empty() && folder.jobs.back().last + 1 >= files.job) {
            folder.jobs.back().last = files.job;
        } else {
            folder.jobs.push_back({files.job, files.job});
        }
    }

    std::map<QString, _folder> folders;
};

QString heading(const _sceneFiles& scene) {
    const auto sum = sumOf(scene);
    QString text =
        printable(scene.scene) + QLatin1String(": ") + counted(scene.jobs, "job", "jobs") + QLatin1String(", ");
    text += scene.states ? QStringLiteral("%1 of %2 there").arg(sum.present).arg(counted(sum.files, "file", "files"))
                         : counted(sum.files, "file", "files");
    if (sum.unknown > 0) text += QLatin1String(", ") + counted(sum.unknown, "name unknown", "names unknown");
    return text + QLatin1Char('\n');
}

}  // namespace

QString filesText(const _sceneFiles& scene) {
    if (!scene.knowsItsJobs()) return {};
    QString text = heading(scene);
    if (!scene.states) {
        for (const auto& files : scene.files) text += lineOf(files);
        return text;
    }
    _missingFolders folders{scene};
    for (std::size_t i = 0; i < scene.files.size(); ++i) {
        const auto& state = (*scene.states)[i];
        text += state.isFolderMissing ? folders.lineAt(scene.files[i]) : linesOf(scene.files[i], state);
    }
    return text;
}

}  // namespace vxH
