#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "tests/testText.h"

using vxTest::plainOf;

namespace {

template <class Record>
class JobForms : public testing::Test {};

using _forms = testing::Types<vxJ::_JobBasics_largePath, vxJ::_JobBasics>;
TYPED_TEST_SUITE(JobForms, _forms);

template <class Record>
constexpr bool isLargePath = std::is_same_v<Record, vxJ::_JobBasics_largePath>;

TYPED_TEST(JobForms, RecordOfAnyBytesClearsToANewOne) {
    const auto job = std::make_unique<TypeParam>();
    std::memset(static_cast<void*>(job.get()), 0xFF, sizeof(TypeParam));
    job->structureIDs[0] = 7;
    EXPECT_EQ(job->vxClearBasics(), isLargePath<TypeParam>);
    EXPECT_EQ(job->structureIDs[0], 7);
    EXPECT_EQ(job->structureIDs[9], 0xFFFF);

    job->initialize();
    const auto fresh = std::make_unique<TypeParam>();
    EXPECT_EQ(std::memcmp(job.get(), fresh.get(), sizeof(TypeParam)), 0);
}

TYPED_TEST(JobForms, NewRecordIsZeroApartFromItsDefaults) {
    const auto job = std::make_unique<TypeParam>();
    EXPECT_EQ(std::tuple(job->structureIDs[0], job->structureIDs[1], job->jobKind, job->imagePadding),
              std::tuple(1033, 1, 2, 4));
    const auto& settings = job->sceneSettings;
    EXPECT_EQ(settings.seqStart, 1.0);
    EXPECT_EQ(settings.seqEnd, 1.0);
    EXPECT_EQ(settings.seqStep, 1);
    const std::string automatic = isLargePath<TypeParam> ? "" : "<auto>";
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
    job->setWaitForPreID(4, 9);
    for (const int outside : {-1, 32}) job->setWaitForPreID(outside, 7);
    EXPECT_EQ(job->waitForPreIDCount, 5);
    job->setWaitForPreID(0, 8);
    for (int id = 100; id < 140; ++id) job->addWaitForPreID(static_cast<quint8>(id));
    EXPECT_EQ(job->waitForPreIDCount, 32);
    EXPECT_EQ(std::tuple(job->waitForPreIDs[0], job->waitForPreIDs[4], job->waitForPreIDs[31]), std::tuple(8, 9, 126));
    job->waitForPreIDCount = 255;  // a damaged record
    job->addWaitForPreID(6);
    EXPECT_EQ(job->jobID, 0U);
}

}  // namespace
