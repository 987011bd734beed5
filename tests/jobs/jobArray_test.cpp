#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "jobs/recordImage.h"

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
    std::memset(static_cast<void*>(first), 0xab, sizeof *first);
    std::memcpy(fresh->structureIDs, first->structureIDs, sizeof fresh->structureIDs);  // the words at its head stay
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

TEST(JobArray, GrowsABlockOfTheHostThatIsFullOfOtherBytes) {
    for (const int before : {1, 170}) {
        _JobBasicsArray array;
        const std::size_t bytes = static_cast<std::size_t>(before) * sizeof(_JobBasics_largePath);
        array.jobs = static_cast<_JobBasics_largePath*>(std::malloc(bytes + 4096));
        std::memset(static_cast<void*>(array.jobs), 0xab, bytes + 4096);
        array.allocated = before;
        ASSERT_TRUE(array.setArraySize(before + 3));
        const auto fresh = std::make_unique<_JobBasics_largePath>();
        const std::string old(bytes, '\xab');
        EXPECT_EQ(std::memcmp(static_cast<void*>(array.jobs), old.data(), bytes), 0);
        for (int i = before; i < before + 3; ++i)
            EXPECT_EQ(std::memcmp(array.at(i), fresh.get(), sizeof *fresh), 0) << before << ' ' << i;
    }
}

/// Bytes of a record that is copied to one that is clear.
struct _bytes {
    const char* what;
    std::size_t begin, size;
    char content;
    int channelsEnd;
};
constexpr std::size_t channels = 15780, slot = 2062;
constexpr _bytes copied[] = {
    {"nothing_but_defaults", 0, 0, 0, 0},
    {"no_defaults", 0, sizeof(_JobBasics_largePath), 0, 0},
    {"other_everywhere", 0, sizeof(_JobBasics_largePath), 'x', 100},
    {"behind_a_texts_end", 5000, 3, 'x', 0},
    {"end_of_an_empty_slot", channels + 3 * slot - 2, 2, 'x', 0},
    {"first_slot", channels, 2, 'x', 1},
    {"slots_with_a_gap", channels + 40 * slot, slot + 2, 'x', 42},
    {"last_slot", channels + 99 * slot, 1, 'x', 100},
    {"last_byte", sizeof(_JobBasics_largePath) - 1, 1, 'x', 0},
};

TEST(RecordImage, GivesCopiesThatAreEqualToTheByte) {
    const vxJ::_writtenPages pages;
    for (const _bytes& row : copied) {
        _JobBasicsArray array;
        ASSERT_TRUE(array.setArraySize(2));
        std::memset(reinterpret_cast<char*>(array.at(0)) + row.begin, row.content, row.size);
        vxJ::_recordImage(*array.at(0), pages).copy(*array.at(0), *array.at(1));
        EXPECT_EQ(std::memcmp(array.at(0), array.at(1), sizeof(_JobBasics_largePath)), 0) << row.what;
        for (const int i : {0, 1}) EXPECT_EQ(vxJ::channelsEnd(*array.at(i), pages), row.channelsEnd) << row.what;
    }
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
