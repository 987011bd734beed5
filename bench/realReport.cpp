// What real scenes cost: loads one after the other in one process, and one large scene, against counting the lines of
// the same files. Each way of searching is measured by itself; medians of runs in turn, as ratios of seconds of the
// processor: both work alone on files in the page cache, and waiting for a busy processor is neither's.
// Usage: realReport FOLDER [MEGABYTES=1024 [RUNS=7]]     FOLDER: its scenes are taken over and over
//        realReport write FOLDER SCENE MEGABYTES         writes the large scene
//        realReport load SCENE PATH                      loads a scene once, to be measured from outside
#include <sys/resource.h>
#include <unistd.h>

#include <QString>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "bench/measurement.h"
#include "bench/sceneFolder.h"
#include "drivers/outNodeRules.h"
#include "input/candidateScan.h"
#include "plugin/vxSceneParserHoudini.h"
#include "tests/support/sceneText.h"

namespace {

using namespace vxBench;
namespace fs = std::filesystem;

struct _path {
    const char* name;
    vxP::_searchPath search;
    bool hasTarget;
};
constexpr std::array paths{
    _path{"fastest", vxP::_searchPath::automatic, true},
    _path{"AVX2", vxP::_searchPath::avx2, true},
    _path{"portable", vxP::_searchPath::portable, false},
};

// ---- scenes without jobs

/// Adds to a name or gives one, but is no output itself.
bool givesName(const QString& line) {
    return vxP::roleOf(line) == vxP::_parameterRole::output || vxP::isNamed(line, QLatin1String("RS_outputFileFormat"));
}

/// The scene with blanks in the place of its output names: as many bytes and lines, and no job.
std::string withoutOutputs(std::string scene) {
    constexpr std::size_t longestName = 40;
    for (std::size_t start = 0; start < scene.size();) {
        const std::size_t end = std::min(scene.find('\n', start), scene.size());
        const std::string_view line = std::string_view(scene).substr(start, end - start);
        const std::size_t open = line.find('(');
        const std::string_view name = line.substr(0, longestName);
        if (open < line.size() && givesName(QString::fromLatin1(name.data(), vxS::_size(name.size())).trimmed())) {
            const std::size_t close = std::min(line.rfind(')'), line.size());
            for (std::size_t at = open + 1; at < close; ++at) scene[start + at] = ' ';
        }
        start = end + 1;
    }
    return scene;
}

std::string bytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// ---- loads

/// From fresh state, as a host's first one. @return jobs
int load(const fs::path& scene, double& seconds) {
    vxTest::freshScanState();
    const vxS::_vxString<500> name(QString::fromStdString(scene.native()));
    vxJ::_JobBasicsArray jobs;
    const vxP::_submitterSettings settings{0, nullptr};
    vxP::_dataPARS_LoadSceneFile record{&name, &jobs, &settings};
    _measurement measured;
    timed(measured, [&] { measured.code = pLoadSceneFile(&record); });
    if (measured.code == vxP::resultException || measured.code == vxP::resultCannotOpen) {
        std::fprintf(stderr, "%s: code %d\n", scene.c_str(), measured.code);
        std::exit(EXIT_FAILURE);
    }
    seconds += measured.ownSeconds + measured.kernelSeconds;
    return jobs.count;
}

/// Scenes that are measured together, each perhaps several times.
using _scenes = std::vector<fs::path>;

struct _sum {
    double seconds = 0;
    int jobs = 0;
};

_sum loadsOf(const _scenes& scenes, vxP::_searchPath path) {
    const auto answer = measured([&](_measurement& all) {
        vxP::chooseSearchPath(path);
        for (const fs::path& scene : scenes) all.jobs += load(scene, all.seconds);
    });
    return {answer.seconds, answer.jobs};
}

double childrenSeconds() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto micros = [](const timeval& time) { return static_cast<double>(time.tv_sec * 1'000'000 + time.tv_usec); };
    return (micros(usage.ru_utime) + micros(usage.ru_stime)) * 1e-6;
}

double lineCountSeconds(const _scenes& scenes) {
    std::string command = "exec wc -l";
    for (const fs::path& scene : scenes) command += " '" + scene.native() + "'";
    command += " >/dev/null";
    const double before = childrenSeconds();
    if (std::system(command.c_str()) != 0) std::exit(EXIT_FAILURE);
    return childrenSeconds() - before;
}

// ---- the report

struct _row {
    const char* name;
    double target;  ///< ratio at most; 0: none
};

void compare(const _row& row, const _scenes& scenes, int runs) {
    std::vector<double> counts;
    std::array<std::vector<double>, paths.size()> loads;
    int jobs = 0;
    for (int run = 0; run < runs; ++run) {
        counts.push_back(lineCountSeconds(scenes));
        for (std::size_t path = 0; path < paths.size(); ++path) {
            const _sum sum = loadsOf(scenes, paths[path].search);
            loads[path].push_back(sum.seconds);
            jobs = sum.jobs;
        }
    }
    for (std::size_t path = 0; path < paths.size(); ++path) {
        const double ratio = median(loads[path]) / median(counts);
        std::printf("%-24s %-8s %8.4f s   wc -l %8.4f s   %5d jobs   ratio %6.2f", row.name, paths[path].name,
                    median(loads[path]), median(counts), jobs, ratio);
        if (row.target > 0 && paths[path].hasTarget)
            std::printf("   target <= %3.1f  %s", row.target, ratio <= row.target ? "ok" : "MISSED");
        std::printf("\n");
    }
    std::fflush(stdout);
}

/// A folder of one's own, which goes again at the end.
struct _workFolder {
    fs::path path = fs::temp_directory_path() / ("realReport-" + std::to_string(getpid()));

    _workFolder() { fs::create_directory(path); }
    ~_workFolder() { fs::remove_all(path); }
    _workFolder(const _workFolder&) = delete;
    _workFolder& operator=(const _workFolder&) = delete;
};

/// Writes the scenes without their outputs.
_scenes writeEmptied(const _scenes& scenes, const fs::path& folder) {
    _scenes written;
    written.reserve(scenes.size());
    for (const fs::path& scene : scenes) {
        written.push_back(folder / (std::to_string(written.size()) + ".hip"));
        std::ofstream(written.back(), std::ios::binary) << withoutOutputs(bytesOf(scene));
        double seconds = 0;
        if (load(written.back(), seconds) == 0) continue;
        std::printf("%s: left out of the scenes without jobs, as some remain\n", scene.c_str());
        written.pop_back();
    }
    return written;
}

std::uintmax_t sizeOf(const _scenes& scenes) {
    std::uintmax_t bytes = 0;
    for (const fs::path& scene : scenes) bytes += fs::file_size(scene);
    return bytes;
}

/// All of them, as often as it takes to get so many bytes.
_scenes repeated(const _scenes& scenes, std::uintmax_t bytes) {
    _scenes all = scenes;
    const std::uintmax_t once = sizeOf(scenes);
    for (std::uintmax_t size = once; size + once <= bytes; size += once)
        all.insert(all.end(), scenes.begin(), scenes.end());
    return all;
}

void join(const _scenes& scenes, const fs::path& target) {
    std::ofstream joined(target, std::ios::binary);
    for (const fs::path& scene : scenes) joined << std::ifstream(scene, std::ios::binary).rdbuf();
}

int report(const fs::path& folder, std::uintmax_t bytes, int runs) {
    const _scenes scenes = scenesIn(folder);
    if (scenes.empty()) {
        std::printf("real scenes: skipped, as there are none in %s\n", folder.c_str());
        return EXIT_SUCCESS;
    }
    const _workFolder work;
    const _scenes emptied = writeEmptied(scenes, work.path);
    if (emptied.empty()) return EXIT_FAILURE;
    std::printf("%zu real scenes of %ju MB, taken over and over up to %ju MB\n", scenes.size(), sizeOf(scenes) >> 20,
                bytes >> 20);
    compare({"one after the other", 2.5}, repeated(scenes, bytes / 4), runs);
    compare({"the same without jobs", 0}, repeated(emptied, bytes / 4), runs);
    const fs::path large = work.path / "large.hip";
    join(repeated(emptied, bytes), large);
    compare({"one scene without jobs", 1.6}, {large}, runs);
    return EXIT_SUCCESS;
}

void writeLarge(const fs::path& folder, const fs::path& target, std::uintmax_t bytes) {
    const _workFolder work;
    join(repeated(writeEmptied(scenesIn(folder), work.path), bytes), target);
}

std::uintmax_t bytesOfMegabytes(const char* text) {
    return static_cast<std::uintmax_t>(std::atoll(text)) << 20;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string_view command = count > 1 ? arguments[1] : "examples";
    if (command == "write" && count == 5) {
        writeLarge(arguments[2], arguments[3], bytesOfMegabytes(arguments[4]));
        return EXIT_SUCCESS;
    }
    if (command == "load" && count == 4) {
        double seconds = 0;
        vxP::chooseSearchPath(paths.at(static_cast<std::size_t>(std::atoi(arguments[3]))).search);
        load(arguments[2], seconds);
        return EXIT_SUCCESS;
    }
    return report(command, count > 2 ? bytesOfMegabytes(arguments[2]) : std::uintmax_t{1} << 30,
                  count > 3 ? std::atoi(arguments[3]) : 7);
}
