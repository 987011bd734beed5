// How long a whole load takes, against counting the lines, reading the file, and the plain scan: medians of paired runs
// in one go, as ratios. Each measurement is a process of its own, as every load of a host starts from fresh state.
// Usage: scanReport [MEGABYTES=1024] [RUNS=5]
//        scanReport write SMALL_SCENE    writes the small scene
//        scanReport load SCENE           loads a scene once, to be measured from outside
//        scanReport nothing              an empty program that links the same libraries
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "bench/measurement.h"
#include "bench/plainScan.h"
#include "bench/sceneGenerator.h"
#include "plugin/vxSceneParserHoudini.h"

namespace {

using namespace vxBench;
using _clock = std::chrono::steady_clock;

_measurement load(const std::string& path, int records) {
    return measuredLoad(path, records, [](auto& record) { return pLoadSceneFile(&record); });
}

_measurement plain(const std::string& path, int records) {
    return measuredLoad(path, records, [&](auto& record) {
        return plainScan(record, QString::fromStdString(path)) > 0 ? vxP::resultSuccess : vxP::resultCannotOpen;
    });
}

_measurement readOnly(const std::string& path, int /*records*/) {
    return measured([&](_measurement& answer) {
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        std::vector<char> block(256 * 1024);
        timed(answer, [&] {
            while (read(file, block.data(), block.size()) > 0) ++answer.code;
        });
        close(file);
    });
}

_measurement lineCount(const std::string& path, int /*records*/) {
    return measured([&](_measurement& answer) {
        timed(answer, [&] { answer.code = std::system(("exec wc -l '" + path + "' >/dev/null").c_str()); });
    });
}

using _measure = _measurement (*)(const std::string& path, int records);

struct _comparison {
    const char* name;
    _sceneShape shape;
    double share;  ///< of the megabytes asked for
    const char* baselineName;
    _measure baseline;
    bool asSpeedup;  ///< the target is a least speed-up, else a greatest ratio of times
    double target;
    int baselineRuns;
    int jobs;  ///< that the scene must yield
    int code;
};

constexpr _comparison comparisons[] = {
    {"short lines", _sceneShape::shortLines, 1, "wc -l", lineCount, false, 2.0, 0, 0, 25},
    {"short lines", _sceneShape::shortLines, 1, "plain scan", plain, true, 30, 1, 0, 25},
    {"heavy geometry", _sceneShape::heavyGeometry, 1, "read only", readOnly, false, 1.5, 0, 0, 1},
    {"section-heavy", _sceneShape::sectionHeavy, 0.17, "plain scan", plain, true, 8, 3, 0, 25},
    {"250 drivers", _sceneShape::drivers, 0, "plain scan", plain, true, 3, 0, 250, 1},
};

void compare(const _comparison& row, const std::string& path, int runs) {
    std::vector<double> loads;
    std::vector<double> baselines;
    long peak = 0;
    for (int run = 0; run < runs; ++run) {
        const _measurement loaded = load(path, row.jobs);
        if (loaded.code != row.code || loaded.jobs != row.jobs) {
            std::fprintf(stderr, "%s: code %d, %d jobs\n", row.name, loaded.code, loaded.jobs);
            std::exit(EXIT_FAILURE);
        }
        loads.push_back(loaded.seconds);
        peak = std::max(peak, loaded.peakKilobytes);
        if (row.baselineRuns == 0 || run < row.baselineRuns) baselines.push_back(row.baseline(path, row.jobs).seconds);
    }
    const double ratio = row.asSpeedup ? median(baselines) / median(loads) : median(loads) / median(baselines);
    const bool reached = row.asSpeedup ? ratio >= row.target : ratio <= row.target;
    std::printf("%-15s %8.4f s   %-10s %8.4f s   %-8s %6.2f   target %s %4.1f  %-6s  peak %+6ld KB\n", row.name,
                median(loads), row.baselineName, median(baselines), row.asSpeedup ? "speed-up" : "ratio", ratio,
                row.asSpeedup ? ">=" : "<=", row.target, reached ? "ok" : "MISSED", peak);
}

/// Seconds that a run of this program takes as a whole.
double processSeconds(const std::vector<std::string>& arguments) {
    const auto start = _clock::now();
    const pid_t child = fork();
    if (child == 0) {
        std::vector<char*> texts;
        for (const std::string& argument : arguments) texts.push_back(const_cast<char*>(argument.c_str()));
        texts.push_back(nullptr);
        execv("/proc/self/exe", texts.data());
        _exit(EXIT_FAILURE);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (status != 0) std::exit(EXIT_FAILURE);
    return std::chrono::duration<double>(_clock::now() - start).count();
}

constexpr std::uint64_t smallBytes = 100 * 1024;
constexpr double smallTarget = 0.005;  ///< seconds more than an empty program

void compareSmall(const std::string& path, int runs) {
    writeScene(path, _sceneShape::shortLines, smallBytes, 1);
    std::vector<double> loads;
    std::vector<double> empties;
    for (int run = 0; run < 4 * runs; ++run) {
        loads.push_back(processSeconds({"scanReport", "load", path}));
        empties.push_back(processSeconds({"scanReport", "nothing"}));
    }
    const double more = median(loads) - median(empties);
    std::printf("%-15s %8.4f s   %-10s %8.4f s   %-8s %6.4f   target <= %.4f  %s\n", "small (process)", median(loads),
                "nothing", median(empties), "more", more, smallTarget, more <= smallTarget ? "ok" : "MISSED");
}

void showGrowth(const std::string& path, std::uint64_t megabytes) {
    std::printf("\nsize (MB), seconds, seconds per GB, peak above start (KB); short lines\n");
    for (std::uint64_t size = 1; size <= 4 * megabytes; size *= 4) {
        writeScene(path, _sceneShape::shortLines, size << 20, 1);
        const _measurement loaded = load(path, 0);
        std::printf("%6llu  %8.4f  %8.4f  %8ld\n", static_cast<unsigned long long>(size), loaded.seconds,
                    loaded.seconds * 1024 / static_cast<double>(size), loaded.peakKilobytes);
    }
    writeScene(path, _sceneShape::oneLine, std::uint64_t{2} * megabytes << 20, 1);
    const _measurement loaded = load(path, 0);
    std::printf("one line of %llu MB: %.4f s, peak %ld KB\n", static_cast<unsigned long long>(2 * megabytes),
                loaded.seconds, loaded.peakKilobytes);
}

/// One of the commands that a measurement from outside asks for. @return false when it is none
bool runCommand(const std::string& command, const std::string& path, int& status) {
    status = EXIT_SUCCESS;
    if (command == "write") {
        writeScene(path, _sceneShape::shortLines, smallBytes, 1);
    } else if (command == "load") {
        const vxS::_vxString<500> name(QString::fromStdString(path));
        vxJ::_JobBasicsArray jobs;
        const vxP::_submitterSettings settings{0, nullptr};
        vxP::_dataPARS_LoadSceneFile record{&name, &jobs, &settings};
        status = pLoadSceneFile(&record) == vxP::resultCannotOpen ? EXIT_FAILURE : EXIT_SUCCESS;
    } else if (command != "nothing") {
        return false;
    }
    return true;
}

}  // namespace

int main(int count, char** arguments) {
    int status = EXIT_SUCCESS;
    if (count > 1 && runCommand(arguments[1], count > 2 ? arguments[2] : "", status)) return status;
    const auto megabytes = static_cast<std::uint64_t>(count > 1 ? std::atoll(arguments[1]) : 1024);
    const int runs = count > 2 ? std::atoi(arguments[2]) : 5;
    const std::string path = "/tmp/scanReport-" + std::to_string(getpid()) + ".hip";
    const _sceneShape* written = nullptr;
    for (const auto& row : comparisons) {
        if (written == nullptr || *written != row.shape)
            writeScene(path, row.shape, static_cast<std::uint64_t>(row.share * static_cast<double>(megabytes << 20)),
                       1);
        written = &row.shape;
        compare(row, path, runs);
        std::fflush(stdout);
    }
    compareSmall(path, runs);
    showGrowth(path, megabytes);
    unlink(path.c_str());
    return 0;
}
