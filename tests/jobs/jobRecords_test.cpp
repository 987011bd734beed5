#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "tests/testText.h"

using vxTest::plainOf;

namespace {

template <class Record>
class JobForms : public testing::Test {};

using _forms = testing::Types<vxJ::_JobBasics_largePath, vxJ::_JobBasics>;
TYPED_TEST_SUITE(JobForms, _forms);

constexpr bool isLargePath(const vxJ::_JobBasics_largePath&) {
    return true;
}
constexpr bool isLargePath(const vxJ::_JobBasics&) {
    return false;
}

TYPED_TEST(JobForms, RecordOfAnyBytesClearsToANewOne) {
    const auto job = std::make_unique<TypeParam>();
    std::memset(static_cast<void*>(job.get()), 0xFF, sizeof(TypeParam));
    job->structureIDs[0] = 7;
    EXPECT_EQ(job->vxClearBasics(), isLargePath(*job));
    EXPECT_EQ(job->structureIDs[0], 7);
    EXPECT_EQ(job->structureIDs[9], 0xFFFF);

    job->initialize();
    const auto fresh = std::make_unique<TypeParam>();
    EXPECT_EQ(std::memcmp(job.get(), fresh.get(), sizeof(TypeParam)), 0);
}

TYPED_TEST(JobForms, NewRecordIsZeroApartFromItsDefaults) {
    const auto job = std::make_unique<TypeParam>();
    EXPECT_EQ(job->structureIDs[0], 1033);
    EXPECT_EQ(job->structureIDs[1], 1);
    EXPECT_EQ(job->jobKind, 2);
    EXPECT_EQ(job->imagePadding, 4);
    EXPECT_EQ(job->sceneSettings.seqStart, 1.0);
    EXPECT_EQ(job->sceneSettings.seqEnd, 1.0);
    EXPECT_EQ(job->sceneSettings.seqStep, 1);
    const std::string automatic = isLargePath(*job) ? "" : "<auto>";
    const std::string texts[] = {"", automatic, automatic, automatic, ""};
    for (int i = 0; i < 5; ++i) EXPECT_EQ(plainOf(job->sceneSettings.unnamedTexts[i]), texts[i]) << i;

    job->structureIDs[0] = job->structureIDs[1] = 0;
    job->jobKind = job->imagePadding = 0;
    std::memset(static_cast<void*>(&job->sceneSettings), 0, sizeof job->sceneSettings);
    const auto* const bytes = reinterpret_cast<const quint8*>(job.get());
    EXPECT_EQ(std::count(bytes, bytes + sizeof(TypeParam), 0), sizeof(TypeParam));
}

TEST(WaitList, TakesThirtyTwoJobsAndNoMore) {
    const auto job = std::make_unique<vxJ::_JobBasics>();
    for (int id = 100; id < 140; ++id) job->addWaitForPreID(static_cast<quint8>(id));
    EXPECT_EQ(job->waitForPreIDCount, 32);
    EXPECT_EQ(job->waitForPreIDs[31], 131);
    EXPECT_EQ(job->jobID, 0U);
}

TEST(WaitList, SettingAnEntryGrowsTheCountOnly) {
    const auto job = std::make_unique<vxJ::_JobBasics>();
    job->setWaitForPreID(4, 9);
    EXPECT_EQ(job->waitForPreIDCount, 5);
    job->setWaitForPreID(0, 8);
    job->setWaitForPreID(-1, 7);
    job->setWaitForPreID(32, 7);
    EXPECT_EQ(job->waitForPreIDCount, 5);
    EXPECT_EQ(job->waitForPreIDs[0], 8);
    EXPECT_EQ(job->waitForPreIDs[4], 9);
    job->waitForPreIDCount = 255;  // a damaged record
    job->addWaitForPreID(6);
    EXPECT_EQ(job->jobID, 0U);
}

}  // namespace
