#include "plugin/sceneScan.h"

#include <gtest/gtest.h>

#include <QBuffer>

#include "catalogues/camList.h"
#include "readers/scanState.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::plain;

/// Facts of a scene text read with the given submitter arguments.
_sceneFacts factsOf(const QByteArray& scene, const QStringList& arguments = {}) {
    vxTest::_loader loader(QStringLiteral("/proj/shots/scene.hip"), arguments);
    _sceneFacts facts;
    readSubmitterArguments(*loader.record().settings, facts);
    QBuffer buffer;
    buffer.setData(scene);
    buffer.open(QIODevice::ReadOnly);
    EXPECT_EQ(scanScene(loader.record(), buffer, facts), resultSuccess);
    return facts;
}

class SceneScan : public testing::Test {
 protected:
    void SetUp() override { vxTest::freshScanState(); }
};

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
    {"one_part", "set -g _HIP_SAVEVERSION = '20'", "", 20, "20", "", ""},
    {"no_digits", "set -g _HIP_SAVEVERSION = 'x.y'", "", 0, "x.y", "y", "y"},
    {"empty", "set -g _HIP_SAVEVERSION = ''", "", 10, "", "", ""},
    {"none", "fps 24", "", 10, "", "", ""},
};

class SceneVersion : public testing::TestWithParam<_versionCase> {};

TEST_P(SceneVersion, IsTakenApart) {
    vxTest::freshScanState();
    const _sceneFacts facts = factsOf(GetParam().line, {QString::fromLatin1(GetParam().argument)});
    EXPECT_EQ(facts.majorVersion, GetParam().major);
    EXPECT_EQ(plain(facts.fullVersion), GetParam().full);
    EXPECT_EQ(plain(facts.minorText), GetParam().minor);
    EXPECT_EQ(plain(facts.versionMinorText), GetParam().versionMinor);
    EXPECT_TRUE(hVariables.isEmpty());  // the version is no variable
}

INSTANTIATE_TEST_SUITE_P(Table, SceneVersion, testing::ValuesIn(versionCases), vxTest::rowName);

TEST_F(SceneScan, TakesTheSceneRangeFromTheCommand) {
    struct _case {
        const char* line;
        int start, end;
    };
    for (const _case& c : {_case{"frange 1001 1100", 1001, 1100},
                           {"frange 5", 1, 100},
                           {"frange a b", 0, 0},
                           {"frange\t[ 0\tlocks=0 ]\t(\t1\t1\t)", 1, 100},
                           {"frange -10 99999999999", -10, 0}}) {
        vxTest::freshScanState();
        factsOf(c.line);
        EXPECT_EQ(GLseqStart, c.start) << c.line;
        EXPECT_EQ(GLseqEnd, c.end) << c.line;
    }
}

TEST_F(SceneScan, KeepsVariablesInFileOrder) {
    factsOf(
        "set -g JOB = '/proj/shot'\n"
        "  set -g X = 1  \n"
        "set -g JOB = 'two words = three'\n"
        "SET -G LOW = ' a '\n");
    ASSERT_EQ(hVariables.size(), 4);
    const char* const expected[][2] = {{"JOB", "/proj/shot"}, {"X", ""}, {"JOB", "two words = three"}, {"LOW", "a"}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(plain(hVariables.at(i).name), expected[i][0]);
        EXPECT_EQ(plain(hVariables.at(i).value), expected[i][1]);
    }
}

TEST_F(SceneScan, ImportsTheEnvironmentsHoudiniVariables) {
    qputenv("HIPTEST_A", "value");
    qputenv("hiptest_b", QByteArray(200, 'b'));
    qputenv("HIPTEST_C", QByteArray(201, 'c'));
    qputenv("NOT_HIP", "value");
    importEnvironment();
    QStringList names;
    for (const _namevalue& variable : hVariables) names.append(variable.name);
    EXPECT_TRUE(names.contains(QLatin1String("HIPTEST_A")));
    EXPECT_TRUE(names.contains(QLatin1String("hiptest_b")));
    EXPECT_FALSE(names.contains(QLatin1String("HIPTEST_C")));
    EXPECT_FALSE(names.contains(QLatin1String("NOT_HIP")));
    EXPECT_FALSE(names.contains(QLatin1String("HOME")));
    for (const char* name : {"HIPTEST_A", "hiptest_b", "HIPTEST_C", "NOT_HIP"}) qunsetenv(name);
}

TEST_F(SceneScan, ReadsTakeNamesAsOftenAsTheyStand) {
    const _sceneFacts facts = factsOf("take name Main kids 1\ntake name   wide kids 0\ntake name Main kids 0\n");
    EXPECT_EQ(facts.takeNames, (QStringList{QStringLiteral("Main"), QStringLiteral("wide"), QStringLiteral("Main")}));
}

TEST_F(SceneScan, GoesOnBehindEverySection) {
    vxTest::_loader loader;
    const QByteArray driver = vxTest::section("out/mantra1", {{"vm_picture", "/img/a.exr"}});
    EXPECT_EQ(loader.scan(vxTest::section("obj/cam1", {{"res", "1920\t1080"}}) +
                          vxTest::section("out/wedge1", {{"driver", "/out/mantra1"}}) +
                          vxTest::section("stage/rendersettings1", {{"picture", "/img/no.exr"}}) +
                          vxTest::section("stage/hdprman1", {{"picture", "/img/no.exr"}}) + driver + "junk\n" + driver),
              resultSuccess);
    EXPECT_EQ(loader.count(), 2);
    EXPECT_EQ(camList.entries().size(), 1);
}

TEST_F(SceneScan, TakesTheSceneFolderWithItsSlash) {
    for (const auto& [name, folder] : {std::pair{u"/proj/a.hip", "/proj/"}, {u"a.hip", "a.hip"}, {u"/a.hip", "/"}}) {
        importSceneFolder(_vxString<500>(QStringView(name)));
        EXPECT_EQ(plain(DatabaseDir), folder);
    }
}

}  // namespace

}  // namespace vxP
