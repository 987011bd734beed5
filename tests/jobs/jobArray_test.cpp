#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstring>
#include <limits>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "tests/testText.h"

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
    ASSERT_TRUE(array.getNewJob(job));
    EXPECT_EQ(job, array.at(0));
    EXPECT_EQ(array.count, 1);
    EXPECT_EQ(array.allocated, 40);
    EXPECT_TRUE(job->layer.isEmpty());
}

TEST(JobArray, NewRecordsAreInitialisedAndNoneIsTakenAway) {
    _JobBasicsArray array;
    ASSERT_TRUE(array.setArraySize(2));
    ASSERT_TRUE(array.setArraySize(5));
    _JobBasics_largePath* const kept = array.jobs;
    for (const qint32 roomFor : {1, 0, -1}) EXPECT_TRUE(array.setArraySize(roomFor));
    EXPECT_FALSE(array.setArraySize(16385));
    EXPECT_EQ(array.jobs, kept);
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

TEST(JobArray, SupportsItsOwnLayoutOnly) {
    _JobBasicsArray array;
    for (const quint8 minor : {quint8{0}, quint8{1}, quint8{2}}) EXPECT_EQ(array.isVersionSupported(minor), minor < 2);
    array.recordSize = 226964;
    EXPECT_FALSE(array.isVersionSupported(1));
    array.recordSize = 226968;
    array.structureVersion = 1034;
    EXPECT_FALSE(array.isVersionSupported(1));
}

#ifndef __SANITIZE_ADDRESS__  // its own address space is larger than any limit
TEST(JobArray, KeepsTheOldBlockWhenMemoryIsShort) {
    _JobBasicsArray array, empty;
    ASSERT_TRUE(array.setArraySize(1));
    array.at(0)->layer = u"/out/kept";
    rlimit before{};
    getrlimit(RLIMIT_AS, &before);
    const rlimit low{rlim_t{512} << 20U, before.rlim_max};
    setrlimit(RLIMIT_AS, &low);
    EXPECT_FALSE(array.setArraySize(16384));
    EXPECT_FALSE(empty.setArraySize(16384));
    setrlimit(RLIMIT_AS, &before);
    EXPECT_EQ(array.allocated, 1);
    EXPECT_EQ(vxTest::plainOf(array.at(0)->layer), "/out/kept");
    EXPECT_EQ(empty.jobs, nullptr);
    EXPECT_EQ(empty.at(0), nullptr);
}
#endif

}  // namespace
