// The allocator of this whole program, Qt's and the plug-in's calls included, fails on demand: each allocation of a
// load once, in a process in which nothing was loaded before, but Qt has its record of the thread, whose lack it does
// not survive. A sanitizer's operator new does not come by here.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#include <unwind.h>

#include <cerrno>
#include <cstring>
#include <string_view>

#include "plugin/vxSceneParserHoudini.h"
#include "shared/vxExport.h"
#include "tests/support/sceneText.h"

// The allocators below this one: the sanitizer's where there is one, else the system's.
extern "C" {
__attribute__((weak)) void* __interceptor_malloc(std::size_t);
__attribute__((weak)) void* __interceptor_calloc(std::size_t, std::size_t);
__attribute__((weak)) void* __interceptor_realloc(void*, std::size_t);
__attribute__((weak)) void __interceptor_free(void*);
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void __libc_free(void*);
}

namespace {

long untilFailure = 0;  // 1: the next one fails; 0: none does
bool isLasting = false;
bool wasScarce = false;
long blocks = 0;  // in use
int sinceRoom =
    0;  // allocations since the last one of the size that the plug-in asks for before it makes a text stream

/// True when a constructor of the text stream is among the callers.
bool isInTextStream() {
    bool isFound = false;
    const auto look = [](_Unwind_Context* call, void* found) {
        Dl_info place;
        const bool isKnown = dladdr(reinterpret_cast<void*>(_Unwind_GetIP(call)), &place) != 0;
        if (isKnown && place.dli_sname != nullptr && std::strstr(place.dli_sname, "QTextStreamC") != nullptr)
            *static_cast<bool*>(found) = true;
        return _URC_NO_REASON;
    };
    _Unwind_Backtrace(look, &isFound);
    return isFound;
}

/// Qt's text stream does not survive a failure; it has its few blocks where there was room just before.
bool fails(std::size_t size) {
    sinceRoom = size >= 8192 ? 0 : sinceRoom + 1;
    if (untilFailure == 0 || untilFailure-- > 1) return false;
    const bool isSpared = sinceRoom > 0 && sinceRoom < 10 && isInTextStream();
    untilFailure = isLasting || isSpared ? 1 : 0;
    if (isSpared) return false;
    wasScarce = true;
    errno = ENOMEM;
    return true;
}

void* counted(void* block) {
    blocks += block != nullptr ? 1 : 0;
    return block;
}

}  // namespace

extern "C" {

VX_EXPORT void* malloc(std::size_t size) noexcept {
    if (fails(size)) return nullptr;
    return counted(__interceptor_malloc != nullptr ? __interceptor_malloc(size) : __libc_malloc(size));
}

VX_EXPORT void* calloc(std::size_t number, std::size_t size) noexcept {
    if (fails(number * size)) return nullptr;
    return counted(__interceptor_calloc != nullptr ? __interceptor_calloc(number, size) : __libc_calloc(number, size));
}

VX_EXPORT void* realloc(void* block, std::size_t size) noexcept {
    if (fails(size)) return nullptr;
    blocks -= block != nullptr ? 1 : 0;
    return counted(__interceptor_realloc != nullptr ? __interceptor_realloc(block, size) : __libc_realloc(block, size));
}

VX_EXPORT void free(void* block) noexcept {
    blocks -= block != nullptr ? 1 : 0;
    __interceptor_free != nullptr ? __interceptor_free(block) : __libc_free(block);
}

}  // extern "C"

namespace {

using vxTest::driver;

/// Something for every reader, copies of both kinds, and few jobs: each load moves them all for every further one.
const QByteArray sceneOfEverything =
    "set -g _HIP_SAVEVERSION = '19.5.640'\nset -g JOB = '/proj/a_shot'\nset -g HtoA_KickVersion = '7.1.2'\n"
    "frange 1001 1100\ntake name Main\ntake name wide\n" +
    driver("res=1920\t1080", "obj/stereocam1") + driver("picture=$HIP/k.$F4.exr|take=wide", "stage/karma1") +
    driver("camera=/c|xn__redshiftglobalRS_archive_fileName=$HIP/a.usd", "stage/rendersettings1") +
    driver(
        "trange=normal|f=1\t20\t2|camera=/obj/stereocam1|vm_picture=${JOB}/$OS.$F4.exr|soho_outputmode=on|"
        "soho_diskfile=$HIP/$HIPNAME.$F4.ifd",
        "out/mantra1") +
    driver(
        "ar_picture=$JOB/a.$F4.exr|ar_aov_separate_file1=$HIP/z.$F4.exr|take=wide|camera=/obj/cam2|"
        "ar_ass_export_enable=on|ar_ass_file=$HIP/a_sim_.$F4.ass",
        "out/arnold_sim_1") +
    driver(
        "RS_outputFileNamePrefix=$HIP/$OS.$AOV.$F4|RS_outputFileFormat=.exr|RS_aovSuffix_1=Z|take=wide|"
        "RS_aovCustomPrefix_1=$HIP/$AOV.$F4|RS_aovFileFormat_1=.exr",
        "out/redshift1") +
    driver("outputimage=$HIP/u.$F4.exr|lopoutput=$HIP/u.$F4.usd|renderer=BRAY_HdKarma|take=wide", "stage/usdrender_1") +
    driver("driver=../redshift1|wedgemethod=channel|name1=key|steps1=2|range1=1\t2", "out/wedge1");

#ifdef __SANITIZE_ADDRESS__
constexpr long step = 10;  // a process takes its time there
#else
constexpr long step = 1;
#endif

constexpr qint32 jobsOfScene = 12;  ///< behind them stand copies for the wedges of all loads so far

struct _load {
    qint32 code, jobs;
    std::size_t content;  ///< of the jobs of the scene
};

/// What a process tells of a load and a description with too little memory, and of a load after that.
struct _outcome {
    _load scarce, later;
    qint32 described;
    bool wasScarce, isOpen;
    long blocks;  ///< that stay in use
};

_load load(vxTest::_loader& loader) {
    const qint32 code = pLoadSceneFile(&loader.record());
    untilFailure = 0;
    const qint32 readable = std::min({loader.count(), loader.array().allocated, jobsOfScene});
    for (qint32 i = 0; i < readable; ++i) loader.job(i).sceneSettings.customData_AllAsString();
    const std::string_view bytes(reinterpret_cast<const char*>(loader.array().jobs),
                                 static_cast<std::size_t>(readable) * loader.array().recordSize);
    return {code, loader.count(), std::hash<std::string_view>{}(bytes)};
}

_outcome outcomeOf(const QString& scene, long number, bool lasting) {
    const long blocksBefore = blocks;
    const int handle = dup(STDIN_FILENO);
    close(handle);
    _outcome outcome{};
    {
        vxTest::_loader first(scene), second(scene);
        vxP::_dataPARS_PluginInfo info{};
        info.structureVersion = vxP::pluginStructureVersion;
        isLasting = lasting;
        untilFailure = number;
        outcome.described = pInfo(&info);
        outcome.scarce = load(first);
        outcome.wasScarce = wasScarce;
        outcome.later = load(second);
        outcome.isOpen = dup(STDIN_FILENO) != handle;
    }
    vxTest::freshScanState();
    outcome.blocks = blocks - blocksBefore;
    return outcome;
}

/// @return null when the process did not come to its end
const _outcome* outcomeInAChild(const QString& scene, long number, bool lasting) {
    static auto* const shared = static_cast<_outcome*>(
        mmap(nullptr, sizeof(_outcome), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    const pid_t child = fork();
    if (child == 0) {
        *shared = outcomeOf(scene, number, lasting);
        _exit(EXIT_SUCCESS);
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && status == 0 ? shared : nullptr;
}

class ScarceMemory : public testing::TestWithParam<bool> {};

TEST_P(ScarceMemory, EndsALoadAndHarmsNoLaterOne) {
    const vxTest::_sceneFolder folder;
    const QString scene = folder.write(sceneOfEverything);
    try {
        throw std::bad_alloc();  // the first exception leaves blocks behind
    } catch (const std::bad_alloc&) {
    }
    const _outcome* outcome = outcomeInAChild(scene, 0, false);
    ASSERT_NE(outcome, nullptr);
    const _outcome sound = *outcome;
    EXPECT_EQ(sound.scarce.code, vxP::resultSuccess);
    EXPECT_EQ(2 * sound.scarce.jobs - sound.later.jobs, jobsOfScene);
    EXPECT_EQ(sound.scarce.content, sound.later.content);
    long number = 1;
    for (; !HasFailure(); number += step * (GetParam() ? 8 : 1)) {
        SCOPED_TRACE(testing::Message() << "allocation " << number);
        outcome = outcomeInAChild(scene, number, GetParam());
        ASSERT_NE(outcome, nullptr);
        EXPECT_TRUE(outcome->described == vxP::resultSuccess || outcome->described == vxP::resultException);
        // Some work needs no more than it gets: the standard library's sort, for example.
        if (outcome->scarce.code == vxP::resultSuccess)
            EXPECT_EQ(outcome->scarce.content, sound.scarce.content);
        else
            EXPECT_TRUE(outcome->scarce.code == vxP::resultException || outcome->scarce.code == vxP::resultNoMoreJobs);
        EXPECT_EQ(outcome->later.code, vxP::resultSuccess);
        EXPECT_EQ(outcome->later.content, sound.later.content);
        EXPECT_FALSE(outcome->isOpen) << "the scene was left open";
        EXPECT_LE(outcome->blocks, sound.blocks) << "something was not released";
        if (!outcome->wasScarce) break;
    }
    EXPECT_GT(number, 500);
}

INSTANTIATE_TEST_SUITE_P(OnceOrFromThenOn, ScarceMemory, testing::Bool());

}  // namespace
