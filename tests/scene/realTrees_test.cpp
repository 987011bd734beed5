// Real scenes, where they are at hand: what a plain search for headers finds is in the tree.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "scan/scanBudget.h"
#include "scene/scene.h"

namespace vxN {

namespace {

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

int countOf(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

void expectWhole(const _node& node) {
    const auto parameters = node.parameters();
    const auto channels = node.channels();
    EXPECT_TRUE(parameters->isWhole() && channels->isWhole()) << node.path();
    for (const _channel& channel : channels->all())
        EXPECT_NE(parameters->component(channel.name), nullptr) << node.path() << ' ' << channel.name;
}

TEST(RealTrees, HoldEveryNodeThatTheirBytesName) {
    const std::filesystem::path folder(VX_REAL_SCENES);
    if (!std::filesystem::exists(folder)) GTEST_SKIP() << "no real scenes at " << VX_REAL_SCENES;
    int scenes = 0;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        if (!file.path().extension().string().starts_with(".hip")) continue;
        SCOPED_TRACE(file.path().filename().string());
        vxP::beginBudget();
        const std::string bytes = bytesOf(file.path());
        const _memorySource source(bytes);
        const _scene scene(source);
        int saved = 0;
        for (qint32 i = 0; i < scene.nodeCount(); ++i) {
            saved += scene.node(i).isSaved();
            expectWhole(scene.node(i));
        }
        EXPECT_EQ(saved, countOf(bytes, std::string(".parm\0", 6)));
        EXPECT_EQ(scene.archiveEnd(), _archiveEnd::complete);
        EXPECT_TRUE(scene.timeline().fps && scene.variable("HIP") && scene.takes().isWhole());
        ++scenes;
    }
    EXPECT_GT(scenes, 0);
}

}  // namespace

}  // namespace vxN
