#include "plugin/sceneScan.h"

#include <gtest/gtest.h>

#include "scan/scanState.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::plain;

TEST(SceneVersion, IsTakenApart) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"19.5.640", "", "19 19.5.640 5640 5.640"},
        {"19.5.640", "-HOUDINIBUILDVERSION", "19 19.5.640 5 5"},
        {"19.5.640.2", "", "19 19.5.640.2 5640 5.640.2"},
        {"20.0", "", "20 20.0 0 0"},
        {"", "", "10   "}};
    for (const auto& [version, argument, taken] : cases) {
        vxTest::freshScanState();
        vxTest::_loader loader({}, {vxTest::wide(argument)});
        loader.scan(QByteArray("set -g _HIP_SAVEVERSION = '") + version + "'");
        const _sceneFacts& facts = loader.facts();
        EXPECT_EQ(std::to_string(facts.majorVersion) + ' ' + plain(facts.fullVersion) + ' ' + plain(facts.minorText) +
                      ' ' + plain(facts.versionMinorText),
                  taken);
        EXPECT_TRUE(hVariables.isEmpty());  // the version is no variable
    }
}

TEST(SceneScan, TakesTheSceneRangeFromTheCommand) {
    const std::tuple<const char*, int, int> cases[] = {{"FRANGE\t1001 1100", 1, 100},
                                                       {"FRANGE 1001 1100", 1001, 1100},
                                                       {"frange 5", 1, 100},
                                                       {"frange a b", 0, 0},
                                                       {"frange\t[ 0\tlocks=0 ]\t(\t1\t1\t)", 1, 100},  // a parameter
                                                       {"frange -10 99999999999", -10, 0}};
    for (const auto& [line, start, end] : cases) {
        vxTest::scanned(line);
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

TEST(SceneScan, KeepsVariablesInFileOrderUntilALongerNameGoesBeforeItsBeginnings) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    loader.scan(
        "set -g JOB = '/proj/shot'\n"
        "  set -g X = 1  \n"
        "set -g JOB = 'two words = three'\n"
        "SET -G LOWS = ' a '\n");
    EXPECT_EQ(variables(), "JOB=/proj/shot|X=|JOB=two words = three|LOWS=a");
    loader.load({});
    EXPECT_EQ(variables(), "LOWS=a|JOB=/proj/shot|JOB=two words = three|X=");
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
