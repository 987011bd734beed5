// What the worst scenes cost: each row is a scene written to take long or to take memory. A load may take a second and
// one more for each 100 MB, of the processor (shown: its own and the kernel's), and 64 MB beside the job records; its
// explanation as much again of each.
// Usage: hostileScenes [MEGABYTES=100 [ROW]]
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/measurement.h"
#include "explain/explainedLoad.h"
#include "plugin/vxSceneParserHoudini.h"

namespace {

using namespace vxBench;

std::string value(const std::string& name, const std::string& text) {
    return name + "\t[ 0\tlocks=0 ]\t(\t" + text + "\t)\n";
}
std::string section(const std::string& path, const std::string& lines) {
    return path + ".parm {\n" + lines + "}\n";
}
std::string driver(const std::string& name, const std::string& lines) {
    return section("out/" + name, value("vm_picture", "/i/a.exr") + lines);
}
std::string times(std::size_t count, const std::string& text) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}
std::string passes(const std::string& text) {
    std::string lines;
    for (int i = 1; i < 20; ++i) lines += value("ar_aov_separate_file" + std::to_string(i), text);
    return lines;
}
std::string manyDrivers(const std::string& lines) {
    std::string all;
    for (int i = 0; i < 250; ++i) all += driver(std::to_string(i), lines);
    return all;
}
std::string channels(int count, const std::string& name, const std::string& steps) {
    std::string lines;
    for (int i = 1; i <= count; ++i)
        lines += value("name" + std::to_string(i), name) + value("steps" + std::to_string(i), i == 1 ? steps : "1");
    return lines;
}
std::string wedge(const std::string& lines) {
    return section("out/wedge1", value("driver", "/out/a") + value("wedgemethod", "channel") + lines);
}

/// A scene: a beginning, a text repeated up to the size with its number in place of "@", and an end.
struct _hostileScene {
    const char* name;
    std::string begin;
    std::string repeated;
    std::string end;
};

auto scenes() {
    const std::string open = "out/a.parm {\n";
    const std::string longText(30000, '$');
    const std::string longLine(500000, '/');
    const std::string longExpression = times(650, "$FSTAR");
    const std::string strange = value("trange", "on") + value("file", "a");
    std::string unknowns;
    for (char a = 'a'; a <= 'z'; ++a)
        for (char b = 'a'; b <= 'z'; ++b) unknowns += std::string("$") + a + b;
    std::string nested;
    for (int i = 0; i < 150; ++i) nested += "$WEDG";
    for (int i = 0; i < 150; ++i) nested += 'E';
    return std::array{
        _hostileScene{"variables", "", "set -g V@ = 'value@'\n", driver("a", passes("$V7/$V8"))},
        _hostileScene{"variables of one name", "", "set -g A = '$A'\n", manyDrivers(passes("$A"))},
        _hostileScene{"variables in a chain", "", "set -g V@ = '$V$A@'\n", manyDrivers(passes("$V1"))},
        _hostileScene{"long variables", "", "set -g V@ = '" + longText + "'\n", manyDrivers(passes("$V1$V2"))},
        _hostileScene{"variables that double", times(40, "set -g A = '$A$A'\n"), "", manyDrivers(passes("$A"))},
        _hostileScene{"JOB variables", "", "set -g JOB = '@'\n", manyDrivers("")},
        _hostileScene{"takes", driver("a", ""), "take name t@ 0\n", ""},
        _hostileScene{"frame ranges", "", "frange 1 2\n", ""},
        _hostileScene{"headers that open nothing", "", "x.parm\n", ""},
        _hostileScene{"headers without a mark", "", longLine + "stage/.parm {\n}\n", ""},
        _hostileScene{"headers of ruled-out marks", "", times(80000, "/karma") + "stage/renderproper.parm {\n}\n", ""},
        _hostileScene{"headers beyond ASCII", "", "out/\xc3\xa9.parm {\n}\n", ""},
        _hostileScene{"carriage returns", "", "out/\r.parm\r{\r\n}\n", ""},
        _hostileScene{"empty drivers", "", "out/.parm {\n}\n", ""},
        _hostileScene{"cameras and drivers", "",
                      section("obj/cam@", value("res", "1\t2")) + section("out/d@", value("camera", "/obj/cam@")), ""},
        _hostileScene{"cameras of one driver", open, value("camera", "/obj/cam@"), "}\n"},
        _hostileScene{"LOP nodes", "", section("stage/hdprman@", value("picture", "/i/@")), ""},
        _hostileScene{"USD settings", "", section("stage/rendersettings@", value("camera", "/c@")), ""},
        _hostileScene{"one camera for all", "", section("out/d@", value("camera", "/obj/cam")), ""},
        _hostileScene{"parameters of 8 bytes", open, "take\t(a\n", "}\n"},
        _hostileScene{"output names", open, "vm_picture\t($F\n", "}\n"},
        _hostileScene{"long output names", open, value("vm_picture", longText), "}\n"},
        _hostileScene{"very long output names", open, value("vm_picture", longLine), "}\n"},
        _hostileScene{"output names put together", open, "RS_outputFileNamePrefix\t(abc\n", "}\n"},
        _hostileScene{"formats put together", open, "RS_outputFileFormat\t(@\n", "}\n"},
        _hostileScene{"one-character lines", "", "x\n", ""},
        _hostileScene{"one-character lines in a section", open, "x\n", "}\n"},
        _hostileScene{"lines beyond ASCII in a section", open, "\xff\n", "}\n"},
        _hostileScene{"pass tokens", "",
                      section("out/r@", value("RS_outputFileNamePrefix", "/a") +
                                            value("RS_aovCustomPrefix_1", times(7000, "$AOV")) +
                                            value("RS_aovSuffix_1", longText)),
                      ""},
        _hostileScene{"wedges with one late channel", "", wedge(value("name10000", "a")), ""},
        _hostileScene{"wedges", driver("a", ""), wedge(channels(1, "a", "1")), ""},
        _hostileScene{"wedge of 10000 channels", driver("a", ""), "", wedge(channels(10000, "a", "16000"))},
        _hostileScene{"wedge of long channels", driver("a", ""), "", wedge(channels(9000, longText, "2"))},
        _hostileScene{"wedge of 16000 variants", driver("a", ""), "", wedge(channels(1, "a", "16000"))},
        _hostileScene{"nested wedge placeholders", driver("a", passes("$WEDGE")), "",
                      wedge(value("prefix", nested) + channels(1, "a", "16000"))},
        // Scenes that take long to explain.
        _hostileScene{"drivers without a name", "", section("out/@", "trange\n"), ""},
        _hostileScene{"drivers of many names", "", section("out/@", times(200, value("vm_picture", "chs(@)"))), ""},
        _hostileScene{"drivers that nobody knows", "", section("x@", strange), ""},
        _hostileScene{"the same with long paths", "", section(times(650, "/karma"), strange), ""},
        _hostileScene{"entries of channels", "", "a@.chn {\n}\n", ""},
        _hostileScene{"long expressions", "",
                      "out/a@.chn {\nchannel f1 {\nexpr = " + longExpression + "\n}\n}\n" + section("out/a@", "f\t\n"),
                      ""},
        _hostileScene{"empty lines", "", "\n", ""},
        _hostileScene{"undefined variables", manyDrivers(passes(unknowns)), "", ""},
        _hostileScene{"variants of undefined variables", driver("a", passes(unknowns)), "",
                      wedge(channels(1, "a", "16000"))},
        _hostileScene{"variants of drivers of one name", times(250, driver("a", "")), "",
                      wedge(channels(1, "a", "65"))},
    };
}

std::string numbered(const std::string& text, std::size_t number) {
    std::string result;
    for (const char character : text)
        if (character == '@')
            result += std::to_string(number);
        else
            result += character;
    return result;
}

/// @return bytes written
std::size_t write(const _hostileScene& scene, std::size_t bytes, const std::string& path) {
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    std::size_t written = 0;
    const auto put = [&](const std::string& text) { written += std::fwrite(text.data(), 1, text.size(), file); };
    put(scene.begin);
    for (std::size_t number = 0; !scene.repeated.empty() && written < bytes; ++number)
        put(numbered(scene.repeated, number));
    put(scene.end);
    if (std::fclose(file) != 0) std::exit(EXIT_FAILURE);
    return written;
}

constexpr double secondsOfAnyScene = 1;
constexpr double bytesPerSecond = 100e6;
constexpr long kilobytesBesideRecords = 64 * 1024;

/// @param loads  that it counts for: an explained one for two
void show(const char* what, const _measurement& load, std::size_t bytes, int loads) {
    const double allowed = loads * (secondsOfAnyScene + static_cast<double>(bytes) / bytesPerSecond);
    const long kilobytes = load.peakKilobytes - static_cast<long>(vxJ::largePathRecordSize / 1024) * load.records;
    const double seconds = load.ownSeconds + load.kernelSeconds;
    std::printf("%-34s %6.1f MB %6.3f + %6.3f s of %5.2f %-6s %6ld KB %-6s code %2d, %d jobs\n", what,
                static_cast<double>(bytes) / 1e6, load.ownSeconds, load.kernelSeconds, allowed,
                seconds <= allowed ? "ok" : "SLOW", kilobytes,
                kilobytes <= loads * kilobytesBesideRecords ? "ok" : "LARGE", load.code, load.jobs);
    std::fflush(stdout);
}

void report(const _hostileScene& scene, std::size_t bytes, const std::string& path) {
    const std::size_t written = write(scene, bytes, path);
    show(scene.name, measuredLoad(path, 0, [](auto& record) { return pLoadSceneFile(&record); }), written, 1);
    const auto explain = [](auto& record) {
        vxE::_explanation explanation;
        return vxE::loadExplained(record, explanation);
    };
    show("  explained", measuredLoad(path, 0, explain), written, 2);
}

}  // namespace

int main(int count, char** arguments) {
    const auto bytes = static_cast<std::size_t>(count > 1 ? std::atoll(arguments[1]) : 100) * 1000000;
    const std::string wanted = count > 2 ? arguments[2] : "";
    const std::string path = "/tmp/hostileScenes-" + std::to_string(getpid()) + ".hip";
    for (const auto& scene : scenes())
        if (wanted.empty() || wanted == scene.name) report(scene, bytes, path);
    unlink(path.c_str());
    return 0;
}
