#include "host/files/outputFiles.h"

#include <QRegularExpression>
#include <QSet>
#include <array>

#include "host/results/jobCells.h"
#include "host/results/jobFrames.h"
#include "jobs/splitImageFile.h"

namespace vxH {
namespace {

constexpr QLatin1Char separator{'/'};
constexpr QLatin1String stereoMark{"<Stereo>"};

/// A placeholder that a record may have the value of.
struct _placeholder {
    QLatin1String mark;
    QString _job::*value;
};
constexpr std::array placeholders{
    _placeholder{QLatin1String{"<Channel>"}, &_job::channel},
    _placeholder{QLatin1String{"<Camera>"}, &_job::camera},
    _placeholder{QLatin1String{"<Layer>"}, &_job::layer},
};

/// What of a name says that it is not known. The first one that matches counts.
struct _unknownPart {
    const char* pattern;
    const char* reason;
};
constexpr std::array unknownParts{
    _unknownPart{"<Channel>", "the take is not known"},
    _unknownPart{"<ValueVar @\\$AOV.?>", "the AOVs are not known"},
    _unknownPart{"<[^<>]*>", "a placeholder that the renderer fills in"},
    _unknownPart{"`", "an expression that only Houdini evaluates"},
    _unknownPart{"%[0-9]*d", "a variable that was taken for the frame, or a second frame number"},
    _unknownPart{"\\$", "a variable that the scene does not define"},
};

/// A warning of an explanation that says that a job's name is not what its record holds.
struct _tellingWarning {
    QLatin1String code;
    const char* reason;
    _frameUse use = _frameUse::oneEach;
};
constexpr std::array tellingWarnings{
    _tellingWarning{QLatin1String{"frameNumberAdded"},
                    "every frame overwrites the same file: the scene's name holds no frame number (--resolve names it)",
                    _frameUse::overwritten},
    _tellingWarning{QLatin1String{"relativePath"}, "the path is relative to the folder that Houdini runs in"},
    _tellingWarning{QLatin1String{"variableTakenForFrame"}, "a variable was taken for the frame"},
};

/// Jobs that are like the ones warned of: copies for takes and wedges have the names of their pattern.
QString likeness(const _job& job) {
    return job.layer + QLatin1Char('\n') + rendererCell(job);
}

class _tellings {
 public:
    explicit _tellings(const _explainedScene& scene) {
        for (const auto& warning : scene.explanation.warnings) {
            for (std::size_t row = 0; row < tellingWarnings.size(); ++row)
                if (warning.code == tellingWarnings[row].code) add(row, warning, scene.jobs);
        }
    }

    /// Of the job's name; null where it is what the record holds.
    const _tellingWarning* find(const _job& job) const {
        for (std::size_t row = 0; row < told.size(); ++row)
            if (told[row].contains(likeness(job))) return &tellingWarnings[row];
        return nullptr;
    }

 private:
    void add(std::size_t row, const vxE::_warning& warning, const std::vector<_job>& jobs) {
        for (const int number : warning.jobs) {
            const auto at = static_cast<std::size_t>(number) - 1;
            if (at < jobs.size()) told[row].insert(likeness(jobs[at]));
        }
    }

    std::array<QSet<QString>, tellingWarnings.size()> told;
};

QString unknownIn(const QString& path) {
    static const auto patterns = [] {
        std::array<QRegularExpression, unknownParts.size()> made;
        for (std::size_t row = 0; row < made.size(); ++row)
            made[row].setPattern(QLatin1String{unknownParts[row].pattern});
        return made;
    }();
    for (std::size_t row = 0; row < patterns.size(); ++row)
        if (patterns[row].match(path).hasMatch()) return QLatin1String{unknownParts[row].reason};
    return {};
}

/// A name and how it goes on behind the frame number.
struct _nameParts {
    QString front;  ///< with the folder
    QString back;
};

QString filledIn(QString text, const _job& job, const QString& side) {
    text.replace(stereoMark, side.isEmpty() ? QString{stereoMark} : side);
    for (const auto& [mark, value] : placeholders)
        if (!(job.*value).isEmpty()) text.replace(mark, job.*value);
    return text;
}

/// All frames in one, or each over the one before.
_frameUse useOfOneFile(const QString& name, const std::optional<_frameRange>& frames) {
    const bool isOneFrame = frames && frames->count() == 1;
    return isOneFrame || vxJ::holdsAllFrames(name) ? _frameUse::allInOne : _frameUse::overwritten;
}

QString unknownOf(const _outputFiles& files, const _tellingWarning* told) {
    if (told != nullptr) return QLatin1String{told->reason};
    const QString path = files.folder + files.prefix + files.suffix;
    if (const auto reason = unknownIn(path); !reason.isEmpty()) return reason;
    if (files.prefix.isEmpty() && files.suffix.isEmpty()) return QStringLiteral("a folder and no file");
    if (files.suffix.contains(separator)) return QStringLiteral("the frame number is in the name of a folder");
    if (!path.startsWith(separator)) return QStringLiteral("a path of another system, or a relative one");
    const bool needsFrames = files.use == _frameUse::oneEach && !files.frames;
    return needsFrames ? QStringLiteral("the frames are not known, or are no whole numbers") : QString{};
}

class _jobFiles {
 public:
    _jobFiles(const _explainedScene& explained, std::vector<_outputFiles>& list) : scene(explained), files(list) {}

    void add(const _job& job) {
        ++number;
        const auto* const told = tellings.find(job);
        const bool isStereo = job.imageFileName.contains(stereoMark);
        const _nameParts main{job.imageDir + job.imageFileName, job.imageExtension};
        bool hasSide = false;
        for (const auto& side : {job.imageStereoL, job.imageStereoM, job.imageStereoR}) {
            if (!isStereo || side.isEmpty()) continue;
            addNamed(job, main, side, told);
            hasSide = true;
        }
        if (!hasSide) addNamed(job, main, {}, told);
        for (const auto& channel : job.channels) {
            addNamed(job, {channel.name, channel.extension}, {}, told);
            files.back().isChannel = true;
        }
    }

 private:
    void addNamed(const _job& job, const _nameParts& name, const QString& side, const _tellingWarning* told) {
        auto& added = files.emplace_back();
        added.job = number;
        added.driver = job.layer;
        const QString front = filledIn(writtenOut(name.front, job, scene.scene), job, side);
        const auto folderEnd = front.lastIndexOf(separator) + 1;
        added.folder = front.left(folderEnd);
        added.prefix = front.mid(folderEnd);
        added.suffix = filledIn(name.back, job, side);
        added.frames = wholeFrames(job);
        added.padding = job.imageSingleOutputFile ? 0 : job.imagePadding;
        if (added.padding == 0) added.use = useOfOneFile(added.prefix + added.suffix, added.frames);
        if (told != nullptr && told->use != _frameUse::oneEach) added.use = told->use;
        added.unknown = unknownOf(added, told);
    }

    const _explainedScene& scene;
    std::vector<_outputFiles>& files;
    _tellings tellings{scene};
    int number = 0;
};

}  // namespace

QString _outputFiles::path() const {
    return folder + prefix + QString(padding, QLatin1Char('#')) + suffix;
}

qint64 _outputFiles::count() const {
    if (!isKnown()) return 0;
    return use == _frameUse::oneEach ? frames->count() : 1;
}

std::vector<_outputFiles> outputFilesOf(const _explainedScene& scene) {
    std::vector<_outputFiles> files;
    _jobFiles all{scene, files};
    for (const auto& job : scene.jobs) all.add(job);
    return files;
}

}  // namespace vxH
