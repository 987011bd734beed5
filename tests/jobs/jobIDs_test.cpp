// What a host asks of one job: its ID in letters, its variables, the jobs it waits for, its password.
#include "jobs/jobIDs.h"

#include <gtest/gtest.h>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "tests/testText.h"

namespace vxJ {

namespace {

using vxTest::plain;
using vxTest::plainOf;

struct _idCase {
    quint32 variant, stamp, extras;  ///< extras: extraA + 256 * extraB
    const char *letters, *full;
    quint32 packed;
};

constexpr _idCase idCases[] = {
    {0, 0, 0, "{AAA }", "AAA_AAAA", 0},
    {24, 100000, 0x2302, "{AALz}", "AALz_AA-C", 2584},
    {255, 466560000, 0, "{AAAlq}", "AAAlq_AAAA", 11944191},
    {12, 4294967295, 0, "{HPRn}", "HPRn_4+AA", 109950988},
};

TEST(JobID, ShowsAsLetters) {
    for (const _idCase& c : idCases) {
        _JobBasics_noSettings_noPaths job{};
        job.jobID = c.variant + (quint64{c.extras} << 8) + (quint64{c.stamp} << 24) + (quint64{0xFF} << 56);
        EXPECT_EQ(plain(job.IDstr()), c.letters);
        EXPECT_EQ(plain(job.IDstrFull()), c.full);
        EXPECT_EQ(job.IDmain(), c.stamp);
        EXPECT_EQ(_IDShort::fromID(job.jobID).int32(), c.packed);
        EXPECT_EQ(plain(_IDShort::fromInt32(c.packed).str()), c.letters);
    }
}

TEST(JobText, PutsVariablesIntoSquareBrackets) {
    const auto job = std::make_unique<_JobBasics_largePath>();
    job->layer = u"[Camera]";
    const auto names = {&job->imageFileName, &job->imageDir, &job->channels[99].fileName};
    for (auto* name : names) *name = u"[Layer][PNL]/[[Padding]] [padding] [No][] ]Layer[";
    job->replaceSquareBracketVariables();
    for (auto* name : names) EXPECT_EQ(plainOf(*name), "[Camera] /[4] [padding] [No][] ]Layer[");
}

TEST(WaitList, TakesThirtyTwoJobsAndNoMore) {
    const auto job = std::make_unique<_JobBasics>();
    job->setWaitForPreID(4, 9);
    for (const int outside : {-1, 32}) job->setWaitForPreID(outside, 7);
    EXPECT_EQ(job->waitForPreIDCount, 5);
    job->setWaitForPreID(0, 8);
    for (int id = 100; id < 140; ++id) job->addWaitForPreID(static_cast<quint8>(id));
    EXPECT_EQ(job->waitForPreIDCount, 32);
    EXPECT_EQ(std::tuple(job->waitForPreIDs[0], job->waitForPreIDs[4], job->waitForPreIDs[31]), std::tuple(8, 9, 126));
    job->waitForPreIDCount = 255;  // a damaged record
    job->addWaitForPreID(6);
    EXPECT_EQ(job->jobID, 0U) << "the field behind the list";
}

TEST(JobText, KnowsItsPasswordByItsHash) {
    const auto job = std::make_unique<_JobBasics_largePath>();
    job->setCommandPassword(_vxString8_allSize<40>("abc"));
    EXPECT_EQ(job->commandPasswordHash[0], 0xBA);  // SHA-256 of "abc": ba7816bf ... f20015ad
    EXPECT_TRUE(job->isRightCommandPW(passHashOf(_vxString8_allSize<40>("abc"))));
    EXPECT_FALSE(job->isRightCommandPW(passHashOf(_vxString8_allSize<40>("abC"))));
}

}  // namespace

}  // namespace vxJ
