// The program as a whole: exit status, streams, formats, and scenes that take their process down.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <filesystem>
#include <fstream>

#include "tests/host/hostProgram.h"
#include "tests/support/archiveText.h"
#include "tests/testText.h"

namespace {

namespace fs = std::filesystem;
using namespace vxTest;

_hostRun runJobs(const std::vector<std::string>& arguments) {
    return runCommand("jobs", arguments);
}

QJsonArray parsedList(const _hostRun& host) {
    return QJsonDocument::fromJson(host.out).array();
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
    {"cannotOpen", 3, "cannot be opened for reading: No such file or directory", 0},
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
    const auto host = runJobs({"--format", "json", "/exportPair.hip", scene, "/noJobs.hip"});
    EXPECT_EQ(host.status, 1);
    const auto results = parsedList(host);
    ASSERT_EQ(results.size(), 3);
    const auto failed = results[1].toObject();
    EXPECT_EQ(textOf(failed, "scene"), QString::fromStdString(scene));
    EXPECT_EQ(failed[QLatin1String{"code"}].toInt(), GetParam().code);
    EXPECT_EQ(failed[QLatin1String{"jobs"}].toArray().size(), GetParam().jobs);
    EXPECT_EQ(results[0].toObject()[QLatin1String{"jobs"}].toArray().size(), 2);
    EXPECT_EQ(results[2].toObject()[QLatin1String{"code"}].toInt(), 1);

    const auto line = host.error.mid(host.error.indexOf("vxscene: "));  // a sanitizer may say more before
    EXPECT_TRUE(line.contains(GetParam().what)) << host.error.constData();
    EXPECT_TRUE(line.contains("(code " + QByteArray::number(GetParam().code) + ")\n")) << host.error.constData();
    EXPECT_EQ(line.count('\n'), 1) << host.error.constData();
}

INSTANTIATE_TEST_SUITE_P(Table, FailedScene, testing::ValuesIn(failures),
                         [](const auto& test) { return test.param.scene; });

/// A line that succeeds has its text in the output; a fault is one line of the error stream and a status.
struct _usage {
    const char* what;
    std::vector<std::string> arguments;
    int status;
    const char* text;
};
const _usage usages[] = {
    {"help", {"--help"}, 0, "Usage: vxscene"},
    {"version", {"--version"}, 0, "\nrecord layout "},
    {"verbose", {"--verbose", "--version"}, 0, "answers, for *.hip;"},
    {"info", {"info", "--plugin", VX_FAKE_PLUGIN}, 0, "appName: Fake?[1m\n"},
    {"info_json", {"info", "--plugin", VX_FAKE_PLUGIN, "--format", "json"}, 0, R"("fileFilter": "*.fake;")"},
    {"empty_list", {"jobs", "--plugin", VX_FAKE_PLUGIN, "--format", "json", "-"}, 0, "[]\n"},
    {"no_command", {}, 2, "no command is given (see vxscene --help)"},
    {"no_such_part", {"jobs", "--shard", "4/3", "a"}, 2, "4/3 is no part like 3/16"},
    {"names_without_missing", {"files", "--names-only", "a"}, 2, "go with --missing"},
    {"no_scene", {"jobs"}, 2, "SCENE is required (see vxscene jobs --help)"},
    {"no_time", {"jobs", "--timeout", "nan", "a"}, 2, "--timeout"},
    {"no_child", {"jobs", "--parallel", "0", "a"}, 2, "--parallel"},
    {"late",
     {"jobs", "--plugin", VX_FAKE_PLUGIN, "--timeout", "0.25", "/hangs.fake"},
     1,
     "time limit of 0.25 s (code -5)"},
    {"late_vars", {"vars", "--plugin", VX_FAKE_PLUGIN, "-t", "0.25", "/hangs.x"}, 1, "limit of 0.25 s (code -5)"},
    {"device_as_plugin", {"info", "--plugin", "/dev/zero"}, 3, "/dev/zero: a device, not a regular file"},
    {"folder_without_scenes",
     {"jobs", "--plugin", VX_FAKE_PLUGIN, "/proc/self/task/"},
     1,
     "/proc/self/task/: no scenes (*.fake;)"},
    {"unknown_option", {"jobs", "--\x1b[1mfast\nx", "a.hip"}, 2, "fast"},
    {"mistyped_option", {"diff", "--frmat", "a"}, 2, "--frmat; did you mean --format? (see vxscene diff --help)"},
    {"mistyped_command", {"jbos", "a.hip"}, 2, "no command jbos; did you mean jobs? (see vxscene --help)"},
    {"unlike_all", {"turntable", "a.hip"}, 2, "no command turntable (see"},
    {"short_options", {"jobs", "--plugin", VX_FAKE_PLUGIN, "-rj2", "-t9", "-fjsonl", "/noJobs.x"}, 0, "\"jobs\":[]"},
    {"choice_by_number", {"jobs", "--format", "1", "a.hip"}, 2, "--format: 1 is not one of table|json|jsonl"},
    {"no_such_plugin", {"jobs", "--plugin", "/no/such.so", "a", "b"}, 3, "/no/such.so"},
    {"no_entry_points", {"info", "--plugin", VX_NO_PLUGIN}, 3, "no entry point"},
    {"empty_path", {"jobs", "--plugin", VX_FAKE_PLUGIN, ""}, 1, "absolute"},
    {"diff_one_scene", {"diff", "a.hip"}, 2, "NEW"},
    {"diff_no_such_plugin", {"diff", "--plugin", "/no/such.so", "a", "b"}, 3, "/no/such.so"},
    {"no_such_job",
     {"vars", "--plugin", VX_FAKE_PLUGIN, "/exportPair.hip", "--job", "3"},
     2,
     "no job 3: the scene has 2 jobs"},
    {"no_such_column",
     {"jobs", "--columns", "take,tkae", "/noJobs.hip"},
     2,
     "\"tkae\" is no column; there are number, "},
    {"no_such_reader", {"explain", "--reader", "lops", "/noJobs.hip"}, 2, "usdRenderSettings|lop"},
    {"job_0", {"vars", "--plugin", VX_FAKE_PLUGIN, "/exportPair.hip", "--job", "0"}, 2, "--job"},
    {"values", {"values", "--driven", VX_EXAMPLE_SCENE, "out/arnold*"}, 0, "  f1 = 1001  <- $FSTART\n"},
    {"values_at_a_frame",
     {"values", "--driven", VX_EXAMPLE_SCENE, "kettle", "--frame", "1051"},
     0,
     "  ry = 180  <- ($FF - 1001) / 100 * 360  (stored: 0)\n"},
    {"values_of_drivers", {"values", "--drivers", VX_EXAMPLE_SCENE}, 0, "/out/kettle_alembic  alembic\n"},
    {"value_lines",
     {"values", "--format", "jsonl", VX_EXAMPLE_SCENE, "/out/arnold_beauty"},
     0,
     R"("cached":"1001","channel":"f1","component":1,"expression":"$FSTART","formatVersion":1,"language":"hscript",)"},
    {"values_of_no_node", {"values", VX_EXAMPLE_SCENE, "/no/*"}, 1, "there is no node /no/* (code -7)"},
    {"values_of_no_scene", {"values", VX_NO_PLUGIN}, 4, "is no Houdini scene"},
    {"check_at_a_frame", {"values", "--check", "--frame", "3", VX_EXAMPLE_SCENE}, 2, "--check"},
    {"check_of_two", {"values", "--check", VX_EXAMPLE_SCENE, VX_EXAMPLE_SCENE}, 0, "\nevaluated: 100.00 %"},
    {"resolved_job",
     {"jobs", "--resolve", "--format", "jsonl", VX_EXAMPLE_SCENE},
     0,
     R"("resolved":[{"expression":"$FSTART","node":"/out/arnold_beauty","parameter":"f1","stored":"1001","value":"1001"})"},
    {"resolved_section", {"explain", "--resolve", VX_EXAMPLE_SCENE}, 0, "  f1 = 1001  <- $FSTART\n"},
    {"no_variables", {"vars", "--plugin", VX_FAKE_PLUGIN, "/%3/cannotOpen.hip", "--job", "1"}, 1, "/%3/cannotOpen"},
};

class CommandLine : public testing::TestWithParam<_usage> {};

TEST_P(CommandLine, GivesItsTextOrOneLineAndAStatus) {
    const auto host = run(VX_SCENE_PROGRAM, GetParam().arguments);
    EXPECT_EQ(host.status, GetParam().status);
    const bool isFault = GetParam().status != 0;
    EXPECT_TRUE((isFault ? host.error : host.out).contains(GetParam().text)) << host.out.constData();
    EXPECT_EQ(host.error.count('\n'), isFault ? 1 : 0) << host.error.constData();
    EXPECT_TRUE(!isFault || host.out.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Table, CommandLine, testing::ValuesIn(usages), vxTest::rowName);

/// Whether a file is a scene, all of one, or one that renders nothing is told by every command that reads it.
TEST(VxScene, FilesAreToldFromScenes) {
    const auto folder = fs::temp_directory_path() / ("scenes" + std::to_string(getpid()));
    fs::create_directory(folder);
    const auto write = [&](const char* name, const std::string& bytes) {
        const auto path = folder / name;
        std::ofstream{path, std::ios::binary} << bytes;
        return path.native();
    };
    const auto page = write("page.hip", "<html>");
    const auto cut = write("cut.hip", openEntry({".start", "fps 24\n"}));
    const auto viewer = write("viewer.hip", "out/a.parm {\ntrange\t(\t\"on\"\t)\nvm_picture\t(\tip\t)\n}\n");
    const auto nodes = write("nodes.hip", "obj/arnold1.parm {\n}\n");
    struct {
        std::vector<std::string> arguments;
        int status;
        QByteArray out;
        QByteArray error;
    } const rows[] = {
        {{"jobs", page, viewer},
         4,
         "1 output driver gives none: /out/a\n",
         "page.hip: is no Houdini scene: it looks like"},
        {{"jobs", page, "/no/such.hip"}, 1, "", "(code 3)"},
        {{"jobs", nodes}, 0, "no output drivers\n", ""},
        {{"jobs", cut}, 0, "no jobs", "cut.hip: the scene is cut off"},
        {{"jobs", "--format=json", cut}, 0, "\"complete\": false", "cut off"},
        {{"explain", "--format=json", viewer}, 0, "\"complete\": true", ""},
        {{"explain", cut}, 0, "\n  the scene is cut off", "cut off"},
        {{"explain", page}, 4, "", "page.hip"},
        {{"report", page}, 4, "looks like an HTML page", "page.hip"},
        {{"vars", page}, 4, "", "page.hip"},
        {{"vars", viewer}, 0, "", "gives none: /out/a (code 25)"},
        {{"diff", viewer, page}, 4, "", "page.hip"},
        {{"diff", page, "/no/such.hip"}, 2, "", "(code 3)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.arguments.front() + ' ' + row.arguments.back());
        const auto host = run(VX_SCENE_PROGRAM, row.arguments);
        EXPECT_EQ(host.status, row.status);
        EXPECT_TRUE(host.out.contains(row.out)) << host.out.constData();
        EXPECT_TRUE(row.error.isEmpty() ? host.error.isEmpty() : host.error.contains(row.error))
            << host.error.constData();
    }
    fs::remove_all(folder);
}

TEST(VxScene, EverySceneMeetsFreshStateItsAbsolutePathAndTheArguments) {
    const auto host = runJobs({"--format=json", "./tellLoad.hip", "tellLoad.hip", "--", "-x", "--format", "--"});
    const auto results = parsedList(host);
    ASSERT_EQ(results.size(), 2);
    EXPECT_EQ(host.error, (QByteArray{"printed by the plug-in\n"}.repeated(2)));  // stays out of the result
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

TEST(VxScene, HostileTextsCannotSteerATerminal) {
    const std::pair<const char*, std::vector<std::string>> commands[] = {
        {"jobs", {}}, {"vars", {}}, {"jobs", {"-f", "json"}}, {"jobs", {"-f", "jsonl"}}, {"vars", {"-f", "json"}}};
    for (auto [command, arguments] : commands) {
        arguments.emplace_back("/hostileTexts.hip");
        const auto bytes = runCommand(command, arguments, {"LC_ALL=C"}).out;
        const auto out = QString::fromUtf8(bytes);
        EXPECT_TRUE(out.contains(QStringView{u"夜景夜景"}));
        if (arguments.size() > 1) {
            EXPECT_TRUE(bytes.contains(R"(red\u009b1m\r\n\t\u0000end\u202e")")) << bytes.constData();
        }
        for (const QChar character : out) {
            const bool isShown = character.isPrint() && character.category() != QChar::Other_Format;
            EXPECT_TRUE(character == QLatin1Char('\n') || isShown) << int{character.unicode()};
        }
    }
}

TEST(VxScene, TableNamesSceneJobsAndWaiting) {
    const auto piped = runCommand("jobs", {"/projects/exportPair.hip", "/noJobs.hip"}, {"TERM=xterm", "COLUMNS=20"});
    EXPECT_EQ(piped.out.toStdString(),
              R"(/projects/exportPair.hip: Houdini 19.5.640, 2 jobs
#  driver       renderer           frames        output                 camera  take     size     waits for
1  out/mantra1  Houdini/createIFD  1001-1100 x2  /ifd/shot.####.ifd
2  out/mantra1  Houdini/renderer   1,5,7         /db/img/name.####.exr  camera  channel  65535x2  1, id 200

/noJobs.hip: no jobs
)");
}

TEST(VxScene, LinesFitTheTerminalAndColourIsUsedWhereItIsWelcome) {
    constexpr const char* command = " '" VX_SCENE_PROGRAM "' jobs --plugin '" VX_FAKE_PLUGIN "' /exportPair.hip";
    const std::tuple<std::string, std::string, bool> rows[] = {
        {"TERM=xterm NO_COLOR=", "", true},   {"TERM=xterm NO_COLOR=", " --color never", false},
        {"TERM=xterm NO_COLOR=1", "", false}, {"TERM=xterm NO_COLOR=1", " --color always", true},
        {"TERM=dumb NO_COLOR=", "", false},   {"TERM=xterm NO_COLOR=1", " --color auto", false}};
    for (const auto& [environment, option, colour] : rows) {
        const auto line = "stty cols 60; " + environment + command + option;
        const auto out = run("/usr/bin/script", {"-qec", line, "/dev/null"}).out;
        EXPECT_EQ(out.contains('\x1b'), colour) << environment;
        EXPECT_LE(out.split('\n')[1].trimmed().size(), colour ? 200 : 60) << out.constData();
    }
}

TEST(VxScene, PluginBesideTheProgramIsFound) {
    const auto folder = fs::temp_directory_path() / ("夜 vxscene_test" + std::to_string(getpid()));
    fs::create_directory(folder);
    fs::copy_file(VX_SCENE_PROGRAM, folder / "vxscene");
    fs::copy_file(VX_FAKE_PLUGIN, folder / "lx_vxSceneParserHoudini64.so");
    const auto host =
        run((folder / "vxscene").native(), {"jobs", "/noJobs.hip"}, {"LD_LIBRARY_PATH=" VX_LIBRARY_FOLDER});
    fs::remove_all(folder);
    EXPECT_EQ(host.out, QByteArray{"/noJobs.hip: no jobs\n"}) << host.error.constData();
}

/// The readers that explain are built into the program; what they find is what the plug-in finds, which is asked where
/// it is named.
TEST(VxScene, ExplainedSceneHasTheResultOfThePlugin) {
    const std::string examples = fs::path(VX_EXAMPLE_SCENE).parent_path().native();
    std::vector<std::string> arguments{"--format", "json", "/no/such.hip", examples};
    if (fs::exists(VX_REAL_SCENES)) arguments.emplace_back(VX_REAL_SCENES);
    const auto resultsOf = [&](const char* command) {
        auto line = arguments;
        line.insert(line.begin(), command);
        return parsedList(run(VX_SCENE_PROGRAM, line));
    };
    const auto explained = resultsOf("explain");
    arguments.insert(arguments.end(), {"--plugin", VX_LIBRARY_FOLDER "/./lx_vxSceneParserHoudini64.so"});
    const auto loaded = resultsOf("jobs");
    ASSERT_GT(loaded.size(), 2);
    ASSERT_EQ(loaded.size(), explained.size());
    for (int i = 0; i < loaded.size(); ++i) {
        auto result = explained[i].toObject();
        EXPECT_EQ(i > 0, result.contains(QLatin1String{"sections"}));
        const auto plain = loaded[i].toObject();
        for (const auto& member : result.keys())
            if (!plain.contains(member)) result.remove(member);
        EXPECT_EQ(plain, result) << textOf(result, "scene").toStdString();
    }
}

/// What is asked for is all that is there, as text and as JSON; jobs keep their numbers.
TEST(VxScene, ExplanationHoldsWhatIsAskedFor) {
    const auto unfinished = (fs::path(VX_EXAMPLE_SCENE).parent_path() / "turntable_unfinished.hip").native();
    struct _row {
        std::vector<std::string> options;
        const char* members;  // with their counts
        const char* shown;    // in the text; two with "|" between them
        const char* notShown;
    };
    const _row rows[] = {
        {{"--driver", "kettle_*"},
         "sections 2 notRecognised 0 warnings 3",
         "/out/kettle_alembic|P:/publish",
         "/out/beauty"},
        {{"--driver", "/obj/*"}, "sections 6 notRecognised 1 warnings 2", "/rop_fbx1|/rop_comp", "/out/"},
        {{"--reader", "wedge"},
         "sections 1 notRecognised 0 warnings 1",
         "wedge names no driver|not repeated",
         "frames\n"},
        {{"--reader", "camera"}, "sections 5 notRecognised 0 warnings 0", "others:|/obj/cam1", "not shown"},
        {{"--only", "missing"}, "sections 5 notRecognised 1", "/out/preview|vm_picture: ip", "job 1 "},
        {{"--only", "warnings"}, "warnings 13", "$FARM|warnings", "/out/preview"},
        {{"--only", "facts"}, "facts 9", "cameras|closeup", "warnings"},
        {{"--driver", "nosuch", "--only", "jobs"}, "sections 0", "nothing of|what was asked for", "/out/"},
        {{},
         "facts 9 sections 18 notRecognised 1 warnings 13",
         "not shown (--all shows them): 5 sections|takes",
         "others"},
    };
    for (auto [options, members, shown, notShown] : rows) {
        options.insert(options.begin(), {"explain", unfinished});
        const auto text = run(VX_SCENE_PROGRAM, options).out;
        for (const auto& part : QByteArray{shown}.split('|')) EXPECT_TRUE(text.contains(part)) << text.constData();
        EXPECT_FALSE(text.contains(notShown)) << text.constData();
        options.insert(options.end(), {"--format", "json"});
        const auto scene = parsedList(run(VX_SCENE_PROGRAM, options))[0].toObject();
        EXPECT_EQ(scene.contains(QLatin1String{"filter"}), options.size() > 4);
        EXPECT_EQ(scene[QLatin1String{"jobs"}].toArray().size(), 13);
        QStringList counts;
        for (const auto* name : {"facts", "sections", "notRecognised", "warnings"}) {
            const auto value = scene[QLatin1String{name}];
            const auto count = value.isObject() ? value.toObject().size() : value.toArray().size();
            if (!value.isUndefined()) counts += QStringLiteral("%1 %2").arg(QLatin1String{name}).arg(count);
        }
        EXPECT_EQ(counts.join(QLatin1Char(' ')).toStdString(), members) << options[2];
    }
}

/// The table has the plug-in's jobs, and beside them what only explanations know.
TEST(VxScene, TableMarksWhatIsWarnedOf) {
    const auto unfinished = (fs::path(VX_EXAMPLE_SCENE).parent_path() / "turntable_unfinished.hip").native();
    const auto marked = run(VX_SCENE_PROGRAM, {"jobs", unfinished}).out;
    const std::string copy = VX_LIBRARY_FOLDER "/../bin/lx_vxSceneParserHoudini64.so";  // another name of the same file
    const auto plain = run(VX_SCENE_PROGRAM, {"jobs", "--plugin", copy, unfinished}).out;
    EXPECT_TRUE(marked.contains("\n 1! ") && marked.contains("!1001-1100 x0") && marked.contains("!%dARM/"));
    EXPECT_TRUE(plain.contains("\n 1 ") && plain.contains("!1001-1100 x0")) << plain.constData();
    EXPECT_TRUE(marked.endsWith("13 warnings (!), 5 drivers without a job, 1 not recognised: vxscene explain " +
                                QByteArray::fromStdString(unfinished) +
                                "\n12 of 13 jobs differ when resolved, 1 more comes: --resolve\n"))
        << marked.constData();
    EXPECT_EQ(plain.count('\n') + 2, marked.count('\n'));
}

/// Every line of it, on terminals of several widths.
TEST(VxScene, ExplanationFitsTheTerminal) {
    const auto unfinished = (fs::path(VX_EXAMPLE_SCENE).parent_path() / "turntable_unfinished.hip").native();
    for (const int width : {40, 60, 80, 120}) {
        const auto line =
            "stty cols " + std::to_string(width) + "; NO_COLOR=1 '" VX_SCENE_PROGRAM "' explain '" + unfinished + "'";
        auto lines =
            QString::fromUtf8(run("/usr/bin/script", {"-qec", line, "/dev/null"}).out).split(QStringLiteral("\r\n"));
        lines.removeFirst();  // the scene's path
        EXPECT_GT(lines.size(), 60);
        for (const auto& text : lines) EXPECT_LE(text.size(), width) << text.toStdString();
    }
}

TEST(VxScene, SceneOfAnyNameIsLoadedInAnyLocale) {
    const auto folder = fs::temp_directory_path() / ("mit Leerzeichen " + std::to_string(getpid()));
    const auto scene = folder / "szene ä 日本.hip";
    fs::create_directory(folder);
    fs::copy_file(VX_EXAMPLE_SCENE, scene);
    for (const auto* locale : {"LC_ALL=C", "LC_ALL=no_SUCH.ISO-8859-1"}) {
        const auto host = run(VX_SCENE_PROGRAM, {"jobs", scene.native()}, {locale});
        EXPECT_EQ(host.out.indexOf(QByteArray::fromStdString(scene.native() + ": Houdini")), 0)
            << host.error.constData();
    }
    fs::remove_all(folder);
}

/// Redrawn lines are gone before others come, and come only where they are welcome.
TEST(VxScene, ProgressIsShownOnATerminalAlone) {
    constexpr const char* command =
        " '" VX_SCENE_PROGRAM "' jobs --plugin '" VX_FAKE_PLUGIN "' --parallel 1 --timeout 0.5 /noJobs.x ";
    const std::pair<std::string, bool> cases[] = {
        {"TERM=xterm" + std::string{command} + "/hangs.x", true},
        {"TERM=xterm" + std::string{command} + "/hangs.x >/dev/null", true},
        {"TERM=xterm" + std::string{command} + "/hangs.x 2>&1 | cat", false},
        {"TERM=dumb" + std::string{command} + "/hangs.x", false},
        {"TERM=xterm" + std::string{command} + "/hangs.x --no-progress", false},
        {"TERM=xterm" + std::string{command}, false}};
    for (const auto& [line, isShown] : cases) {
        SCOPED_TRACE(line);
        const auto out = run("/usr/bin/script", {"-qc", "stty cols 60; " + line, "/dev/null"}).out;
        EXPECT_EQ(out.contains("1/2 scenes"), isShown) << out.constData();
        if (isShown) {
            EXPECT_TRUE(out.contains("\r\x1b[Kvxscene: /hangs.x")) << out.constData();
            const auto last = out.mid(out.lastIndexOf('\n') + 1);
            EXPECT_TRUE(last.isEmpty() || last == "\r\x1b[K") << out.constData();
        }
    }
}

TEST(VxScene, ScenesWaitForProcessesWhereTheSystemHasFew) {
    std::string scenes;
    for (int i = 0; i < 60; ++i) scenes += " /noJobs." + std::to_string(i);
    const auto host = run("/bin/sh", {"-c", "ulimit -n 16; exec '" VX_SCENE_PROGRAM "' jobs --plugin '" VX_FAKE_PLUGIN
                                            "' --parallel 64 --format jsonl" +
                                                scenes});
    EXPECT_EQ(host.status, 0) << host.error.constData();
    EXPECT_EQ(host.out.count('\n'), 60);
}

TEST(VxScene, FullDiskIsAFailure) {
    const std::pair<const char*, int> lines[] = {{"jobs --plugin '" VX_FAKE_PLUGIN "' /noJobs.hip", 1},
                                                 {"diff --plugin '" VX_FAKE_PLUGIN "' /exportPair.hip /noJobs.hip", 2},
                                                 {"--help", 1},
                                                 {"jobs --help", 1},
                                                 {"--version", 1}};
    for (const auto& [line, status] : lines) {
        const auto host = run("/bin/sh", {"-c", std::string{"'" VX_SCENE_PROGRAM "' "} + line + " >/dev/full"});
        EXPECT_EQ(host.status, status) << line;
        EXPECT_TRUE(host.error.contains("written: No space left on device\n")) << host.error.constData();
    }
}

TEST(VxScene, FailingInfoIsTold) {
    struct _row {
        const char* behaviour;
        int infoStatus;
        int jobsStatus;
        const char* error;
    };
    constexpr _row rows[] = {{"FAKE_INFO=refuses", 1, 0, "pInfo: the plug-in does not support this version"},
                             {"FAKE_INFO=isSilent", 1, 0, "pInfo told of success and wrote nothing"},
                             {"FAKE_INFO=crashes", 1, 3, "crashed (signal 6)"},
                             {"FAKE_INFO=hangs", 1, 3, "time limit of 0.25 s"}};
    for (const auto& row : rows) {
        const auto info = runCommand("info", {"-t", "0.25"}, {row.behaviour});
        const auto jobs = runCommand("jobs", {"-t", "0.25", "/noJobs.x"}, {row.behaviour});
        EXPECT_EQ(info.status, row.infoStatus) << row.behaviour;
        EXPECT_EQ(jobs.status, row.jobsStatus) << row.behaviour;
        EXPECT_EQ(jobs.out, row.jobsStatus == 0 ? "/noJobs.x: no jobs\n" : "") << row.behaviour;
        for (const auto& error : {info.error, jobs.error}) EXPECT_TRUE(error.contains(row.error)) << error.constData();
    }
}

TEST(VxScene, ArgumentsThatNoSwitchTakesAreNamed) {
    const std::vector<std::string> arguments{
        "explain",          VX_EXAMPLE_SCENE,        "--", "-HOUDINIbuildversion", "5", "-customRenVer_VRay", "6", "x",
        "-houdiniResolved", "-houdiniCompressedIFD", "y"};
    const auto host = run(VX_SCENE_PROGRAM, arguments);
    EXPECT_EQ(host.status, 0);
    EXPECT_EQ(host.error, QByteArray{"vxscene: warning: no switch of the plug-in takes x -houdiniResolved y; did you "
                                     "mean -houdiniResolve?\n"});
}

TEST(VxScene, DiffTellsByItsStatusWhetherThereAreDifferencesOrTrouble) {
    const std::tuple<const char*, const char*, int, const char*, const char*> rows[] = {
        {"/exportPair.hip", "/a/exportPair.hip", 0, "0 came, 0 went, 0 changed, 2 unchanged", ""},
        {"/exportPair.hip", "/noJobs.hip", 1, "0 came, 2 went, 0 changed, 0 unchanged", ""},
        {"/noJobs.hip", "/noUsableOutput.hip", 0, "0 came, 0 went, 0 changed, 0 unchanged", "(code 25)"},
        {"/cannotOpen.hip", "/jobThenNoMore.hip", 2, "", "(code 3)\nvxscene: /jobThenNoMore.hip"}};
    for (const auto& [before, now, status, out, error] : rows) {
        const auto host = runCommand("diff", {before, now});
        EXPECT_EQ(host.status, status) << now;
        EXPECT_TRUE(host.out.contains(out) && host.error.contains(error)) << host.out.constData();
        EXPECT_EQ(host.error.isEmpty(), *error == '\0') << host.error.constData();
    }
}

}  // namespace
