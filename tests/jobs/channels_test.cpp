// Names and places; that no store of any bytes is left is fuzz/channels.cpp's to show.
#include <gtest/gtest.h>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "tests/testText.h"

using vxTest::plainOf;
using vxTest::wide;

namespace {

class Channels : public testing::Test {
 protected:
    void add(const std::string& name, const std::string& extension) {
        job->channelAdd(vxJ::_vxString<500>(wide(name)), vxJ::_vxString<25>(wide(extension)));
    }
    void rename(int i, const std::string& name) { job->channelSetFileName(i, vxJ::_vxString<500>(wide(name))); }
    void setExtension(int i, const std::string& text) { job->channelSetExtension(i, vxJ::_vxString<25>(wide(text))); }
    /// "name|extension" of every channel, in order, each followed by a blank.
    std::string all() const {
        std::string list;
        for (int i = 0; i < job->channelCount; ++i)
            list += plainOf(job->channelFileName(i)) + "|" + plainOf(job->channelExtension(i)) + " ";
        return list;
    }

    std::unique_ptr<vxJ::_JobBasics> job = std::make_unique<vxJ::_JobBasics>();
};

TEST_F(Channels, PackTheirTextsInOrder) {
    add("a", ".exr");
    add("", ".tif");  // no name, no channel
    add("bc", "");
    EXPECT_EQ(all(), "a|.exr bc| ");
    EXPECT_EQ(vxTest::plain(QStringView(job->channelPool, 8)), std::string("a.exrbc\0", 8));
    rename(0, "abc");
    EXPECT_EQ(job->channelStart[1], 7);
    setExtension(1, ".new");
    EXPECT_EQ(all(), "abc|.exr bc|.new ");
    setExtension(1, "");
    for (const int outside : {-1, 2}) rename(outside, "x");
    EXPECT_EQ(all(), "abc|.exr bc|.new ");
    EXPECT_EQ(job->channelPoolUsed, 7 + 6);
}

TEST_F(Channels, RemovedOneIsOverwrittenByTheLaterOnes) {
    add("a", ".1");
    add("bb", "");
    add("ccc", ".3");
    job->channelRemove(0);
    EXPECT_EQ(all(), "bb|.1 ccc|.3 ");  // an empty extension replaces none
    for (const int i : {0, 1, -1}) job->channelRemove(i);
    EXPECT_EQ(all(), "ccc|.3 ");
}

TEST_F(Channels, FillThePoolUpToItsLastCharacter) {
    for (int i = 0; i < 15; ++i) add(std::string(500, 'n'), std::string(25, 'e'));
    job->channelPool[7999] = u'L';
    add(std::string(125, 'x'), "");  // 7875 + 125: one too many
    EXPECT_EQ(job->channelCount, 15);
    add(std::string(120, 'x'), ".tif");
    EXPECT_EQ(job->channelPoolUsed, 7999);
    rename(15, std::string(121, 'y'));
    EXPECT_EQ(plainOf(job->channelFileName(15)), std::string(120, 'x'));
    rename(0, "short");
    job->channelClearUnusedBuffer();
    EXPECT_EQ(job->channelPool[job->channelPoolUsed - 1], u'f');
    EXPECT_EQ(job->channelPool[job->channelPoolUsed], 0);
    EXPECT_EQ(job->channelPool[7998], 0);
    EXPECT_EQ(job->channelPool[7999], u'L');
}

TEST_F(Channels, DamagedNumbersReadAsEmpty) {
    const std::tuple<const char*, qint16, qint16, qint16, quint16, const char*> cases[] = {
        {"negative start", -1, 4, 2, 10, "| "}, {"name past use", 7, 4, 2, 10, "| "},
        {"no name", 3, 0, 2, 10, "|aa "},       {"extension past use", 5, 4, 2, 10, "aaaa| "},
        {"long name", 0, 501, 2, 600, "|aa "},  {"past pool", 7998, 2, 0, 65535, "| "},
        {"sound", 0, 4, 2, 10, "aaaa|aa "},     {"negative extension", 5, 3, -2, 10, "aaa| "}};
    std::fill_n(job->channelPool, 8000, u'a');
    job->channelCount = 1;
    for (const auto& [what, start, nameLength, extensionLength, used, read] : cases) {
        job->channelStart[0] = start;
        job->channelNameLen[0] = nameLength;
        job->channelExtLen[0] = extensionLength;
        job->channelPoolUsed = used;
        EXPECT_EQ(all(), read) << what;
    }
}

}  // namespace
