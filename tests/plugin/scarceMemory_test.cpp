#include "tests/plugin/scarceMemory.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <functional>
#include <string_view>

#include "plugin/vxSceneParserHoudini.h"
#include "tests/support/sceneText.h"

namespace {

using vxTest::driver;

#ifdef __SANITIZE_ADDRESS__
constexpr long step = 5;  // large blocks take their time there
#else
constexpr long step = 1;
#endif

/// Something for every reader, copies of both kinds, and few jobs: each load moves them all for every further one.
QByteArray sceneOfEverything() {
    return "set -g _HIP_SAVEVERSION = '19.5.640'\n"
           "set -g JOB = '/proj/a_shot'\n"
           "set -g HtoA_KickVersion = '7.1.2'\n"
           "frange 1001 1100\n"
           "take name Main\n"
           "take name wide\n" +
           driver("res=1920\t1080", "obj/stereocam1") + driver("picture=$HIP/k.$F4.exr|take=wide", "stage/karma1") +
           driver(
               "camera=/cameras/cam1|xn__redshiftglobalRS_archive_enable=on|"
               "xn__redshiftglobalRS_archive_fileName=$HIP/a.$F4.usd",
               "stage/rendersettings1") +
           driver(
               "trange=normal|f=1\t20\t2|camera=/obj/stereocam1|vm_picture=${JOB}/$OS.$F4.exr|soho_outputmode=on|"
               "soho_diskfile=$HIP/$HIPNAME.$F4.ifd",
               "out/mantra1") +
           driver(
               "ar_picture=$JOB/a.$F4.exr|ar_aov_separate_file1=$HIP/z.$F4.exr|take=wide|camera=/obj/cam2|"
               "ar_ass_export_enable=on|ar_ass_file=$HIP/a_sim_.$F4.ass",
               "out/arnold_sim_1") +
           driver(
               "RS_outputFileNamePrefix=$HIP/$OS.$AOV.$F4|RS_outputFileFormat=.exr|RS_aovSuffix_1=Z|"
               "RS_aovCustomPrefix_1=$HIP/$AOV.$F4|RS_aovFileFormat_1=.exr|take=wide",
               "out/redshift1") +
           driver("outputimage=$HIP/u.$F4.exr|lopoutput=$HIP/u.$F4.usd|renderer=BRAY_HdKarma|take=wide",
                  "stage/usdrender_rop1") +
           driver("vm_picture=ip", "out/shown1") +
           driver("driver=../redshift1|wedgemethod=channel|name1=key|steps1=2|range1=1\t2", "out/wedge1");
}

/// What a load gives, as far as it does not depend on the loads before it.
struct _outcome {
    qint32 jobs = 0;
    qint32 jobsOfScene = 0;   ///< the first ones; behind them stand copies for the wedges of all loads so far
    std::size_t content = 0;  ///< of the jobs of the scene
};

/// A load as a host does it.
class _load {
 public:
    explicit _load(const QString& scene) : loader(scene) {}

    qint32 run() { return pLoadSceneFile(&loader.record()); }
    const vxJ::_JobBasicsArray& array() { return loader.array(); }

    std::size_t content(qint32 jobs) {
        const auto* const bytes = reinterpret_cast<const char*>(array().jobs);
        return std::hash<std::string_view>()({bytes, static_cast<std::size_t>(jobs) * array().recordSize});
    }

 private:
    vxTest::_loader loader;
};

_outcome outcomeOf(const QString& scene) {
    vxTest::freshScanState();
    _load first(scene), second(scene);
    EXPECT_EQ(first.run(), vxP::resultSuccess);
    EXPECT_EQ(second.run(), vxP::resultSuccess);
    const qint32 jobs = first.array().count;
    const qint32 jobsOfScene = jobs - (second.array().count - jobs);
    EXPECT_EQ(first.content(jobsOfScene), second.content(jobsOfScene));
    return {jobs, jobsOfScene, first.content(jobsOfScene)};
}

void expectReadable(const vxJ::_JobBasicsArray& array) {
    EXPECT_LE(array.count, array.allocated + 1);  // the job that there was no room for is counted
    for (qint32 i = 0; i < std::min(array.count, array.allocated); ++i) {
        EXPECT_EQ(array.at(i)->structureIDs[0], array.structureVersion);
        array.at(i)->sceneSettings.customData_AllAsString();
    }
}

/// Loads the scene while memory is scarce, then once more. @return false when nothing was missing
bool loadTwice(const QString& scene, const _outcome& expected, const std::function<void()>& makeScarce) {
    vxTest::freshScanState();
    _load scarce(scene), later(scene);
    const int handle = dup(STDIN_FILENO);
    close(handle);
    makeScarce();
    const qint32 code = scarce.run();
    const bool hasFailed = vxTest::endScarcity();
    expectReadable(scarce.array());
    if (code == vxP::resultSuccess)  // Some work needs no more than it gets: the standard library's sort, for example.
        EXPECT_EQ(scarce.content(expected.jobsOfScene), expected.content);
    else
        EXPECT_TRUE(hasFailed && (code == vxP::resultException || code == vxP::resultNoMoreJobs)) << code;
    EXPECT_EQ(dup(STDIN_FILENO), handle) << "the scene was left open";
    close(handle);
    EXPECT_EQ(later.run(), vxP::resultSuccess);
    EXPECT_GE(later.array().count, expected.jobs);
    EXPECT_EQ(later.content(expected.jobsOfScene), expected.content);
    return hasFailed;
}

/// Calls `round` for each allocation until it had no need of that many, then once more for shortages that last.
void forEachAllocation(const std::function<bool(const std::function<void()>& makeScarce)>& round) {
    for (const bool lasting : {false, true}) {
        for (long number = 1;; number += step) {
            SCOPED_TRACE(testing::Message() << "allocation " << number << (lasting ? " and all later ones" : ""));
            if (!round([=] { vxTest::failAllocation(number, lasting); }) || testing::Test::HasFailure()) break;
        }
    }
}

class ScarceMemory : public testing::Test {
 protected:
    vxTest::_sceneFolder folder;
};

/// @return exit status, or -1 when a signal ended the process
int inAChild(const std::function<int()>& work) {
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        const int status = work();
        std::fflush(nullptr);
        _exit(status);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Each in a process in which nothing was loaded before: what is made once is made with too little memory.
TEST_F(ScarceMemory, EndsTheFirstLoadOfAProcess) {
    const QString scene = folder.write("take name Main\n" + driver("vm_picture=$HIP/a.$F4.exr"));
    void* const shared = mmap(nullptr, sizeof(_outcome), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    const auto* const expected = new (shared) _outcome;
    ASSERT_EQ(inAChild([&] { return new (shared) _outcome(outcomeOf(scene)), HasFailure(); }), 0);
    ASSERT_EQ(expected->jobs, 1);
    forEachAllocation([&](const auto& makeScarce) {
        const int status = inAChild([&] {
            const bool hasFailed = loadTwice(scene, *expected, makeScarce);
            return HasFailure() ? 2 : hasFailed;
        });
        EXPECT_TRUE(status == 0 || status == 1) << status;
        return status == 1;
    });
}

TEST_F(ScarceMemory, EndsALoadAndHarmsNoLaterOne) {
    const QString scene = folder.write(sceneOfEverything());
    const _outcome expected = outcomeOf(scene);
    loadTwice(scene, expected, [] { vxTest::failAllocation(1, false); });  // the first exception leaves blocks behind
    forEachAllocation([&](const auto& makeScarce) {
        vxTest::freshScanState();
        const long blocks = vxTest::blocksInUse();
        const bool hasFailed = loadTwice(scene, expected, makeScarce);
        vxTest::freshScanState();
        EXPECT_EQ(vxTest::blocksInUse(), blocks);
        return hasFailed;
    });
}

/// The plug-in's own blocks and those of Qt's text stream, which does not survive to be short of them.
TEST_F(ScarceMemory, IsNoticedBeforeTheTextStreamNeedsIt) {
    const QString scene = folder.write(driver("vm_picture=$HIP/a.$F4.exr"));
    const _outcome expected = outcomeOf(scene);
    for (long bytes = 300000;; bytes += 64 * step) {
        SCOPED_TRACE(bytes);
        if (!loadTwice(scene, expected, [=] { vxTest::limitMemory(bytes); }) || HasFailure()) break;
    }
}

TEST_F(ScarceMemory, EndsADescription) {
    forEachAllocation([](const auto& makeScarce) {
        vxP::_dataPARS_PluginInfo info{};
        info.structureVersion = vxP::pluginStructureVersion;
        makeScarce();
        const quint8 code = pInfo(&info);
        const bool hasFailed = vxTest::endScarcity();
        EXPECT_EQ(code, hasFailed ? vxP::resultException : vxP::resultSuccess);
        info.structureVersion = vxP::pluginStructureVersion;
        EXPECT_EQ(pInfo(&info), vxP::resultSuccess);
        return hasFailed;
    });
}

}  // namespace
