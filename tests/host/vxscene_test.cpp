// The program as a whole: exit status, streams, formats, and scenes that take their process down.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <filesystem>

#include "tests/host/runHost.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* everyFieldOfAJob = R"({
    "structureIDs": [1033, 1, 0, 0, 0, 0, 0, 0, 0, 0], "jobKind": 2, "sceneOS": 3, "appVersionMajor": 19,
    "app": "Houdini", "appRenderer": "renderer", "appType": "3D", "appRendererVersion": "7.1",
    "appVersionMinor": "5.640", "camera": "camera", "layer": "out/mantra1", "channel": "channel",
    "sceneState": "state", "colorSpace": "ACES", "requiredLicenses": "licence", "imageWidth": 65535,
    "imageHeight": 2, "imageSingleOutputFile": true, "imageFormatOverride": "exr", "imageMulti": -5,
    "imageStereoL": "_left", "imageStereoM": "_middle", "imageStereoR": "_right", "shotgunID": "id", "pnl": 120,
    "imagePadding": 7, "preID": 1, "waitForPreIDs": [9, 200], "jobID": "18446744073709551615",
    "sceneName": "/scene.<FN4>.ifd", "sceneDatabaseDir": "/db", "imageDir": "<Database>/img/",
    "imageFileName": "name.", "imageExtension": ".exr",
    "channels": [{"slot": 3, "name": "/img/depth.", "extension": ".tif"}], "seqStart": -1.5, "seqEnd": 2,
    "seqFrameSet": "1,5,7", "seqStep": 3, "customData": [{"name": "HoudiniJob", "value": "/job"}]})";

QJsonArray parsedList(const _hostRun& run) {
    return QJsonDocument::fromJson(run.out).array();
}

QJsonObject onlyScene(const char* scene) {
    return parsedList(runJobs({"--format", "json", scene}))[0].toObject();
}

QString textOf(const QJsonObject& object, const char* name) {
    return object[QLatin1String{name}].toString();
}

/// Every failure has its line, its code and its exit status; none stops the scenes behind it.
struct _failure {
    const char* scene;
    int code;
    const char* what;
    int jobs;
};
constexpr _failure failures[] = {
    {"cannotOpen", 3, "cannot be opened for reading", 0},
    {"noUsableOutput", 25, "without usable output names", 0},
    {"jobThenNoMore", 7, "could not be added", 1},
    {"strangeCode", 42, "code of its own", 0},
    {"segmentationFault", -2, "crashed (signal 11)", 0},
    {"aborts", -2, "crashed (signal 6)", 0},
    {"throws", -2, "crashed (signal 6)", 0},
    {"exits", -3, "without a result (exit status 0)", 0},
};

class FailedScene : public testing::TestWithParam<_failure> {};

TEST_P(FailedScene, IsToldAndTheOthersArePrinted) {
    const auto scene = std::string{"/"} + GetParam().scene + ".hip";
    const auto run = runJobs({"--format", "json", "/exportPair.hip", scene, "/noJobs.hip"});
    EXPECT_EQ(run.status, 1);
    const auto results = parsedList(run);
    ASSERT_EQ(results.size(), 3);
    const auto failed = results[1].toObject();
    EXPECT_EQ(textOf(failed, "scene"), QString::fromStdString(scene));
    EXPECT_EQ(failed[QLatin1String{"code"}].toInt(), GetParam().code);
    EXPECT_EQ(failed[QLatin1String{"jobs"}].toArray().size(), GetParam().jobs);
    EXPECT_EQ(results[0].toObject()[QLatin1String{"jobs"}].toArray().size(), 2);
    EXPECT_EQ(results[2].toObject()[QLatin1String{"code"}].toInt(), 1);

    const auto error = runJobs({"/exportPair.hip", scene, "/noJobs.hip"}).error;
    const auto line = error.mid(error.indexOf("vxscene: "));  // a sanitizer or the C++ library may say more before
    EXPECT_TRUE(line.contains(GetParam().what)) << error.constData();
    EXPECT_TRUE(line.contains("(code " + QByteArray::number(GetParam().code) + ")\n")) << error.constData();
    EXPECT_EQ(line.count('\n'), 1) << error.constData();
}

INSTANTIATE_TEST_SUITE_P(Table, FailedScene, testing::ValuesIn(failures),
                         [](const auto& test) { return test.param.scene; });

struct _usage {
    const char* what;
    std::vector<std::string> arguments;
    int status;
    const char* error;
};

class CommandLine : public testing::TestWithParam<_usage> {};

TEST_P(CommandLine, FaultIsOneLineAndAStatus) {
    const auto run = runHost(GetParam().arguments);
    EXPECT_EQ(run.status, GetParam().status);
    EXPECT_EQ(run.error.count('\n'), 1) << run.error.constData();
    EXPECT_TRUE(run.error.contains(GetParam().error)) << run.error.constData();
    EXPECT_EQ(run.out, QByteArray{});
}

INSTANTIATE_TEST_SUITE_P(
    Table, CommandLine,
    testing::Values(_usage{"no_command", {}, 2, "subcommand"}, _usage{"no_scene", {"jobs"}, 2, "scenes"},
                    _usage{"only_submitter_arguments", {"jobs", "--", "a.hip"}, 2, "scenes"},
                    _usage{"unknown_option", {"jobs", "--\x1b[1mfast\nx", "a.hip"}, 2, "fast"},
                    _usage{"unknown_format", {"jobs", "--format", "xml", "a.hip"}, 2, "xml"},
                    _usage{"no_such_plugin", {"jobs", "--plugin", "/no/such.so", "a", "b"}, 3, "/no/such.so"},
                    _usage{"no_plugin_for_json", {"jobs", "--plugin", "/no/such.so", "--format=json", "a"}, 3, "such"},
                    _usage{"no_entry_points", {"info", "--plugin", VX_NO_PLUGIN}, 3, "no entry point"},
                    _usage{"not_utf8", {"jobs", "--plugin", VX_FAKE_PLUGIN, "/a\xff.hip"}, 1, "not valid UTF-8"},
                    _usage{"empty_path", {"jobs", "--plugin", VX_FAKE_PLUGIN, ""}, 1, "absolute"},
                    _usage{"path_too_long",
                           {"jobs", "--plugin", VX_FAKE_PLUGIN, "/" + std::string(497, 'a') + ".hip"},
                           1,
                           "502 characters"}),
    [](const auto& test) { return test.param.what; });

TEST(VxScene, HelpAndVersionSucceed) {
    for (const auto* option : {"--help", "--version"}) {
        const auto run = runHost({option});
        EXPECT_EQ(run.status, 0);
        EXPECT_TRUE(run.out.contains("vxscene")) << option;
        EXPECT_EQ(run.error, QByteArray{});
    }
}

TEST(VxScene, JobObjectHoldsEveryFieldUntouched) {
    const auto result = onlyScene("/everyField.hip");
    EXPECT_EQ(textOf(result, "message"), QLatin1String{" \"AllowLocalSceneCopy=0~0\""});
    const auto job = result[QLatin1String{"jobs"}].toArray()[0].toObject();
    const auto expected = QJsonDocument::fromJson(everyFieldOfAJob).object();
    EXPECT_EQ(job.keys(), expected.keys());
    const auto names = expected.keys();
    for (const auto& name : names) EXPECT_EQ(job[name], expected[name]) << name.toStdString();
}

TEST(VxScene, JsonLinesAreOneObjectEach) {
    const auto run = runJobs({"--format", "jsonl", "/exportPair.hip", "/hostileTexts.hip", "/noJobs.hip"});
    EXPECT_EQ(run.status, 0);
    const auto lines = run.out.trimmed().split('\n');
    ASSERT_EQ(lines.size(), 3);
    for (const auto& line : lines) EXPECT_TRUE(QJsonDocument::fromJson(line).isObject()) << line.constData();
}

TEST(VxScene, EverySceneMeetsFreshStateItsAbsolutePathAndTheArguments) {
    const auto run = runJobs({"--format=json", "./tellLoad.hip", "tellLoad.hip", "--", "-x", "--format", "--"});
    const auto results = parsedList(run);
    ASSERT_EQ(results.size(), 2);
    const auto here = QString::fromStdString((fs::current_path() / "").native());
    for (const auto& result : results) {
        const auto told = textOf(result.toObject(), "message").split(QLatin1Char('|'));
        ASSERT_EQ(told.size(), 5);
        EXPECT_EQ(told[0], QLatin1String{"1"});
        EXPECT_EQ(told[1], textOf(result.toObject(), "scene"));
        EXPECT_TRUE(told[1].startsWith(here));
        EXPECT_EQ(told.mid(2), QStringList({QStringLiteral("-x"), QStringLiteral("--format"), QStringLiteral("--")}));
    }
}

TEST(VxScene, OutputOfThePluginStaysOutOfTheResult) {
    const auto run = runJobs({"--format", "json", "/noJobs.hip", "/prints.hip"});
    EXPECT_EQ(parsedList(run).size(), 2);
    EXPECT_EQ(run.error, QByteArray{"printed by the plug-in\n"});
}

TEST(VxScene, HostileTextsSurviveInJson) {
    const auto job = onlyScene("/hostileTexts.hip")[QLatin1String{"jobs"}].toArray()[0].toObject();
    EXPECT_TRUE(textOf(job, "layer").contains(QStringView{u"\x1b[31mred\x9b"}));
    constexpr char16_t halves[] = {u'c', 0xD800, u'a', 0xDC00, u'm', 0xDBFF};
    EXPECT_EQ(textOf(job, "camera"), QStringView(halves, 6));
    EXPECT_TRUE(job[QLatin1String{"seqEnd"}].isNull());
}

TEST(VxScene, HostileTextsCannotSteerATerminal) {
    const auto out = QString::fromUtf8(runJobs({"/hostileTexts.hip"}, {.environment = {"LC_ALL=C"}}).out);
    EXPECT_EQ(out.count(QLatin1Char('\n')), 3);
    for (const QChar character : out) {
        const bool isFormat = character.category() == QChar::Other_Format;
        EXPECT_TRUE(character == QLatin1Char('\n') || (character.isPrint() && !isFormat)) << int{character.unicode()};
    }
    EXPECT_TRUE(out.contains(QStringView{u"夜景夜景\n"}));
    EXPECT_TRUE(out.contains(QLatin1String{"take      size"}));  // wide characters count in every locale
}

TEST(VxScene, TableNamesSceneJobsAndWaiting) {
    const auto run = runJobs({"/projects/exportPair.hip", "/noJobs.hip"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(
        run.out.toStdString(),
        "/projects/exportPair.hip: Houdini 19.5.640, 2 jobs\n"
        "#  driver       renderer           frames        output                camera     take   size       waits "
        "for\n"
        "1  out/mantra1  Houdini/createIFD  1001-1100 x2  /ifd/shot.####.ifd\n"
        "2  out/mantra1  Mantra_StdA        1001-1100     /img/beauty.####.exr  /obj/cam1  night  1920x1080  1\n"
        "\n"
        "/noJobs.hip: no jobs\n");
}

struct _terminalCase {
    const char* what;
    std::vector<std::string> environment;
    bool colour;
};

class Terminal : public testing::TestWithParam<_terminalCase> {};

TEST_P(Terminal, LinesFitItsWidth) {
    constexpr int width = 70;
    const auto run = runJobs({"/longTexts.hip"}, {.terminalWidth = width, .environment = GetParam().environment});
    EXPECT_EQ(run.out.contains('\x1b'), GetParam().colour);
    auto plain = run.out;
    for (const auto* sequence : {"\x1b[1;36m", "\x1b[1m", "\x1b[0m"}) plain.replace(sequence, "");
    const auto lines = plain.split('\n');
    ASSERT_EQ(lines.size(), 4);
    for (const auto& line : lines) EXPECT_LE(line.size(), width) << line.constData();
    EXPECT_TRUE(lines[2].contains("out/mantra1")) << plain.constData();
    EXPECT_TRUE(lines[2].contains("/beauty.####.exr")) << plain.constData();
}

INSTANTIATE_TEST_SUITE_P(Table, Terminal,
                         testing::Values(_terminalCase{"colour", {"TERM=xterm", "NO_COLOR="}, true},
                                         _terminalCase{"NO_COLOR", {"TERM=xterm", "NO_COLOR=1"}, false},
                                         _terminalCase{"dumb", {"TERM=dumb", "NO_COLOR="}, false}),
                         [](const auto& test) { return test.param.what; });

TEST(VxScene, InfoIsPrintedAsLinesAndAsJson) {
    const auto lines = runHost({"info", "--plugin", VX_FAKE_PLUGIN});
    EXPECT_EQ(lines.status, 0);
    EXPECT_TRUE(lines.out.contains("appName: Fake?[1m\n")) << lines.out.constData();
    EXPECT_TRUE(lines.out.contains("structureVersion: 45061\n")) << lines.out.constData();
    const auto json = runHost({"info", "--plugin", VX_FAKE_PLUGIN, "--format", "json"});
    EXPECT_EQ(textOf(QJsonDocument::fromJson(json.out).object(), "fileFilter"), QLatin1String{"*.fake;"});
}

TEST(VxScene, PluginBesideTheProgramIsFound) {
    const auto folder = fs::temp_directory_path() / ("夜 vxscene_test" + std::to_string(getpid()));
    fs::create_directory(folder);
    fs::copy_file(VX_SCENE_PROGRAM, folder / "vxscene");
    fs::copy_file(VX_FAKE_PLUGIN, folder / "lx_vxSceneParserHoudini64.so");
    const auto run = runHost({"jobs", "/noJobs.hip"}, {.program = (folder / "vxscene").native(),
                                                       .environment = {"LD_LIBRARY_PATH=" VX_LIBRARY_FOLDER}});
    fs::remove_all(folder);
    EXPECT_EQ(run.out, QByteArray{"/noJobs.hip: no jobs\n"}) << run.error.constData();
}

TEST(VxScene, FullDiskIsAFailure) {
    const auto command =
        std::string{VX_SCENE_PROGRAM " jobs --plugin " VX_FAKE_PLUGIN " /exportPair.hip >/dev/full 2>/dev/null"};
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 1);
}

}  // namespace
