// Scenes of a few nodes.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "evaluate/evaluator.h"
#include "tests/support/archiveText.h"

namespace vxTest {

using _entries = std::vector<_entryText>;

/// A node's entries.
/// @param parameters  `name=value` parted by `|`, values by blanks; a driven one is `[x 1]`
/// @param channels  names and segments: "$F", or "{ ... }" as in a scene
inline _entries nodeText(const std::string& path, const std::string& type, const std::string& parameters,
                         const std::vector<std::pair<std::string, std::string>>& channels = {}) {
    const auto quoted = [](const std::string& text) {
        std::string result;
        for (const char c : text) result += c == '"' || c == '\\' ? std::string("\\") + c : std::string(1, c);
        return '"' + result + '"';
    };
    std::string block = "{\nversion 0.8\n";
    for (std::size_t begin = 0; begin < parameters.size();) {
        const std::size_t end = std::min(parameters.find('|', begin), parameters.size());
        const std::string one = parameters.substr(begin, end - begin);
        const std::size_t sign = one.find('=');
        block += one.substr(0, sign) + "\t[ 0\tlocks=0 ]\t(\t";
        for (const char c : one.substr(sign + 1)) {
            block += c == ' ' ? std::string("\t") : c == '[' ? "[ " : c == ']' ? " ]" : std::string(1, c);
        }
        block += "\t)\n";
        begin = end + 1;
    }
    std::string driven = "{\n";
    for (const auto& [name, segments] : channels) {
        driven += "channel " + name + " {\n lefttype = extend\n righttype = extend\n";
        driven += segments.starts_with("start") || segments.starts_with("segment")
                      ? segments + "\n}\n"
                      : "segment { length = 0 expr = " + quoted(segments) + " }\n}\n";
    }
    _entries entries{{path + ".init", "type = " + type + "\nmatchesdef = 0\n"},
                     {path + ".def", ""},
                     {path + ".parm", block + "}\n"}};
    if (!channels.empty()) entries.push_back({path + ".chn", driven + "}\n"});
    return entries;
}

/// A scene of 24 frames a second, global range 1 to 48, playback range 10 to 20, at frame 5.
class _smallScene {
 public:
    explicit _smallScene(const std::vector<_entries>& parts) : bytes(archive(parts)), source(bytes), scene(source) {}

    vxV::_options options() const {
        vxV::_options made;
        made.source = &source;
        made.sceneFile = "/shots/tt010.hip";
        made.environment = {{"SHOT", "tt010"}};
        return made;
    }

 private:
    static std::string archive(const std::vector<_entries>& parts) {
        _entries all{{".start", "fps 24\ntcur 0.16666666666666666\ntset 0 2\nfrange 10 20\nfplayback -i on -s 2\n"},
                     {".contextoptions",
                      "[{\"name\":\"shot.size\",\"value\":{\"type\":\"float\",\"value\":4.5}},"
                      "{\"name\":\"kind\",\"value\":{\"type\":\"string\",\"value\":\"far\"}},{\"name\":\"broken\"}]"},
                     {".variables",
                      "set -g HIP = '/old'\nset -g HIPNAME = 'before'\nset -g JOB = '/projects/kettle'\n"
                      "set -g PI = '3.1415926535897932384'\nset -l WEDGE = ''\n"}};
        for (const _entries& part : parts) all.insert(all.end(), part.begin(), part.end());
        return openArchive(all);
    }

    std::string bytes;

 public:
    vxN::_memorySource source;
    vxN::_scene scene;
};

/// A number with up to 10 digits, a text in quotes, or a reason with its culprit.
inline std::string shown(const vxV::_valueOutcome& outcome) {
    if (!outcome) return std::string(vxV::wordsOf(outcome.why().reason).code.latin1()) + ": " + outcome.why().culprit;
    if (const auto* const text = std::get_if<std::string>(&*outcome)) return "'" + *text + "'";
    std::string digits(32, '\0');
    digits.resize(
        static_cast<std::size_t>(std::snprintf(digits.data(), digits.size(), "%.10g", std::get<double>(*outcome))));
    return digits;
}

}  // namespace vxTest
