#include "scene/takes.h"

#include <gtest/gtest.h>

namespace vxN {

namespace {

std::string counted(const std::string& text) {
    std::string record(3, '\0');
    return record + static_cast<char>(text.size()) + text;
}

std::string override(const std::string& place, const std::string& value) {
    return counted("d " + place + '\n' + counted(value));
}

std::string take(const std::string& name, int kids) {
    return "take name " + name + " kids " + std::to_string(kids) + '\n';
}

const std::string end = counted("e\n");
const std::string names =
    counted("s 0 /out/a\n") + counted("s 1 picture\n") + counted("s 2 .flags.d\n") + counted("s 3 /out/b c\n");
const std::string list = "HoudiniTakeFile 1.0\n" + take("Main", 2) + names + override("0 1", "{ main }") + end +
                         take("a take", 1) + override("0 1", "{ a }") + end + take("under", 0) +
                         override("0 2", "off") + end + take("second", 0) + override("3 1", "{ s }") + end;

std::string valueIn(const _takes& takes, qint32 take, std::string_view node, std::string_view name) {
    const _takeOverride* const found = takes.overrideIn(take, node, name);
    return found == nullptr ? "none" : std::string(found->value);
}

TEST(Takes, GiveWhatStandsForAParameter) {
    const _takes takes(list);
    ASSERT_EQ(takes.all().size(), 4U);
    EXPECT_TRUE(takes.isWhole());
    EXPECT_EQ(takes.find("a take"), 1);
    EXPECT_EQ(takes.find("third"), -1);
    const std::vector<qint32> parents{-1, 0, 1, 0};
    for (std::size_t i = 0; i < parents.size(); ++i) EXPECT_EQ(takes.all()[i].parent, parents[i]) << i;

    EXPECT_EQ(valueIn(takes, 0, "/out/a", "picture"), "{ main }");
    EXPECT_EQ(valueIn(takes, 1, "/out/a", "picture"), "{ a }");
    EXPECT_EQ(valueIn(takes, 2, "/out/a", "picture"), "{ a }");
    EXPECT_EQ(valueIn(takes, 2, "/out/a", ".flags.d"), "off");
    EXPECT_EQ(valueIn(takes, 1, "/out/a", ".flags.d"), "none");
    EXPECT_EQ(valueIn(takes, 3, "/out/b c", "picture"), "{ s }");
    EXPECT_EQ(valueIn(takes, 3, "/out/a", "picture"), "{ main }");
    EXPECT_EQ(valueIn(takes, -1, "/out/a", "picture"), "none");
}

TEST(Takes, KeepWhatStandsBeforeTheyAreCut) {
    const std::size_t cut = list.find("{ a }") + 3;
    const _takes takes(list.substr(0, cut));
    EXPECT_FALSE(takes.isWhole());
    EXPECT_EQ(takes.all().size(), 2U);
    EXPECT_EQ(valueIn(takes, 1, "/out/a", "picture"), "{ main }");
    EXPECT_FALSE(_takes("something else\n" + list).isWhole());
    EXPECT_TRUE(_takes("").isWhole());
}

}  // namespace

}  // namespace vxN
