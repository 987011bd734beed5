#include <gtest/gtest.h>
#include <sys/mman.h>

#include "catalogues/wedges.h"
#include "jobs/renderers.h"
#include "plugin/jobCopies.h"
#include "plugin/jobFinishing.h"
#include "scan/scanState.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::driver;
using vxTest::plainOf;

QByteArray wedge(const QByteArray& lines) {
    return driver("driver=/out/a|wedgemethod=channel|name1=c|range1=0\t1|" + lines, "out/wedge1");
}

const QByteArray single = driver("vm_picture=/i/$WEDGE.$F4.exr");
const QByteArray pair = driver("vm_picture=/i/$WEDGENUM.$F4.exr|soho_outputmode=on|soho_diskfile=/x/$WEDGE.$F3.ifd");
const QByteArray takes = "take name Main kids 1\ntake name wide kids 0\ntake name Main kids 0\n";
const QByteArray usesTake = driver("vm_picture=/i/$ACTIVETAKE.exr");
const QByteArray twoSteps = wedge("prefix=p|steps1=2");

/// Number, "<" and the number it waits for, driver, take, output, and the scene of a render job.
std::string rowOf(const vxJ::_JobBasics_largePath& job) {
    const std::string waits = job.waitForPreIDCount == 0 ? "" : "<" + std::to_string(job.waitForPreIDs[0]);
    const std::string scene = job.app.toQString() == appNameHoudini ? "" : plainOf(job.sceneName);
    return std::to_string(job.preID) + waits + ' ' + plainOf(job.layer) + ' ' + plainOf(job.channel) + ' ' +
           plainOf(job.imageDir) + plainOf(job.imageFileName) + ' ' + scene + '|';
}

struct _copyCase {
    const char* what;
    QByteArray scene;
    int patterns;
    const char* copies;
};

const _copyCase copyCases[] = {
    {"takes_unless_bound", driver("vm_picture=/i/b.exr|take=wide", "out/b") + takes + single, 2,
     "3 /out/a Main /i/. |4 /out/a wide /i/. |"},
    {"one_take_named_twice", single + "take name Main\ntake name Main\n", 1, "2 /out/a Main /i/. |"},
    {"one_take_in_use", usesTake + "take name Main\n", 1, "2 /out/a Main /i/<Channel> |"},
    {"no_take_in_use", usesTake, 1, ""},
    {"pair_in_two_wedges", pair + wedge("prefix=q|steps1=1") + twoSteps, 2,
     "3 /out/a  /x/q_c_nan. |4 /out/a  /x/p_c_0.000000. |5 /out/a  /x/p_c_1.000000. |"
     "6<3 /out/a  /i/0. /x/q_c_nan.<FN3>.ifd|7<4 /out/a  /i/0. /x/p_c_0.000000.<FN3>.ifd|"
     "8<5 /out/a  /i/1. /x/p_c_1.000000.<FN3>.ifd|"},
    {"wedge_of_another_driver", single + wedge("driver=/out/A|steps1=2"), 1, ""},
};

class JobCopies : public testing::TestWithParam<_copyCase> {};

TEST_P(JobCopies, FollowTheirPatterns) {
    const auto loader = vxTest::loaded(GetParam().scene);
    std::string rows;
    for (int i = GetParam().patterns; i < loader->count(); ++i) rows += rowOf(loader->job(i));
    EXPECT_EQ(rows, GetParam().copies);
}

INSTANTIATE_TEST_SUITE_P(Table, JobCopies, testing::ValuesIn(copyCases), vxTest::rowName);

// The numbers have 8 bits and repeat; a host's own job may have any number.
TEST(JobCopiesInALongArray, RenderWhatTheirTruePartnerWrites) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    loader.array().setArraySize(310);
    loader.array().count = 1;
    loader.array().at(0)->preID = 2;  // as the export job's
    ASSERT_EQ(loader.load(takes + pair + wedge("steps1=50")), resultSuccess);
    ASSERT_EQ(loader.count(), 3 * (1 + 2) + 3 * 2 * 50);
    for (int i = 1; i < loader.count(); ++i) {
        const auto& job = loader.job(i);
        EXPECT_EQ(job.preID, (i + 1) % 256);
        if (job.waitForPreIDCount == 0) continue;
        int before = i - 1;
        while (before > 0 && loader.job(before).preID != job.waitForPreIDs[0]) --before;
        const auto& partner = loader.job(before);
        EXPECT_EQ(plainOf(job.sceneName), plainOf(partner.imageDir) + plainOf(partner.imageFileName) + "<FN3>.ifd");
        EXPECT_EQ(plainOf(job.channel), plainOf(partner.channel)) << i;
    }
}

// Pages that are mapped but not yet written cost nothing: a full array without its 3.7 GB.
TEST(JobCopiesInAFullArray, FillItToItsLastRecord) {
    constexpr int room = vxJ::jobArrayCapacity;
    constexpr std::size_t bytes = room * vxJ::largePathRecordSize;
    void* const pages =
        mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    ASSERT_NE(pages, MAP_FAILED);
    vxJ::_JobBasicsArray array;
    array.jobs = static_cast<vxJ::_JobBasics_largePath*>(pages);
    array.allocated = room;
    vxJ::_JobBasics_largePath& pattern = *array.at(room - 3);
    pattern.layer = u"/out/a";
    pattern.imageFileName = u"n$WEDGENUM";
    for (const auto& [steps, code, count] : {std::tuple{"steps1=2", qint32{resultSuccess}, room},
                                             {"steps1=3", resultNoMoreJobs, room + 1},
                                             {"steps1=40000|steps2=50000", resultNoMoreJobs, room + 1}}) {
        vxTest::freshScanState();
        vxTest::_loader loader;
        loader.scan(wedge(steps));
        pattern.imageFileName = u"n$WEDGENUM";
        array.count = room - 2;
        _jobWaits waits(array);
        const _resolvedDrivers noDrivers;
        _layerJobs noLayers(loader.record(), loader.facts(), noDrivers, {});
        EXPECT_EQ(_jobCopier(array, waits, noLayers).copyForWedges(), code) << steps;
        EXPECT_EQ(array.count, count) << steps;
        for (int i = 0; i < 2; ++i) EXPECT_EQ(plainOf(array.at(room - 2 + i)->imageFileName), "n" + std::to_string(i));
    }
    std::tie(array.jobs, array.allocated) = std::tuple(nullptr, 0);
    munmap(pages, bytes);
}

TEST(SecondLoad, FindsTheWedgesAndTakesOfTheFirst) {
    vxTest::loaded(twoSteps);
    nodeActiveTakes[_vxString<150>(u"/out/a")] = QStringLiteral("old");
    vxTest::_loader second;
    ASSERT_EQ(second.load(takes + single), resultSuccess);
    EXPECT_EQ(second.count(), (1 + 2) * (1 + 2));  // the driver's own section goes before its older take
}

}  // namespace

}  // namespace vxP
