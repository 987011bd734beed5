#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstring>
#include <limits>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "tests/testText.h"

using vxJ::_JobBasics_largePath;
using vxJ::_JobBasicsArray;

namespace {

TEST(JobArray, GrowsByOneAndKeepsItsRecords) {
    _JobBasicsArray array;
    EXPECT_EQ(array.at(0), nullptr);
    for (int i = 1; i <= 40; ++i) {
        _JobBasics_largePath* job = nullptr;
        ASSERT_TRUE(array.getNewJob(job));
        EXPECT_EQ(array.count, i);
        EXPECT_EQ(array.allocated, i);
        EXPECT_EQ(job, array.at(i - 1));
        job->layer = QString::number(i);
    }
    for (int i = 1; i <= 40; ++i) EXPECT_EQ(array.at(i - 1)->layer.toQString(), QString::number(i));
    EXPECT_EQ(array.at(40), nullptr);
    EXPECT_EQ(array.at(-1), nullptr);
}

TEST(JobArray, ClearedArrayReusesItsRecords) {
    _JobBasicsArray array;
    _JobBasics_largePath* first = nullptr;
    ASSERT_TRUE(array.getNewJob(first));
    first->layer = u"/out/old";
    array.message = u"options";
    array.clear();
    EXPECT_TRUE(array.message.isEmpty());
    _JobBasics_largePath* again = nullptr;
    ASSERT_TRUE(array.getNewJob(again));
    EXPECT_EQ(again, first);
    EXPECT_EQ(array.count, 1);
    EXPECT_EQ(array.allocated, 1);
    EXPECT_TRUE(again->layer.isEmpty());
}

TEST(JobArray, NewRecordsAreInitialisedAndNoneIsTakenAway) {
    _JobBasicsArray array;
    ASSERT_TRUE(array.setArraySize(2));
    ASSERT_TRUE(array.setArraySize(5));
    EXPECT_TRUE(array.setArraySize(1));
    EXPECT_EQ(array.allocated, 5);
    const auto fresh = std::make_unique<_JobBasics_largePath>();
    for (int i = 0; i < 5; ++i) EXPECT_EQ(std::memcmp(array.at(i), fresh.get(), sizeof *fresh), 0) << i;
}

TEST(JobArray, RefusesSizesOutOfBounds) {
    _JobBasicsArray array;
    EXPECT_FALSE(array.setArraySize(16385));
    EXPECT_FALSE(array.setArraySize(-1));
    ASSERT_TRUE(array.setArraySize(1));
    _JobBasics_largePath* const kept = array.jobs;
    EXPECT_FALSE(array.setArraySize(16385));
    EXPECT_EQ(array.jobs, kept);
    EXPECT_EQ(array.allocated, 1);
}

TEST(JobArray, NoRoomCountsTheJobAllTheSame) {
    struct _case {
        qint32 count;
        qint32 countAfter;
    };
    constexpr qint32 most = std::numeric_limits<qint32>::max();
    constexpr qint32 least = std::numeric_limits<qint32>::min();
    for (const _case& hostCount : {_case{16384, 16385}, {most, least}, {least, least + 1}, {-1, 0}}) {
        _JobBasicsArray array;
        array.count = hostCount.count;
        _JobBasics_largePath* job = nullptr;
        EXPECT_FALSE(array.getNewJob(job));
        EXPECT_EQ(job, nullptr);
        EXPECT_EQ(array.count, hostCount.countAfter);
        EXPECT_EQ(array.jobs, nullptr);
    }
}

TEST(JobArray, SupportsItsOwnLayoutOnly) {
    _JobBasicsArray array;
    EXPECT_TRUE(array.isVersionSupported(0));
    EXPECT_TRUE(array.isVersionSupported(1));
    EXPECT_FALSE(array.isVersionSupported(2));
    array.recordSize = 226964;
    EXPECT_FALSE(array.isVersionSupported(1));
    array.recordSize = 226968;
    array.structureVersion = 1034;
    EXPECT_FALSE(array.isVersionSupported(1));
}

#ifndef __SANITIZE_ADDRESS__  // its own address space is larger than any limit
/// Lets no allocation of more than a few hundred megabytes succeed.
class _memoryLimit {
 public:
    _memoryLimit() {
        getrlimit(RLIMIT_AS, &before);
        const rlimit low{rlim_t{512} << 20U, before.rlim_max};
        setrlimit(RLIMIT_AS, &low);
    }
    ~_memoryLimit() { setrlimit(RLIMIT_AS, &before); }
    _memoryLimit(const _memoryLimit&) = delete;
    _memoryLimit& operator=(const _memoryLimit&) = delete;

 private:
    rlimit before{};
};

TEST(JobArray, KeepsTheOldBlockWhenMemoryIsShort) {
    _JobBasicsArray array;
    ASSERT_TRUE(array.setArraySize(1));
    array.at(0)->layer = u"/out/kept";
    _JobBasicsArray empty;
    const _memoryLimit limit;
    EXPECT_FALSE(array.setArraySize(16384));
    EXPECT_EQ(array.allocated, 1);
    EXPECT_EQ(vxTest::plainOf(array.at(0)->layer), "/out/kept");
    EXPECT_FALSE(empty.setArraySize(16384));
    EXPECT_EQ(empty.jobs, nullptr);
    EXPECT_EQ(empty.at(0), nullptr);
}
#endif

}  // namespace
