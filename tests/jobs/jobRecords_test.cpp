#include <gtest/gtest.h>

#include <cstring>

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace {

/// What a new one holds: recordLayout.golden.
template <class Record>
void expectClearedToNew(bool isLargePath) {
    const auto job = std::make_unique<Record>();
    std::memset(static_cast<void*>(job.get()), 0xFF, sizeof(Record));
    job->structureIDs[0] = 7;
    EXPECT_EQ(job->vxClearBasics(), isLargePath);
    EXPECT_EQ(job->structureIDs[0], 7);
    EXPECT_EQ(job->structureIDs[9], 0xFFFF);
    job->initialize();
    EXPECT_EQ(std::memcmp(job.get(), std::make_unique<Record>().get(), sizeof(Record)), 0);
}

TEST(JobRecord, OfAnyBytesClearsToANewOne) {
    expectClearedToNew<vxJ::_JobBasics_largePath>(true);
    expectClearedToNew<vxJ::_JobBasics>(false);
}

TEST(WaitList, TakesThirtyTwoJobsAndNoMore) {
    const auto job = std::make_unique<vxJ::_JobBasics>();
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

}  // namespace
