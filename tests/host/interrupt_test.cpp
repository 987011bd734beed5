// What is left behind when many scenes are ended early: no process and no half line.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <csignal>

#include "tests/host/hostProgram.h"
#include "tests/testText.h"

namespace {

using vxTest::_runningJobs;

bool isWholeLines(const QByteArray& output) {
    const auto lines = output.split('\n');
    for (auto line = lines.begin(); line != lines.end() - 1; ++line) {
        if (!QJsonDocument::fromJson(*line).isObject()) return false;
    }
    return lines.back().isEmpty();
}

void expectEndedBy(int signal, _runningJobs& jobs) {
    const int status = jobs.status();
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
    EXPECT_TRUE(jobs.isAllGone());
}

struct _interrupt {
    const char* what;
    int signal;
};
constexpr _interrupt interrupts[] = {
    {"SIGINT", SIGINT}, {"SIGTERM", SIGTERM}, {"SIGHUP", SIGHUP}, {"SIGKILL", SIGKILL}};

class Interrupt : public testing::TestWithParam<_interrupt> {};

TEST_P(Interrupt, LeavesNoProcessAndNoHalfLine) {
    _runningJobs jobs{{"--format", "jsonl", "--parallel", "4", "/noJobs.x", "/hangs.x", "/hangs.x", "/manyJobs.x"}};
    const auto first = jobs.readLine();
    jobs.send(GetParam().signal);
    expectEndedBy(GetParam().signal, jobs);
    EXPECT_TRUE(isWholeLines(first + jobs.readRest()));
}

INSTANTIATE_TEST_SUITE_P(Table, Interrupt, testing::ValuesIn(interrupts), vxTest::rowName);

TEST(Interrupt, WaitsForTheEndOfALineThatIsBeingRead) {
    std::vector<std::string> scenes{"--format", "jsonl"};
    scenes.insert(scenes.end(), 50, "/manyJobs.x");
    _runningJobs jobs{scenes};
    ASSERT_TRUE(jobs.waitUntilOutputIsFull());
    jobs.send(SIGTERM);
    EXPECT_TRUE(isWholeLines(jobs.readRest()));
    expectEndedBy(SIGTERM, jobs);
}

TEST(Interrupt, EndsWhileAListIsWaitedForAndClosesTheJsonList) {
    _runningJobs jobs{{"--format", "json", "-"}};
    jobs.write("/noJobs.x\n");
    auto output = jobs.readLine();
    jobs.send(SIGINT);
    output += jobs.readRest();
    expectEndedBy(SIGINT, jobs);
    EXPECT_EQ(QJsonDocument::fromJson(output).array().size(), 1) << output.constData();
}

TEST(BrokenPipe, EndsItQuietly) {
    _runningJobs jobs{{"--format", "jsonl", "--parallel", "2", "/noJobs.x", "/hangs.x", "/noJobs.x"}};
    EXPECT_FALSE(jobs.readLine().isEmpty());
    jobs.closeOutput();
    expectEndedBy(SIGPIPE, jobs);
}

TEST(StreamedList, ResultsComeBeforeItsEnd) {
    _runningJobs jobs{{"--format", "jsonl", "-"}};
    for (const auto* scene : {"/noJobs.1", "/noJobs.2"}) {
        jobs.write(QByteArray{scene} + '\n');
        const auto result = QJsonDocument::fromJson(jobs.readLine()).object();
        EXPECT_EQ(vxTest::plain(result[QLatin1String{"scene"}].toString()), scene);
    }
    jobs.closeInput();
    EXPECT_TRUE(jobs.readRest().isEmpty());
    EXPECT_EQ(jobs.status(), 0);
}

}  // namespace
