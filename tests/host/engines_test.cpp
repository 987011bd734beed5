// What `export` is made of, and its scripts as they run: with programs of the test's own in place of renderers and
// Slurm.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "host/engines/commandTable.h"
#include "host/engines/engines.h"
#include "host/engines/frameSelection.h"
#include "tests/host/hostProgram.h"

namespace vxH {
namespace {

using vxTest::run;

// ---- tables

struct _tableCase {
    const char* what;
    const char* text;
    const char* problem;
};
constexpr _tableCase tables[] = {
    {"whole", "[[task]]\napp = \"A*\"\ncommand = [\"a\", \"[[x] [Frame:4]\"]\nlicence = \"t\"\n", ""},
    {"no_toml", "[[task]\n", "t:1: Error while parsing table header: expected ']', saw '\\n'"},
    {"unknown_key", "[[task]]\napp = \"A\"\ncomand = []\n", "t:3: \"comand\" is no key of a task"},
    {"unknown_table", "\n[tasks]\n", "t:2: \"tasks\" is not known here: tasks are in [[task]]"},
    {"one_task", "[task]\napp = \"A\"\n", "t:1: a task begins with [[task]]"},
    {"no_command", "\n[[task]]\napp = \"A\"\n", "t:2: the task has no \"command\""},
    {"no_words", "[[task]]\napp = \"A\"\ncommand = \"a b\"\n", "t:3: command: has to be a list of words"},
    {"unknown_variable", "[[task]]\napp = \"A\"\ncommand = [\"a\",\n\"[Layr]\"]\n",
     "t:3: command: \"[Layr]\" is no variable of a job or task"},
    {"open_bracket", "[[task]]\napp = \"A\"\ncommand = [\"a[\"]\n",
     "t:3: command: \"a[\" has a \"[\" without its \"]\" (a \"[\" itself is \"[[\")"},
    {"no_cores", "[[task]]\napp = \"A\"\ncores = 0\n", "t:3: cores: has to be a whole number from 1 to 4096"},
    {"odd_variable", "[[task]]\napp = \"A\"\nenvironment = { \"A-B\" = \"x\" }\n",
     "t:3: environment: \"A-B\" is no name of a variable"},
};
class CommandTable : public testing::TestWithParam<_tableCase> {};
TEST_P(CommandTable, SaysWhatIsWrongAndWhere) {
    _commandTable table;
    EXPECT_EQ(addCommands(GetParam().text, QStringLiteral("t"), table).toStdString(), GetParam().problem);
}
INSTANTIATE_TEST_SUITE_P(Table, CommandTable, testing::ValuesIn(tables), [](const auto& i) { return i.param.what; });

TEST(CommandTable, GivesTheFirstRowThatFits) {
    _commandTable table;
    ASSERT_EQ(addCommands("[[task]]\napp=\"A\"\none-file=true\ncommand=[\"x\"]\n[[task]]\napp=\"A*\"\nrenderer=\"r\"\n"
                          "variant=false\ncommand=[\"y\"]",
                          QStringLiteral("t"), table),
              QString{});
    _job job;
    job.app = QStringLiteral("A");
    EXPECT_EQ(table.rowFor(job, false), nullptr);
    job.appRenderer = QStringLiteral("r");
    EXPECT_EQ(table.rowFor(job, false), &table.rows[1]);
    EXPECT_EQ(table.rowFor(job, true), nullptr);
    job.imageSingleOutputFile = true;
    EXPECT_EQ(table.rowFor(job, true), &table.rows[0]);
}

// ---- frames

struct _frameCase {
    const char* what;
    _frameRange range;
    const char* wanted;
    std::optional<_frameRange> common;
};
const _frameCase frames[] = {
    {"inside", {1001, 1100, 1}, "1010-1019", _frameRange{1010, 1019, 1}},
    {"steps", {1001, 1076, 25}, "1001-1060", _frameRange{1001, 1051, 25}},
    {"both_steps", {1, 100, 4}, "3-90x6", _frameRange{9, 81, 12}},
    {"never_meet", {0, 1000000000, 2}, "1-999999999x2", std::nullopt},
    {"below_0", {-10, 10, 5}, "-7--1", _frameRange{-5, -5, 5}},
    {"outside", {1, 10, 1}, "11-20", std::nullopt},
    {"one", {1, 10, 3}, "7", _frameRange{7, 7, 3}},
};
class FrameSelection : public testing::TestWithParam<_frameCase> {};
TEST_P(FrameSelection, KeepsTheFramesOfBoth) {
    const auto wanted = readRanges(QLatin1String{GetParam().wanted});
    ASSERT_TRUE(wanted);
    EXPECT_EQ(commonFrames(GetParam().range, wanted->front()), GetParam().common);
}
INSTANTIATE_TEST_SUITE_P(Table, FrameSelection, testing::ValuesIn(frames), [](const auto& i) { return i.param.what; });

TEST(FrameSelection, RefusesWhatIsNoRange) {
    for (const char* text : {"", "a", "1-", "5-1", "1-5x0", "1,,2", "1.5", "99999999999", "1-5x-1"})
        EXPECT_FALSE(readRanges(QLatin1String{text})) << text;
}

// ---- scripts that run

QString pathIn(const QTemporaryDir& folder, const char* name) {
    return folder.filePath(QLatin1String{name});
}

void writeFile(const QString& path, const QByteArray& text) {
    QFile file{path};
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

void writeProgram(const QString& path, const QByteArray& text) {
    writeFile(path, text);
    QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

QByteArray readFile(const QString& path) {
    QFile file{path};
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray{"(no file)"};
}

/// Stands in for Slurm: runs the tasks of an array when it is submitted, and writes down the calls.
constexpr const char* fakeSlurm = R"(#!/bin/bash
echo "${0##*/} $*" >>"$LOG"
case ${0##*/} in
scontrol) echo "MaxArraySize            = 4" ;;
sbatch)
  (($(grep -c ^sbatch "$LOG") != ${FAILS_AT:-0})) || exit 1
  for option; do
    case $option in
    --array=0-*) last=${option#*-*-} last=${option##*-} ;;
    --export=ALL,*) export $(tr , ' ' <<<"${option#*ALL,}") ;;
    esac
  done
  script=$(cat)
  for ((i = 0; i <= last; i++)); do SLURM_ARRAY_TASK_ID=$i bash -c "$script"; done
  grep -c ^sbatch "$LOG" ;;
esac
)";

class Scripts : public testing::Test {
 protected:
    Scripts() {
        for (const char* name : {"sbatch", "scontrol", "scancel"}) writeProgram(pathIn(folder, name), fakeSlurm);
        path = "PATH=" + folder.path().toUtf8() + ':' + qgetenv("PATH");
        log = "LOG=" + pathIn(folder, "log").toUtf8();
        out = "OUT=" + pathIn(folder, "out").toUtf8();
    }

    vxTest::_hostRun runScript(const _engine& engine, const char* variable = "A=B") {
        writeProgram(pathIn(folder, "script"), engine.write(submission));
        return run(pathIn(folder, "script").toStdString(), {}, {path.data(), log.data(), out.data(), variable});
    }

    /// A step with such a program for sh.
    _farmStep& addStep(const char* name, const char* program, _frameRange range, qint64 framesPerTask) {
        auto& step = submission.steps.emplace_back();
        step.name = QLatin1String{name};
        step.frames = range;
        step.framesPerTask = framesPerTask;
        for (const char* word : {"sh", "-c", program, "sh"}) step.command.push_back({{QLatin1String{word}}});
        return step;
    }

    QTemporaryDir folder;
    QByteArray path, log, out;
    _submission submission;
};

TEST_F(Scripts, GiveEveryWordToTheProgramAsItIs) {
    const char* const hostile[] = {"a b",
                                   "it's",
                                   "\"x\"",
                                   "; touch pwned",
                                   "$(touch pwned)",
                                   "`touch pwned`",
                                   "a\nTASK\nb",
                                   "{{x}}",
                                   "]]>",
                                   "\\",
                                   "*",
                                   "",
                                   "-n",
                                   "%s%0d",
                                   "~",
                                   "\x1b[31m\r\t",
                                   "\xc3\xa4\xe2\x82\xac",
                                   "!x #y & | <z>"};
    auto& step = addStep("s", "printf '%s\\0' \"$V\" \"$@\" >>\"$OUT\"", {7, 7, 1}, 1);
    step.driver = QStringLiteral("/out/x\n; touch pwned");
    QByteArray expected{"42;`x`$y\n-0007"};
    step.environment = {{QStringLiteral("V"), {{QStringLiteral("42;`x`$y\n-")}, {{}, _taskValue::frame, 4}}}};
    expected += '\0';
    for (const char* word : hostile) {
        step.command.push_back({{QString::fromUtf8(word)}});
        expected += QByteArray{word} + '\0';
    }
    for (const auto* const engine : {&shellEngine, &slurmEngine}) {
        EXPECT_EQ(runScript(*engine).status, 0);
        EXPECT_EQ(readFile(pathIn(folder, "out")), expected) << QString{engine->name}.toStdString();
        QFile::remove(pathIn(folder, "out"));
    }
    EXPECT_FALSE(QFile::exists(QStringLiteral("pwned")));
}

/// The frames of tasks, the last of them shorter, and over several arrays where one cannot have so many.
TEST_F(Scripts, RunAllFramesOnce) {
    auto& step = addStep("s", "echo $1 $2 $3 >>\"$OUT\"", {-4, 20, 2}, 2);
    for (const auto value : {_taskValue::first, _taskValue::last, _taskValue::step})
        step.command.push_back({{{}, value, value == _taskValue::last ? 3 : 0}});
    for (const auto* const engine : {&shellEngine, &slurmEngine}) {
        EXPECT_EQ(runScript(*engine, "A=B").status, 0);
        auto lines = readFile(pathIn(folder, "out")).split('\n');
        std::sort(lines.begin(), lines.end());
        EXPECT_EQ(lines.join(';'), ";-4 -02 2;0 002 2;12 014 2;16 018 2;20 020 2;4 006 2;8 010 2");
        QFile::remove(pathIn(folder, "out"));
    }
    EXPECT_EQ(readFile(pathIn(folder, "log")).count("--array=0-2"), 2);
    EXPECT_EQ(readFile(pathIn(folder, "log")).count("--array=0-0"), 1);
}

TEST_F(Scripts, KeepOnlyWhatWaitsForAFailedTaskFromRunning) {
    addStep("export", "test $1 != 2", {1, 3, 1}, 1).command.push_back({{{}, _taskValue::frame}});
    const auto addRender = [&](const char* name, std::vector<_stepWait> waits) {
        auto& step = addStep(name, "echo $0 $1 >>\"$OUT\"", {1, 3, 1}, 1);
        step.command.back() = {{QLatin1String{name}}};
        step.command.push_back({{{}, _taskValue::frame}});
        step.waits = std::move(waits);
    };
    addRender("each", {{0, true}});
    addRender("all", {{0, false}});
    addRender("after", {{1, true}});
    addRender("free", {});
    const auto ran = runScript(shellEngine);
    EXPECT_EQ(ran.status, 1);
    EXPECT_TRUE(ran.error.contains("all: not run: step 1 failed")) << ran.error.toStdString();
    auto lines = readFile(pathIn(folder, "out")).split('\n');
    std::sort(lines.begin(), lines.end());
    EXPECT_EQ(lines.join(';'), ";after 1;after 3;each 1;each 3;free 1;free 2;free 3");
    EXPECT_EQ(runScript(slurmEngine).status, 0);
    const auto calls = readFile(pathIn(folder, "log"));
    for (const char* wait :
         {"--dependency=aftercorr:1 --kill", "--dependency=afterok:1 --kill", "--dependency=aftercorr:2 "})
        EXPECT_TRUE(calls.contains(wait)) << wait << '\n' << calls.toStdString();
    EXPECT_TRUE(calls.endsWith("scontrol release 1 2 3 4 5\n")) << calls.toStdString();
}

TEST_F(Scripts, CancelWhatWasSubmittedWhenACallFails) {
    for (const char* name : {"a", "b", "c"}) addStep(name, "true", {1, 1, 1}, 1);
    const auto ran = runScript(slurmEngine, "FAILS_AT=3");
    EXPECT_EQ(ran.status, 1);
    EXPECT_TRUE(ran.error.contains("cancelling 1 2")) << ran.error.toStdString();
    EXPECT_TRUE(readFile(pathIn(folder, "log")).endsWith("scancel 1 2\n"));
}

// ---- the command

/// With the examples' folder in place of where they lie.
QByteArray exported(const std::vector<std::string>& arguments) {
    auto words = arguments;
    words.insert(words.begin(), "export");
    auto text = run(VX_SCENE_PROGRAM, words, {"XDG_CONFIG_HOME=/nowhere", "XDG_CONFIG_DIRS=/nowhere"}).out;
    return text.replace(QByteArray{VX_EXAMPLES}, "EXAMPLES");
}

struct _goldenCase {
    const char* what;
    const char* engine;
    const char* scene;
};
constexpr _goldenCase goldens[] = {
    {"turntable_sh", "shell", "turntable.hip"},
    {"turntable_slurm", "slurm", "turntable.hip"},
    {"unfinished_sh", "shell", "turntable_unfinished.hip"},
    {"unfinished_slurm", "slurm", "turntable_unfinished.hip"},
};
class Golden : public testing::TestWithParam<_goldenCase> {};
/// To renew them: run the test with VX_RENEW_GOLDEN=1, and read what changed.
TEST_P(Golden, ExportIsAsReviewed) {
    const auto& [what, engine, scene] = GetParam();
    const auto text = exported({"--to", engine, "--skip-invalid", std::string{VX_EXAMPLES "/"} + scene});
    const QString file = QStringLiteral(VX_GOLDEN_FOLDER "/%1.golden").arg(QLatin1String{what});
    if (qEnvironmentVariableIsSet("VX_RENEW_GOLDEN")) writeFile(file, text);
    EXPECT_EQ(text.toStdString(), readFile(file).toStdString());
}
INSTANTIATE_TEST_SUITE_P(Export, Golden, testing::ValuesIn(goldens), [](const auto& i) { return i.param.what; });

TEST(Export, WritesNothingOfASceneWithAJobThatTheEngineCannotRun) {
    QTemporaryDir folder;
    const auto ran = run(VX_SCENE_PROGRAM, {"export", "--to", "slurm", "-o", folder.path().toStdString(),
                                            VX_EXAMPLES "/turntable_unfinished.hip", VX_EXAMPLES "/turntable.hip"});
    EXPECT_EQ(ran.status, 1);
    EXPECT_TRUE(ran.error.contains("turntable_unfinished.hip: job 6 (/out/steam): a step of 0\n")) << ran.error.data();
    EXPECT_EQ(QDir{folder.path()}.entryList(QDir::Files), QStringList{QStringLiteral("turntable.slurm.sh")});
}

TEST(Export, WaitsFrameByFrameWhereTasksAreAlike) {
    const auto plan = exported(
        {"--dry-run", "--chunk", "1", "--jobs", "1-2", "--frames", "1-1005,1050", VX_EXAMPLES "/turntable.hip"});
    EXPECT_TRUE(plan.contains("frames 1001 to 1005, 5 tasks, after mantra_beauty-createIFD frame by frame\n"))
        << plan.data();
    EXPECT_TRUE(plan.contains("frame 1050, 1 task, after mantra_beauty-createIFD-2 frame by frame\n")) << plan.data();
}

}  // namespace
}  // namespace vxH
