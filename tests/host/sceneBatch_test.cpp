// Work in many child processes: order, bounds, and ends of all kinds.
#include "host/batch/sceneBatch.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <thread>

#include "host/base/resultCodes.h"
#include "tests/testText.h"

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

class SceneBatch : public testing::Test {
 protected:
    SceneBatch() { fs::create_directory(marks); }
    ~SceneBatch() override {
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);  // no child is left
        EXPECT_EQ(errno, ECHILD);
        fs::remove_all(marks);
    }

    static vxH::_sceneList scenes(int count) {
        std::vector<std::string> names;
        for (int i = 0; i < count; ++i) names.push_back("/no/" + std::to_string(i));
        return {names, false, {}};
    }

    static vxH::_childResult giving(const QByteArray& output) { return {1, {}, output}; }
    static int numberOf(const QString& scene) { return scene.mid(4).toInt(); }

    void mark(const QString& scene) const { std::ofstream{marks / scene.mid(4).toStdString()}; }
    int marked() const { return static_cast<int>(std::distance(fs::directory_iterator{marks}, {})); }
    void waitForMarks(int count) const {
        while (marked() < count) std::this_thread::sleep_for(milliseconds{2});
    }

    std::vector<vxH::_batchResult> results(int count, const vxH::_batchWork& work, const vxH::_batchLimits& limits,
                                           std::size_t wanted = SIZE_MAX) {
        auto list = scenes(count);
        vxH::_progress progress{false};
        std::vector<vxH::_batchResult> received;
        vxH::runBatch(list, work, limits, progress, [&](const auto& result) {
            received.push_back(result);
            return received.size() < wanted;
        });
        return received;
    }

    fs::path marks = fs::temp_directory_path() / ("sceneBatch_test" + std::to_string(getpid()));
};

TEST_F(SceneBatch, ResultsKeepTheirOrderWhenTheFirstIsLast) {
    constexpr int count = 20;
    const auto work = [&](const QString& scene) {
        if (numberOf(scene) == 0) waitForMarks(count - 1);
        mark(scene);
        return giving(scene.toUtf8());
    };
    const auto received = results(count, work, {3, {}, count});
    ASSERT_EQ(received.size(), count);
    int number = 0;
    for (const auto& result : received) EXPECT_EQ(result.result.output, "/no/" + QByteArray::number(number++));
}

TEST_F(SceneBatch, NoMoreScenesThanTheWindowAreBegunBehindASlowOne) {
    constexpr int window = 6;
    const auto work = [&](const QString& scene) {
        mark(scene);
        if (numberOf(scene) > 0) return giving("done");
        waitForMarks(window);
        std::this_thread::sleep_for(milliseconds{300});  // for those that must not come
        return giving(QByteArray::number(marked()));
    };
    const auto received = results(30, work, {2, {}, window});
    ASSERT_EQ(received.size(), 30);
    EXPECT_EQ(received[0].result.output, QByteArray::number(window));
}

TEST_F(SceneBatch, LateAndCrashingScenesAreResultsToo) {
    const auto hang = [](const QString&) -> vxH::_childResult {
        for (;;) pause();
    };
    const auto late = results(3, hang, {2, milliseconds{150}, 9});
    ASSERT_EQ(late.size(), 3);
    for (const auto& result : late) {
        EXPECT_EQ(result.result.code, vxH::hostTimedOut);
        EXPECT_TRUE(result.result.failure.contains(QLatin1String{"0.15 s"})) << vxTest::plain(result.result.failure);
    }

    const auto dieInTheMiddle = [](const QString& scene) {
        if (numberOf(scene) == 2) raise(SIGKILL);
        return giving("done");
    };
    const auto crashed = results(5, dieInTheMiddle, {2, milliseconds{600000}, 9});
    ASSERT_EQ(crashed.size(), 5);
    for (const auto& result : crashed)
        EXPECT_EQ(result.result.code, numberOf(result.scene) == 2 ? vxH::hostCrashed : 1);
}

TEST_F(SceneBatch, ReceiverEndsIt) {
    const auto work = [](const QString& scene) {
        while (numberOf(scene) > 0) pause();
        return giving("done");
    };
    EXPECT_EQ(results(9, work, {4, {}, 9}, 1).size(), 1);
}

}  // namespace
