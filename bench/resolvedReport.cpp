// What a resolved load costs: time as a ratio to the plain load of the same scenes and memory beside what their nodes
// hold, and the load of a scene that is mostly definitions or geometry as a ratio to counting its lines. Each load is a
// process of its own, as it starts from fresh state.
// Usage: resolvedReport FOLDER [MEGABYTES=1024 [RUNS=5]]
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#include "bench/measurement.h"
#include "plugin/vxSceneParserHoudini.h"
#include "tests/support/archiveText.h"

namespace {

using namespace vxBench;
namespace fs = std::filesystem;

constexpr double mostTimes = 3;
constexpr double mostOfLineCount = 1;
constexpr double mostMegabytesOfAny = 64;

_measurement load(const std::string& path, std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "resolvedReport");
    return measuredLoad(path, 0, [&](auto& record) {
        const vxP::_submitterSettings settings{static_cast<qint32>(arguments.size()), arguments.data()};
        vxP::_dataPARS_LoadSceneFile ofArguments{record.sceneFileName, record.jobArray, &settings};
        return pLoadSceneFile(&ofArguments);
    });
}

_measurement resolved(const std::string& path) {
    return load(path, {"-houdiniResolve"});
}

const char* verdict(bool isReached) {
    return isReached ? "ok" : "MISSED";
}

/// Sums over a folder of the least seconds of some runs, and the most memory beyond that of a scene's own bytes.
void reportFolder(const fs::path& folder, int runs) {
    double plainSeconds = 0;
    double resolvedSeconds = 0;
    double megabytes = 0;
    for (const auto& entry : fs::directory_iterator{folder}) {
        const std::string scene = entry.path().native();
        if (entry.path().extension().native().rfind(".hip", 0) != 0) continue;
        double plain = std::numeric_limits<double>::max();
        double least = plain;
        for (int run = 0; run < runs; ++run) {
            plain = std::min(plain, load(scene, {}).seconds);
            const _measurement one = resolved(scene);
            least = std::min(least, one.seconds);
            const double bytes = static_cast<double>(one.peakKilobytes) * 1024 - static_cast<double>(entry.file_size());
            megabytes = std::max(megabytes, bytes / (1024 * 1024));
        }
        plainSeconds += plain;
        resolvedSeconds += least;
    }
    const double ratio = resolvedSeconds / plainSeconds;
    std::printf("resolved loads   %8.4f s   loads %8.4f s   ratio %6.2f   target <= %3.1f  %s\n", resolvedSeconds,
                plainSeconds, ratio, mostTimes, verdict(ratio <= mostTimes));
    std::printf("memory beside the scene's bytes, at most %6.1f MB   target <= %3.0f  %s\n", megabytes,
                mostMegabytesOfAny, verdict(megabytes <= mostMegabytesOfAny));
}

/// What most of a scene is.
struct _bulk {
    const char* name;
    const char* entry;      ///< each is called by this and a number
    int entryMegabytes;     ///< 0: all in one
    std::string (*make)();  ///< a megabyte, or nearly
};

std::string definitions() {
    const std::string parameter = "    parm {\n        name    \"size\"\n        default { \"0\" }\n    }\n";
    std::string text;
    while (text.size() < (1U << 20)) text += parameter;
    return text;
}

/// Bytes of any value, some of which look like line ends.
std::string geometry() {
    std::string bytes(1U << 20, '\0');
    std::uint32_t number = 1;
    for (char& byte : bytes) byte = static_cast<char>((number = number * 1'664'525 + 1'013'904'223) >> 24);
    return bytes;
}

constexpr _bulk bulks[] = {{"definitions", ".OPdummydefs", 0, definitions},
                           {"geometry", "obj/g/file.data", 4, geometry}};

void writeBulk(const std::string& path, const _bulk& bulk, std::uint64_t megabytes) {
    std::ofstream scene(path, std::ios::binary);
    scene << vxTest::openEntry({".start", "fps 24\ntset 0 10\nfrange 1 240\n"})
          << vxTest::openEntry({"out/a.init", "type = ifd\n"})
          << vxTest::openEntry({"out/a.parm", "{\nversion 0.8\nvm_picture\t[ 0\tlocks=0 ]\t(\t/i/a.exr\t)\n}\n"});
    const std::string piece = bulk.make();
    const std::uint64_t pieces = bulk.entryMegabytes == 0 ? megabytes : static_cast<std::uint64_t>(bulk.entryMegabytes);
    for (std::uint64_t written = 0; written < megabytes; written += pieces) {
        std::string header = vxTest::openEntry({bulk.entry, ""});
        std::snprintf(&header[65], 12, "%011llo", static_cast<unsigned long long>(pieces * piece.size()));
        header[76] = bulk.entry[0];
        scene << header;
        for (std::uint64_t i = 0; i < pieces; ++i) scene << piece;
    }
    scene << vxTest::openEntry({"TRAILER!!!", ""});
    if (!scene.flush()) std::exit(EXIT_FAILURE);
}

void reportBulk(const std::string& path, const _bulk& bulk, std::uint64_t megabytes, int runs) {
    writeBulk(path, bulk, megabytes);
    double counting = std::numeric_limits<double>::max();
    double loading = counting;
    for (int run = 0; run < runs; ++run) {
        const auto counted = measured([&](_measurement& answer) {
            timed(answer, [&] { answer.code = std::system(("exec wc -l '" + path + "' >/dev/null").c_str()); });
        });
        counting = std::min(counting, counted.seconds);
        const _measurement one = resolved(path);
        if (one.code != vxP::resultSuccess || one.jobs != 1) std::exit(EXIT_FAILURE);
        loading = std::min(loading, one.seconds);
    }
    const double ratio = loading / counting;
    std::printf("%-12s     %8.4f s   wc -l %8.4f s   ratio %6.3f   target <  %3.1f  %s\n", bulk.name, loading, counting,
                ratio, mostOfLineCount, verdict(ratio < mostOfLineCount));
}

}  // namespace

int main(int count, char** arguments) {
    const auto megabytes = static_cast<std::uint64_t>(count > 2 ? std::atoll(arguments[2]) : 1024);
    const int runs = count > 3 ? std::atoi(arguments[3]) : 5;
    reportFolder(count > 1 ? arguments[1] : "examples", runs);
    const std::string path = "/tmp/resolvedReport-" + std::to_string(getpid()) + ".hip";
    for (const _bulk& bulk : bulks) reportBulk(path, bulk, megabytes, runs);
    unlink(path.c_str());
    return 0;
}
