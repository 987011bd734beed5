#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "jobs/VX_DataTypes_jobs0_Basics.h"

using vxJ::_JobBasics_largePath;
using vxJ::_JobBasicsArray;

namespace {

TEST(JobArray, GrowsByOneKeepsItsRecordsAndReusesThem) {
    _JobBasicsArray array;
    EXPECT_EQ(array.at(0), nullptr);
    _JobBasics_largePath* job = nullptr;
    for (int i = 1; i <= 40; ++i) {
        ASSERT_TRUE(array.getNewJob(job));
        EXPECT_EQ(array.allocated, i);
        EXPECT_EQ(job, array.at(i - 1));
        job->layer = QString::number(i);
    }
    for (int i = 1; i <= 40; ++i) EXPECT_EQ(array.at(i - 1)->layer.toQString(), QString::number(i));
    for (const int outside : {-1, 40}) EXPECT_EQ(array.at(outside), nullptr);
    array.message = u"options";
    array.clear();
    EXPECT_TRUE(array.message.isEmpty());
    _JobBasics_largePath* const first = array.at(0);
    const auto fresh = std::make_unique<_JobBasics_largePath>();
    fresh->structureIDs[9] = first->structureIDs[9] = 7;  // the words at its head stay
    ASSERT_TRUE(array.getNewJob(job));
    EXPECT_EQ(std::tuple(job, array.count, array.allocated), std::tuple(first, 1, 40));
    EXPECT_EQ(std::memcmp(job, fresh.get(), sizeof *job), 0);
}

TEST(JobArray, NewRecordsAreInitialisedAndNoneIsTakenAway) {
    _JobBasicsArray array;
    ASSERT_TRUE(array.setArraySize(2) && array.setArraySize(5));
    for (const qint32 roomFor : {1, 0, -1}) EXPECT_TRUE(array.setArraySize(roomFor));
    EXPECT_FALSE(array.setArraySize(16385));
    EXPECT_EQ(array.allocated, 5);
    const auto fresh = std::make_unique<_JobBasics_largePath>();
    for (int i = 0; i < 5; ++i) EXPECT_EQ(std::memcmp(array.at(i), fresh.get(), sizeof *fresh), 0) << i;
}

TEST(JobArray, NoRoomCountsTheJobAllTheSame) {
    constexpr qint32 most = std::numeric_limits<qint32>::max();
    constexpr qint32 least = std::numeric_limits<qint32>::min();
    for (const auto& [count, countAfter] : {std::pair{16384, 16385}, {most, least}, {least, least + 1}, {-1, 0}}) {
        _JobBasicsArray array;
        array.count = count;
        _JobBasics_largePath* job = nullptr;
        EXPECT_FALSE(array.getNewJob(job));
        EXPECT_EQ(job, nullptr);
        EXPECT_EQ(array.count, countAfter);
        EXPECT_EQ(array.jobs, nullptr);
    }
}

}  // namespace
