#include "bench/sceneGenerator.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string_view>

namespace vxBench {

namespace {

using namespace std::string_view_literals;

constexpr std::array parameterNames{"tx"sv,
                                    "shop_materialpath"sv,
                                    "vm_rendervisibility"sv,
                                    "categories"sv,
                                    "scale"sv,
                                    "pivot"sv,
                                    "ogl_lit"sv,
                                    "display"sv,
                                    "group"sv,
                                    "npts"sv,
                                    "vm_shadingquality"sv,
                                    "uvobject"sv,
                                    "reflectmask"sv};
constexpr std::array nodeNames{"box"sv, "sphere"sv, "attribwrangle"sv, "merge"sv, "null"sv, "switch"sv, "xform"sv};

// Counted in 25 real scenes with 2,104 nodes.
constexpr std::uint64_t fewestLines = 8;      ///< of a node's parameters: a quarter of the nodes has fewer
constexpr std::uint64_t mostLines = 70;       ///< ... a tenth has more; 39 on the average
constexpr std::uint64_t definitionLines = 8;  ///< of 68 bytes, in a node's definition
constexpr int dialogLines = 230;              ///< a node, of 36 bytes, in what describes parameters and types
constexpr std::uint64_t nodesPerChannel = 4;
constexpr std::uint64_t nodesPerRead = 6;  ///< one is under a path that readers of drivers take
constexpr std::uint64_t readPerKnown = 3;  ///< one of these has a parameter that any reader knows
constexpr std::uint64_t binaryPiece = 64 * 1024;

/// Collects a scene and writes it piece by piece.
class _scene {
 public:
    _scene(const std::string& path, std::uint64_t seed) : random(seed), file(std::fopen(path.c_str(), "wb")) {
        if (file == nullptr) fail();
    }
    ~_scene() {
        flush();
        std::fclose(file);
    }
    _scene(const _scene&) = delete;
    _scene& operator=(const _scene&) = delete;

    void add(std::string_view part) {
        text += part;
        written += part.size();
        if (text.size() > binaryPiece) flush();
    }
    void addLine(std::string_view line) {
        add(line);
        add("\n");
    }
    std::uint64_t size() const { return written; }
    std::uint64_t below(std::uint64_t limit) { return random() % limit; }

    void addBinary(std::uint64_t bytes) {
        std::array<std::uint64_t, binaryPiece / 8> piece;
        for (std::uint64_t done = 0; done < bytes; done += binaryPiece) {
            for (auto& word : piece) word = random();
            add({reinterpret_cast<const char*>(piece.data()), std::min<std::uint64_t>(binaryPiece, bytes - done)});
        }
    }

 private:
    void flush() {
        if (std::fwrite(text.data(), 1, text.size(), file) != text.size()) fail();
        text.clear();
    }
    [[noreturn]] static void fail() {
        std::perror("cannot write the scene");
        std::exit(EXIT_FAILURE);
    }

    std::mt19937_64 random;
    std::FILE* file;
    std::string text;
    std::uint64_t written = 0;
};

void addParameter(_scene& scene, std::string_view name, std::string_view value) {
    scene.add(name);
    scene.add("\t[ 0\tlocks=0 ]\t(\t");
    scene.add(value);
    scene.addLine("\t)");
}

/// About 36 bytes.
void addOtherParameter(_scene& scene) {
    const std::string_view name = parameterNames[scene.below(parameterNames.size())];
    addParameter(scene, name, std::to_string(static_cast<double>(scene.below(1000)) / 8.0));
}

void beginEntry(_scene& scene, const std::string& name) {
    scene.add("0707070000010000000006660000000000000000010000001415153474100001600000000100");
    scene.add(name);
    scene.add({"\0", 1});
}

void beginSection(_scene& scene, const std::string& path) {
    beginEntry(scene, path + ".parm");
    scene.addLine("{");
    scene.addLine("version 0.8");
}

void addSection(_scene& scene, const std::string& path, std::uint64_t lines) {
    beginSection(scene, path);
    for (std::uint64_t i = 3; i < lines; ++i) addOtherParameter(scene);
    scene.addLine("}");
}

/// A section that is read, and yields nothing.
void addReadSection(_scene& scene, const std::string& path, std::uint64_t lines) {
    beginSection(scene, path);
    for (std::uint64_t i = 4; i < lines; ++i) addOtherParameter(scene);
    if (scene.below(readPerKnown) == 0) addParameter(scene, "constraints_on", "\"off\"");
    scene.addLine("}");
}

void addStart(_scene& scene, int variables) {
    scene.addLine("fps 24");
    scene.addLine("frange 1001 1100");
    scene.addLine("set -g _HIP_SAVEVERSION = '19.5.640'");
    for (int i = 0; i < variables; ++i)
        scene.addLine("set -g SHOT_VARIABLE_" + std::to_string(i) + " = '/projects/show/shot" + std::to_string(i) +
                      "'");
}

/// What an archive holds of a node beside its parameters.
void addOtherEntries(_scene& scene, const std::string& path) {
    beginEntry(scene, path + ".init");
    scene.add("type = attribwrangle\nmatchesdef = 0\n");
    beginEntry(scene, path + ".def");
    for (std::uint64_t i = 0; i < definitionLines; ++i)
        scene.addLine("flags =  lock off model off template off footprint off xray off bypass");
    beginEntry(scene, path + ".userdata");
    scene.add("{\"___Version___\":{\"type\":\"string\",\"value\":\"\"}}");
    if (scene.below(nodesPerChannel) != 0) return;
    beginEntry(scene, path + ".chn");
    for (std::uint64_t i = 0; i < definitionLines; ++i)
        scene.addLine("channel tx { lefttype = extend righttype = extend default = 0 segment { length = 1 } }");
}

void addDialog(_scene& scene) {
    for (int i = 0; i < dialogLines; ++i) scene.addLine("            label   \"Display Options\"  ");
}

void addShortLines(_scene& scene, std::uint64_t bytes) {
    for (int node = 0; scene.size() < bytes; ++node) {
        const std::string_view name = nodeNames[scene.below(nodeNames.size())];
        const bool isRead = scene.below(nodesPerRead) == 0;
        const std::string number = std::to_string(node);
        const std::string path =
            (isRead ? "obj/geo" : "obj/pieces_") + number + "/" + std::string(name) + "_in_" + number;
        const std::uint64_t lines = fewestLines + scene.below(mostLines - fewestLines);
        addOtherEntries(scene, path);
        isRead ? addReadSection(scene, path, lines) : addSection(scene, path, lines);
        addDialog(scene);
    }
}

void addHeavyGeometry(_scene& scene, std::uint64_t bytes) {
    for (int node = 0; scene.size() < bytes; ++node) {
        scene.addBinary(std::uint64_t{64 * 1024} << scene.below(11));
        addSection(scene, "obj/holder" + std::to_string(node), 100);
    }
}

void addSectionHeavy(_scene& scene, std::uint64_t bytes) {
    for (int node = 0; scene.size() < bytes; ++node) addReadSection(scene, "out/driver" + std::to_string(node), 100);
}

void addDrivers(_scene& scene) {
    for (int node = 0; node < 250; ++node) {
        beginSection(scene, "out/mantra" + std::to_string(node));
        addParameter(scene, "trange", "\"normal\"");
        addParameter(scene, "f", "[ f1\t1001 ] \t[ f2\t1100 ] \t1");
        addParameter(scene, "vm_picture", "\"$HIP/render/$SHOT_VARIABLE_7/$OS.$F4.exr\"");
        addParameter(scene, "camera", "/obj/cam" + std::to_string(node % 5));
        for (int i = 0; i < 123; ++i) addOtherParameter(scene);
        scene.addLine("}");
    }
}

}  // namespace

void writeScene(const std::string& path, _sceneShape shape, std::uint64_t bytes, std::uint64_t seed) {
    _scene scene(path, seed);
    addStart(scene, shape == _sceneShape::drivers ? 200 : 30);
    switch (shape) {
        case _sceneShape::shortLines:
            return addShortLines(scene, bytes);
        case _sceneShape::heavyGeometry:
            return addHeavyGeometry(scene, bytes);
        case _sceneShape::sectionHeavy:
            return addSectionHeavy(scene, bytes);
        case _sceneShape::drivers:
            return addDrivers(scene);
        case _sceneShape::oneLine:
            while (scene.size() < bytes) scene.add("one line without an end ");
    }
}

}  // namespace vxBench
