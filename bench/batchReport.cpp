// What `vxscene jobs` takes for many scenes, against the time that the plug-in itself needs for them: medians of paired
// runs, as ratios. The plug-in's time is the sum over its loads, one after the other, each in a fresh process.
// Usage: batchReport VXSCENE FOLDER [SCENES=200 [RUNS=7]]     FOLDER: its scenes are taken over and over
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "bench/measurement.h"
#include "bench/sceneFolder.h"
#include "plugin/vxSceneParserHoudini.h"

namespace {

using namespace vxBench;
namespace fs = std::filesystem;

struct _variant {
    const char* name;
    const char* options;
    bool asLines;  ///< a line of output for each scene: their number is checked
};
constexpr _variant variants[] = {
    {"jsonl, one at a time", "--format jsonl --parallel 1", true},
    {"jsonl, all cores", "--format jsonl", true},
    {"json, all cores", "--format json", false},
    {"table, one at a time", "--format table --parallel 1", false},
    {"table, all cores", "--format table", false},
};
constexpr double mostTimes = 3;

/// A folder of links to scenes, which goes again at the end.
struct _linkedScenes {
    fs::path folder = fs::temp_directory_path() / ("batchReport-" + std::to_string(getpid()));
    std::vector<std::string> scenes;
    std::uintmax_t bytes = 0;

    _linkedScenes(const fs::path& source, std::size_t count) {
        const std::vector<fs::path> found = scenesIn(source);
        fs::create_directory(folder);
        while (!found.empty() && scenes.size() < count) {
            const auto& scene = found[scenes.size() % found.size()];
            const auto number = std::to_string(100000 + scenes.size());
            scenes.push_back(folder / (number + scene.extension().native()));
            fs::create_symlink(scene, scenes.back());
            bytes += fs::file_size(scene);
        }
    }
    ~_linkedScenes() { fs::remove_all(folder); }
    _linkedScenes(const _linkedScenes&) = delete;
    _linkedScenes& operator=(const _linkedScenes&) = delete;
};

double loadSeconds(const std::vector<std::string>& scenes) {
    double sum = 0;
    for (const auto& scene : scenes)
        sum += measuredLoad(scene, 0, [](auto& load) { return pLoadSceneFile(&load); }).seconds;
    return sum;
}

template <class _work>
double secondsOf(const _work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double processSeconds(std::size_t count) {
    return secondsOf([=] {
        for (std::size_t i = 0; i < count; ++i) measured([](_measurement&) {});
    });
}

double programSeconds(const std::string& program, const _variant& variant, const _linkedScenes& scenes) {
    const auto output = scenes.folder / "output";
    const auto command = "'" + program + "' jobs " + variant.options + " '" + scenes.folder.native() + "' >'" +
                         output.native() + "' 2>/dev/null";
    int status = 0;
    const double seconds = secondsOf([&] { status = std::system(command.c_str()); });
    std::ifstream written{output};
    const auto lines = std::count(std::istreambuf_iterator<char>{written}, {}, '\n');
    const bool isWhole = variant.asLines ? lines == static_cast<std::ptrdiff_t>(scenes.scenes.size()) : lines > 0;
    if (!WIFEXITED(status) || WEXITSTATUS(status) > 1 || !isWhole) {
        std::fprintf(stderr, "%s: status %d, %td lines\n", command.c_str(), status, lines);
        std::exit(EXIT_FAILURE);
    }
    return seconds;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) return EXIT_FAILURE;
    const _linkedScenes scenes{arguments[2], static_cast<std::size_t>(count > 3 ? std::atoi(arguments[3]) : 200)};
    const int runs = count > 4 ? std::atoi(arguments[4]) : 7;
    std::vector<double> loads;
    std::vector<double> processes;
    std::vector<std::vector<double>> programs(std::size(variants));
    for (int run = 0; run < runs; ++run) {
        loads.push_back(loadSeconds(scenes.scenes));
        processes.push_back(processSeconds(scenes.scenes.size()));
        for (std::size_t i = 0; i < programs.size(); ++i)
            programs[i].push_back(programSeconds(arguments[1], variants[i], scenes));
    }
    std::printf("%zu scenes, %.0f MB: the loads alone %.3f s, as many empty processes %.3f s\n", scenes.scenes.size(),
                static_cast<double>(scenes.bytes) * 1e-6, median(loads), median(processes));
    for (std::size_t i = 0; i < programs.size(); ++i) {
        const double ratio = median(programs[i]) / median(loads);
        std::printf("%-22s %7.3f s   ratio %5.2f   target <= %.1f  %s\n", variants[i].name, median(programs[i]), ratio,
                    mostTimes, ratio <= mostTimes ? "ok" : "MISSED");
    }
    return EXIT_SUCCESS;
}
