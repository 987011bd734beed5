#include "plugin/sceneScan.h"

#include <gtest/gtest.h>

#include "scan/scanState.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::plain;

struct _versionCase {
    const char *what, *line, *argument;
    int major;
    const char *full, *minor, *versionMinor;
};

constexpr _versionCase versionCases[] = {
    {"three_parts", "set -g _HIP_SAVEVERSION = '19.5.640'", "", 19, "19.5.640", "5640", "5.640"},
    {"without_build", "set -g _HIP_SAVEVERSION = '19.5.640'", "-HOUDINIBUILDVERSION", 19, "19.5.640", "5", "5"},
    {"four_parts", "set -g _HIP_SAVEVERSION = '19.5.640.2'", "", 19, "19.5.640.2", "5640", "5.640.2"},
    {"two_parts", "set -g _HIP_SAVEVERSION = '20.0'", "", 20, "20.0", "0", "0"},
    {"empty", "set -g _HIP_SAVEVERSION = ''", "", 10, "", "", ""},
    {"none", "fps 24", "", 10, "", "", ""},
};

class SceneVersion : public testing::TestWithParam<_versionCase> {};

TEST_P(SceneVersion, IsTakenApart) {
    vxTest::freshScanState();
    vxTest::_loader loader({}, {vxTest::wide(GetParam().argument)});
    loader.scan(GetParam().line);
    const _sceneFacts& facts = loader.facts();
    EXPECT_EQ(facts.majorVersion, GetParam().major);
    EXPECT_EQ(plain(facts.fullVersion), GetParam().full);
    EXPECT_EQ(plain(facts.minorText), GetParam().minor);
    EXPECT_EQ(plain(facts.versionMinorText), GetParam().versionMinor);
    EXPECT_TRUE(hVariables.isEmpty());  // the version is no variable
}

INSTANTIATE_TEST_SUITE_P(Table, SceneVersion, testing::ValuesIn(versionCases), vxTest::rowName);

TEST(SceneScan, TakesTheSceneRangeFromTheCommand) {
    const std::tuple<const char*, int, int> cases[] = {{"frange 1001 1100", 1001, 1100},
                                                       {"frange 5", 1, 100},
                                                       {"frange a b", 0, 0},
                                                       {"frange\t[ 0\tlocks=0 ]\t(\t1\t1\t)", 1, 100},  // a parameter
                                                       {"frange -10 99999999999", -10, 0}};
    for (const auto& [line, start, end] : cases) {
        vxTest::freshScanState();
        vxTest::_loader().scan(line);
        EXPECT_EQ(GLseqStart, start) << line;
        EXPECT_EQ(GLseqEnd, end) << line;
    }
}

/// "name=value" of every variable, in order.
std::string variables() {
    QStringList texts;
    for (const _namevalue& variable : hVariables.toList()) texts.append(variable.name + u'=' + variable.value);
    return plain(texts.join(u'|'));
}

TEST(SceneScan, KeepsVariablesInFileOrder) {
    vxTest::freshScanState();
    vxTest::_loader().scan(
        "set -g JOB = '/proj/shot'\n"
        "  set -g X = 1  \n"
        "set -g JOB = 'two words = three'\n"
        "SET -G LOW = ' a '\n");
    EXPECT_EQ(variables(), "JOB=/proj/shot|X=|JOB=two words = three|LOW=a");
}

TEST(SceneScan, ImportsTheEnvironmentsHoudiniVariables) {
    vxTest::freshScanState();
    const std::tuple<const char*, int, bool> cases[] = {
        {"HIPTEST_A", 1, true}, {"hiptest_b", 200, true}, {"HIPTEST_C", 201, false}, {"NOT_HIPTEST_D", 1, false}};
    for (const auto& [name, length, taken] : cases) qputenv(name, QByteArray(length, 'v'));
    importEnvironment();
    for (const auto& [name, length, taken] : cases) {
        const std::string variable = name + ("=" + std::string(static_cast<std::size_t>(length), 'v'));
        EXPECT_EQ(variables().find(variable) != std::string::npos, taken) << name;
        qunsetenv(name);
    }
}

}  // namespace

}  // namespace vxP
