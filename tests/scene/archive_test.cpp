#include "scene/archive.h"

#include <gtest/gtest.h>

#include <limits>

#include "scan/scanBudget.h"
#include "tests/support/archiveText.h"
#include "tests/testText.h"

namespace vxN {

namespace {

using vxTest::_entryText;
using vxTest::licensedArchive;
using vxTest::licensedEntry;
using vxTest::openArchive;
using vxTest::openEntry;

/// What is made to fail, and how much was asked for.
class _watchedSource : public _memorySource {
 public:
    using _memorySource::_memorySource;
    qint64 readAt(qint64 offset, char* data, qint64 most) const override {
        bytesRead += most;
        return offset + most > failsAt ? -1 : _memorySource::readAt(offset, data, most);
    }

    qint64 failsAt = std::numeric_limits<qint64>::max();
    mutable qint64 bytesRead = 0;
};

/// "name=body name=body", of each body its start.
std::string entriesOf(_archive& archive) {
    vxP::beginBudget();
    std::string entries;
    while (const auto entry = archive.next())
        entries += (entries.empty() ? "" : " ") + entry->name + '=' + archive.read(entry->body, 8);
    return entries;
}

std::string replaced(std::string text, const std::string& before, const std::string& after) {
    for (std::size_t at = 0; (at = text.find(before, at)) != std::string::npos; at += after.size())
        text.replace(at, before.size(), after);
    return text;
}

const std::vector<_entryText> two{{"a.init", "x\n"}, {"a.b.parm", "{\n}\n"}};
constexpr const char* twoEntries = "a.init=x\n a.b.parm={\n}\n";
const std::string openTwo = openArchive(two);
const std::string licensedTwo = licensedArchive(two);
const std::string beginOfOpen = openEntry(two[0]);

// Definitions with archives in them.
const std::string script = "a dialog script, which is longer than the header that stands in front of what follows";
const _entryText openDefinition{".OPdummydefs", "INDX" + openArchive({{"n.parm", "?"}}) + script};
const _entryText definition{".OPdummydefs", "INDX" + licensedArchive({{"n.parm", "?"}}) + script};
const _entryText embedded{".defotl", "INDX" + licensedArchive({{"e.parm", "?"}}) + script};
const _entryText functions{"expression.func", ""};

struct _archiveCase {
    const char* what;
    std::string bytes;
    const char* entries;
    _archiveEnd end;
};

const _archiveCase archiveCases[] = {
    {"open", openTwo, twoEntries, _archiveEnd::complete},
    {"licensed", licensedTwo, twoEntries, _archiveEnd::complete},
    {"empty", "", "", _archiveEnd::cut},
    {"no_archive", "some text\nof lines\n", "", _archiveEnd::cut},
    {"bytes_behind_the_trailer", openTwo + openTwo, twoEntries, _archiveEnd::complete},
    {"padded", openTwo + std::string(1000, '\0'), twoEntries, _archiveEnd::complete},
    {"no_trailer", beginOfOpen, "a.init=x\n", _archiveEnd::cut},
    {"no_licensed_trailer", licensedEntry(two[0]), "a.init=x\n", _archiveEnd::cut},
    {"cut_in_a_body", openTwo.substr(0, beginOfOpen.size() + 87), "a.init=x\n a.b.parm={\n", _archiveEnd::cut},
    {"cut_in_a_header", openTwo.substr(0, beginOfOpen.size() + 60), "a.init=x\n", _archiveEnd::cut},
    {"first_header_unfit", "070707 " + openTwo, twoEntries, _archiveEnd::broken},
    {"size_too_great", replaced(openTwo, "2a.init", "3a.init"), twoEntries, _archiveEnd::broken},
    {"size_too_small", replaced(openTwo, "2a.init", "1a.init"), twoEntries, _archiveEnd::broken},
    {"size_behind_the_end", replaced(openTwo, "0002a.init", "7772a.init"), twoEntries, _archiveEnd::broken},
    {"other_line_ends", replaced(openTwo, "\n", "\r\n"), "a.init=x\r\n a.b.parm={\r\n}\r\n", _archiveEnd::broken},
    {"header_in_a_body", openArchive({{"a.parm", beginOfOpen}}), "a.parm=07070700", _archiveEnd::complete},
    {"definition", openArchive({openDefinition, two[0]}), ".OPdummydefs=INDX0707 a.init=x\n", _archiveEnd::complete},
    {"cut_definition", openArchive({two[0], openDefinition}).substr(0, 350), "a.init=x\n .OPdummydefs=INDX0707",
     _archiveEnd::cut},
    {"broken_and_definition", "070707" + openArchive({openDefinition, functions, two[0]}),
     ".OPdummydefs=INDX0707 expression.func= a.init=x\n", _archiveEnd::broken},
    {"licensed_definitions", licensedArchive({embedded, {".start", "s"}, definition, functions, two[0]}),
     ".defotl=INDXHouN .start=s .OPdummydefs=INDXHouN expression.func= a.init=x\n", _archiveEnd::complete},
    {"licensed_definition_alone", licensedArchive({{".OPdummydefs", "INDX"}, two[0]}), ".OPdummydefs=INDX a.init=x\n",
     _archiveEnd::complete},
    {"licensed_cut_in_a_definition", licensedEntry(two[0]) + licensedEntry(definition),
     "a.init=x\n .OPdummydefs=INDXHouN", _archiveEnd::cut},
};

class Archive : public testing::TestWithParam<_archiveCase> {};

TEST_P(Archive, GivesItsEntriesAndHowItEnds) {
    const _memorySource source(GetParam().bytes);
    _archive archive(source);
    EXPECT_EQ(entriesOf(archive), GetParam().entries);
    EXPECT_EQ(archive.end(), GetParam().end);
    EXPECT_EQ(endsWithTrailer(source, archiveKindOf(source)), GetParam().end != _archiveEnd::cut);
}

INSTANTIATE_TEST_SUITE_P(Table, Archive, testing::ValuesIn(archiveCases), vxTest::rowName);

TEST(ArchiveSource, IsNotReadWhereNobodyAsks) {
    const std::string scene = openArchive({two[0], {"a.data", std::string(4'000'000, 'g')}, two[1]});
    _watchedSource source(scene);
    _archive archive(source);
    EXPECT_EQ(entriesOf(archive), "a.init=x\n a.data=gggggggg a.b.parm={\n}\n");
    EXPECT_LT(source.bytesRead, 400'000);

    source.failsAt = 3'000'000;
    _archive unreadable(source);
    EXPECT_EQ(entriesOf(unreadable), "a.init=x\n a.data=");
    EXPECT_EQ(unreadable.end(), _archiveEnd::unreadable);
}

}  // namespace

}  // namespace vxN
