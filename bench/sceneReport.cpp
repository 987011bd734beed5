// How long it takes to open scenes as a tree of nodes and to read all of their parameters and channels, and what is in
// them.
// Usage: sceneReport SCENE...
//        sceneReport write SCENE MEGABYTES    writes a scene that is mostly geometry
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "input/sceneFile.h"
#include "scan/scanBudget.h"
#include "scene/scene.h"
#include "tests/support/archiveText.h"

namespace {

using vxTest::openEntry;

struct _counts {
    double openSeconds = 0;
    double readSeconds = 0;
    qint64 nodes = 0;
    qint64 saved = 0;
    qint64 unknownTypes = 0;
    qint64 parameters = 0;
    qint64 values = 0;
    qint64 driven = 0;
    qint64 channels = 0;
    qint64 segments = 0;
    qint64 withoutParameter = 0;  ///< channels that drive no value of their node
    qint64 inputs = 0;
    qint64 wires = 0;
    qint64 overrides = 0;
    qint64 incomplete = 0;  ///< blocks that end early
};

template <typename Work>
double secondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void countNode(const vxN::_node& node, _counts& counts) {
    counts.saved += node.isSaved();
    counts.unknownTypes += node.isSaved() && node.type().empty();
    const auto parameters = node.parameters();
    const auto channels = node.channels();
    counts.incomplete += !parameters->isWhole() + !channels->isWhole();
    for (const vxN::_parameter& parameter : parameters->all()) {
        ++counts.parameters;
        for (const vxN::_value& value : parameter.values) ++counts.values, counts.driven += value.isDriven();
    }
    for (const vxN::_channel& channel : channels->all()) {
        ++counts.channels;
        counts.segments += static_cast<qint64>(channel.segments.size());
        counts.withoutParameter += parameters->component(channel.name) == nullptr;
    }
    const auto definition = node.definition();
    for (const vxN::_input& input : definition->inputs) {
        counts.inputs += input.isWired();
        if (input.isWired()) counts.wires += bool(node.inputNode(input.index));
    }
}

_counts countScene(const char* path) {
    vxP::beginBudget();
    const vxP::_sceneFile file(QString::fromLocal8Bit(path));
    _counts counts;
    std::optional<vxN::_scene> scene;
    counts.openSeconds = secondsOf([&] { scene.emplace(file); });
    counts.nodes = scene->nodeCount();
    counts.readSeconds = secondsOf([&] {
        for (qint32 i = 0; i < scene->nodeCount(); ++i) countNode(scene->node(i), counts);
    });
    for (const vxN::_take& take : scene->takes().all()) counts.overrides += static_cast<qint64>(take.overrides.size());
    counts.incomplete += scene->archiveEnd() != vxN::_archiveEnd::complete;
    return counts;
}

void print(const char* name, const _counts& counts) {
    std::printf("%9.3f %9.3f %7lld %7lld %6lld %8lld %8lld %7lld %7lld %7lld %5lld %7lld %7lld %5lld %4lld  %s\n",
                counts.openSeconds * 1e3, counts.readSeconds * 1e3, counts.nodes, counts.saved, counts.unknownTypes,
                counts.parameters, counts.values, counts.driven, counts.channels, counts.segments,
                counts.withoutParameter, counts.inputs, counts.wires, counts.overrides, counts.incomplete, name);
}

int write(const char* path, int megabytes) {
    std::ofstream scene(path, std::ios::binary);
    const std::string geometry(std::size_t{1} << 20, 'g');
    for (int i = 0; i < megabytes; ++i) {
        const std::string node = "obj/geo" + std::to_string(i);
        scene << openEntry({node + ".init", "type = geo\nmatchesdef = 0\n"})
              << openEntry({node + ".parm", "{\nversion 0.8\nscale\t[ 0\tlocks=0 ]\t(\t1\t)\n}\n"})
              << openEntry({node + ".data", geometry});
    }
    scene << openEntry({"TRAILER!!!", ""});
    return scene ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int count, char** arguments) {
    if (count == 4 && std::string(arguments[1]) == "write") return write(arguments[2], std::atoi(arguments[3]));
    std::printf(
        "  open ms   read ms   nodes   saved no type   params   values  driven channel segment  none  inputs   "
        "wires takes  cut\n");
    for (int i = 1; i < count; ++i) print(arguments[i], countScene(arguments[i]));
    return EXIT_SUCCESS;
}
