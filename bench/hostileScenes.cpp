#include "bench/hostileScenes.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace vxBench {

namespace {

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
std::string channels(int count, const std::string& name, const std::string& steps, const std::string& otherSteps = "1",
                     const std::string& range = "") {
    std::string lines;
    for (int i = 1; i <= count; ++i) {
        const std::string number = std::to_string(i);
        lines += value("name" + number, name) + value("steps" + number, i == 1 ? steps : otherSteps);
        if (!range.empty()) lines += value("range" + number, range);
    }
    return lines;
}
std::string wedge(const std::string& lines) {
    return section("out/wedge1", value("driver", "/out/a") + value("wedgemethod", "channel") + lines);
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

}  // namespace

std::vector<_hostileScene> hostileScenes(int most) {
    const std::string open = "out/a.parm {\n";
    const std::string manySteps = std::to_string(most);
    const std::string longText(30000, '$');
    const std::string strange = value("trange", "on") + value("file", "a");
    std::string unknowns;
    for (char a = 'a'; a <= 'z'; ++a)
        for (char b = 'a'; b <= 'z'; ++b) unknowns += std::string("$") + a + b;
    const std::string longLine(500000, '/');
    const std::string invalidLine = "set -g V = '" + std::string(580000, '\xff') + "'\n";
    const std::string invalidName(1000, '\xff');
    std::string nested;
    for (int i = 0; i < 150; ++i) nested += "$WEDG";
    for (int i = 0; i < 150; ++i) nested += 'E';
    return {
        {"variables", 1, 1, "", "set -g V@ = 'value@'\n", driver("a", passes("$V7/$V8"))},
        {"variables of one name", 6, 1, "", "set -g A = '$A'\n", manyDrivers(passes("$A"))},
        {"variables in a chain", 1, 250, "", "set -g V@ = '$V$A@'\n", manyDrivers(passes("$V1"))},
        {"long variables", 6, 4, "", "set -g V@ = '" + longText + "'\n", manyDrivers(passes("$V1$V2"))},
        {"many variables and invalid bytes", 1, 0, times(500000, "set -g V = '0'\n"), invalidLine, ""},
        {"variables named by invalid bytes", 1, 0, "", "set -g " + invalidName + " = '@'\n", ""},
        {"variables that double", 6, 1, times(40, "set -g A = '$A$A'\n"), "", manyDrivers(passes("$A"))},
        {"JOB variables", 6, 250, "", "set -g JOB = '@'\n", manyDrivers("")},
        {"takes", 1, 0, "", "take name t@ 0\n", ""},
        {"frame ranges", 1, 0, "", "frange 1 2\n", ""},
        {"headers that open nothing", 1, 0, "", "x.parm\n", ""},
        {"headers without a mark", 1, 0, "", longLine + "stage/.parm {\n}\n", ""},
        {"headers of ruled-out marks", 1, 0, "", times(80000, "/karma") + "stage/renderproper.parm {\n}\n", ""},
        {"headers of half a mark", 1, 0, "", "stage/" + times(290000, "/R") + "/hdprman.parm {\n}\n", ""},
        {"headers of many separators", 1, 0, "", "stage/" + times(580000, "/") + "/hdprman.parm {\n}\n", ""},
        {"short headers of half a mark", 1, 0, "", "obj/" + times(2000, "/R") + ".parm {\n}\n", ""},
        {"headers beyond ASCII", 25, 0, "", "out/\xc3\xa9.parm {\n}\n", ""},
        {"carriage returns", 25, 0, "", "out/\r.parm\r{\r\n}\n", ""},
        {"carriage returns between neighbours", 1, 0, "", times(30, "a\rr\r") + "\n", ""},
        {"empty drivers", 25, 0, "", "out/.parm {\n}\n", ""},
        {"cameras and drivers", 25, 0, "",
         section("obj/cam@", value("res", "1\t2")) + section("out/d@", value("camera", "/obj/cam@")), ""},
        {"cameras of one driver", 25, 0, open, value("camera", "/obj/cam@"), "}\n"},
        {"LOP nodes", 1, 0, "", section("stage/hdprman@", value("picture", "/i/@")), ""},
        {"USD settings", 1, 0, "", section("stage/rendersettings@", value("camera", "/c@")), ""},
        {"one camera for all", 25, 0, "", section("out/d@", value("camera", "/obj/cam")), ""},
        {"parameters of 8 bytes", 25, 0, open, "take\t(a\n", "}\n"},
        {"output names", 1, 1, open, "vm_picture\t($F\n", "}\n"},
        {"long output names", 1, 1, open, value("vm_picture", longText), "}\n"},
        {"very long output names", 1, 1, open, value("vm_picture", longLine), "}\n"},
        {"output names of brackets", 1, 1, open, value("vm_picture", times(900, ")")), "}\n"},
        {"names of doubled separators", 1, 250, "set -g B = '" + times(330, "b//") + "'\n" + manyDrivers(passes("$B")),
         "", ""},
        {"output names put together", 1, 1, open, "RS_outputFileNamePrefix\t(abc\n", "}\n"},
        {"formats put together", 1, 1, open, "RS_outputFileFormat\t(@\n", "}\n"},
        {"one-character lines", 1, 0, "", "x\n", ""},
        {"one-character lines in a section", 25, 0, open, "x\n", "}\n"},
        {"lines beyond ASCII in a section", 25, 0, open, "\xff\n", "}\n"},
        {"pass tokens", 1, 18, "",
         section("out/r@", value("RS_outputFileNamePrefix", "/a") + value("RS_aovCustomPrefix_1", times(7000, "$AOV")) +
                               value("RS_aovSuffix_1", longText)),
         ""},
        {"wedges with one late channel", 1, 0, "", wedge(value("name10000", "a")), ""},
        {"wedges", 1, 0, "", wedge(channels(1, "a", "1")), ""},
        {"wedge of 10000 channels", 1, 301, driver("a", ""), "", wedge(channels(10000, "a", manySteps))},
        {"wedge of long channels", 1, 3, driver("a", ""), "", wedge(channels(std::min(most, 9000), longText, "2"))},
        {"wedge of many variants", 1, 301, driver("a", ""), "", wedge(channels(1, "a", manySteps))},
        {"wedge of huge numbers", 1, 297, driver("a", ""), "",
         wedge(channels(4, "a", std::to_string(most / 8), "2", "-8e307\t8e307"))},
        {"wedge placeholders in each other", 6, 301, driver("a", passes("$WEDGE")), "",
         wedge(value("prefix", nested) + channels(1, "a", manySteps))},
        // What takes long to explain.
        {"drivers without a name", 25, 0, "", section("out/@", "trange\n"), ""},
        {"drivers of many names", 25, 0, "", section("out/@", times(200, value("vm_picture", "chs(@)"))), ""},
        {"drivers that nobody knows", 1, 0, "", section("x@", strange), ""},
        {"the same with long paths", 1, 0, "", section(times(650, "/karma"), strange), ""},
        {"entries of channels", 1, 0, "", "a@.chn {\n}\n", ""},
        {"long expressions", 25, 0, "",
         "out/a@.chn {\nchannel f1 {\nexpr = " + times(650, "$FSTAR") + "\n}\n}\n" + section("out/a@", "f\t\n"), ""},
        {"empty lines", 1, 0, "", "\n", ""},
        {"undefined variables", 6, 128, manyDrivers(passes(unknowns)), "", ""},
        {"variants of undefined variables", 1, 301, driver("a", passes(unknowns)), "",
         wedge(channels(1, "a", manySteps))},
    };
}

std::size_t writeHostileScene(const _hostileScene& scene, std::size_t bytes, const std::string& path) {
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

}  // namespace vxBench
