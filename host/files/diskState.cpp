#include "host/files/diskState.h"

#include <sys/stat.h>

#include <algorithm>
#include <map>
#include <tuple>

#include "host/base/systemReason.h"
#include "host/files/folderScan.h"

namespace vxH {
namespace {

bool isBefore(const timespec& time, const timespec& other) {
    return std::tie(time.tv_sec, time.tv_nsec) < std::tie(other.tv_sec, other.tv_nsec);
}

/// A file that is there.
struct _present {
    qint64 place;  ///< of its frame in the job's range, from 0
    qint64 bytes;
    bool isOlder;
};

/// Places in ascending order, as runs.
class _runs {
 public:
    void add(qint64 first, qint64 last) {
        if (first > last) return;
        if (!list.empty() && list.back().last + 1 == first) {
            list.back().last = last;
        } else {
            list.push_back({first, last});
        }
    }
    const std::vector<_frameRun>& all() const { return list; }

 private:
    std::vector<_frameRun> list;
};

/// All that is found of one set of files.
class _foundSet {
 public:
    _foundSet(const _outputFiles& wantedFiles, const _diskQuestion& asked)
        : files(&wantedFiles),
          question(&asked),
          range(files->use == _frameUse::oneEach ? *files->frames : _frameRange{0, 0, 1}) {}

    void take(const _foundFile& file) {
        const bool isOlder =
            question->asksForSizes && question->notOlderThan && isBefore(file.changed, *question->notOlderThan);
        found.push_back({file.place, file.bytes, isOlder});
    }

    _diskState state() {
        std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.place < b.place; });
        const auto isSame = [](const auto& a, const auto& b) { return a.place == b.place; };
        found.erase(std::unique(found.begin(), found.end(), isSame), found.end());
        _diskState state;
        state.median = medianBytes();
        std::array<_runs, faultWords.size()> runs;
        qint64 next = 0;
        for (const auto& file : found) {
            runsOf(runs, _fileFault::absent).add(next, file.place - 1);
            next = file.place + 1;
            if (const auto fault = faultOf(file, state.median)) {
                runsOf(runs, *fault).add(file.place, file.place);
            } else {
                ++state.present;
            }
        }
        runsOf(runs, _fileFault::absent).add(next, range.count() - 1);
        for (std::size_t i = 0; i < runs.size(); ++i) state.faults[i] = framesOf(runs[i]);
        return state;
    }

 private:
    static _runs& runsOf(std::array<_runs, faultWords.size()>& runs, _fileFault fault) {
        return runs[static_cast<std::size_t>(fault)];
    }

    qint64 medianBytes() const {
        std::vector<qint64> sizes;
        sizes.reserve(found.size());
        for (const auto& file : found)
            if (file.bytes > 0) sizes.push_back(file.bytes);
        if (static_cast<qint64>(sizes.size()) < leastForMedian) return 0;
        const auto middle = sizes.begin() + static_cast<std::ptrdiff_t>(sizes.size() / 2);
        std::nth_element(sizes.begin(), middle, sizes.end());
        return *middle;
    }

    static std::optional<_fileFault> faultOf(const _present& file, qint64 median) {
        if (file.bytes == 0) return _fileFault::empty;
        if (file.bytes > 0 && file.bytes < median / shortPart) return _fileFault::tooShort;
        return file.isOlder ? std::optional{_fileFault::older} : std::nullopt;
    }

    /// One file stands for all frames.
    _frameList framesOf(const _runs& runs) const {
        if (files->use == _frameUse::oneEach) return foldedFrames(range, runs.all());
        const bool isAny = !runs.all().empty();
        return isAny ? _frameList{files->frames.value_or(_frameRange{})} : _frameList{};
    }

    const _outputFiles* files;
    const _diskQuestion* question;
    _frameRange range;
    std::vector<_present> found;
};

/// The sets of one folder.
class _folderStates {
 public:
    void add(std::size_t at, const _outputFiles& files, const _diskQuestion& question) {
        scan.add({files.prefix.toUtf8(), files.suffix.toUtf8(), files.padding, files.frames.value_or(_frameRange{})});
        places.push_back(at);
        sets.emplace_back(files, question);
    }

    void find(const QString& folder, const _diskQuestion& question, std::vector<_diskState>& states) {
        int error = 0;
        const auto take = [this](std::size_t wanted, const _foundFile& file) { sets[wanted].take(file); };
        const auto answer = scan.read(folder, question.asksForSizes, take, error);
        for (std::size_t i = 0; i < sets.size(); ++i) {
            auto& state = states[places[i]];
            if (answer == _folderAnswer::failed) {
                state.problem = QStringLiteral("the folder cannot be read: ") + reasonOf(error);
                continue;
            }
            state = sets[i].state();
            state.isFolderMissing = answer == _folderAnswer::isMissing;
        }
    }

 private:
    _folderScan scan;
    std::vector<std::size_t> places;  // in the list of all
    std::vector<_foundSet> sets;
};

}  // namespace

bool _diskState::isMissing() const {
    return std::any_of(faults.begin(), faults.end(), [](const auto& frames) { return !frames.empty(); });
}

std::optional<timespec> changeTime(const QString& path) {
    struct stat status {};
    if (stat(path.toUtf8().constData(), &status) != 0) return std::nullopt;
    return status.st_mtim;
}

std::vector<_diskState> diskStatesOf(const std::vector<_outputFiles>& files, const _diskQuestion& question) {
    std::vector<_diskState> states(files.size());
    std::map<QString, _folderStates> folders;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (files[i].isKnown()) {
            folders[files[i].folder].add(i, files[i], question);
        } else {
            states[i].problem = files[i].unknown;
        }
    }
    for (auto& [folder, sets] : folders) sets.find(folder, question, states);
    return states;
}

}  // namespace vxH
