// What a load does with more than any real scene holds.
#include <gtest/gtest.h>

#include <QTemporaryFile>
#include <cstring>
#include <functional>
#include <random>

#include "catalogues/camList.h"
#include "catalogues/wedges.h"
#include "grammar/houdiniVariables.h"
#include "plugin/vxSceneParserHoudini.h"
#include "scan/scanBudget.h"
#include "tests/support/sceneText.h"
#include "tests/support/twoScans.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::driver;
using vxTest::plainOf;
using vxTest::wide;

/// The text with its number in place of each "@", again and again.
QByteArray many(int count, const QByteArray& text) {
    QByteArray all;
    for (int number = 0; number < count; ++number) all += QByteArray(text).replace('@', QByteArray::number(number));
    return all;
}

QByteArray passes(const QByteArray& name) {
    return "vm_picture=/i/a.exr|" + many(20, "ar_aov_separate_file@=" + name + "|");
}

QByteArray wedge(const QByteArray& lines) {
    return driver("driver=/out/a|wedgemethod=channel|" + lines, "out/wedge1");
}

const QByteArray plainDriver = driver("vm_picture=/i/a.exr");
const QByteArray cameraOfDriver = driver("camera=/obj/cam@", "out/d@");
QByteArray nested(int depth) {
    return QByteArray("$WEDG").repeated(depth) + QByteArray(depth, 'E');
}

struct _limitCase {
    const char* what;
    std::function<QByteArray()> scene;
    qint32 code;
    int jobs;
};

const _limitCase limitCases[] = {
    {"a_million_variables", [] { return many(1000000, "set -g V@ = 'value@'\n") + driver("vm_picture=/i/$V7"); }, 1, 1},
    {"variables_beyond_memory",
     [] { return plainDriver + many(2000, "set -g V@ = '" + QByteArray(30000, 'x') + "'\n"); }, 6, 1},
    {"cameras_and_drivers",
     [] { return many(100000, driver("res=1\t2", "obj/cam@")) + many(100000, driver("camera=/obj/c", "out/d@")); }, 25,
     0},
    {"one_character_lines", [] { return plainDriver + QByteArray("x\n").repeated(10000000) + plainDriver; }, 1, 2},
    {"one_character_lines_in_a_section",
     [] {
         return "out/a.parm {\n" + QByteArray("x\n").repeated(10000000) + vxTest::params("vm_picture=/i/a.exr") + "}\n";
     },
     1, 1},
    {"sections_without_end", [] { return plainDriver + QByteArray("out/a.parm {\ntake\t(a\n}\n").repeated(1000000); },
     6, 1},
    {"nested_hashes", [] { return driver("vm_picture=/i/" + QByteArray("[#").repeated(400)); }, 1, 1},
    {"values_that_double",
     [] { return QByteArray("set -g A = '$A$A'\n").repeated(60) + driver("vm_picture=/i/$A.exr"); }, 1, 1},
    {"values_that_double_in_every_pass",
     [] { return plainDriver + QByteArray("set -g A = '$A$A'\n").repeated(60) + driver(passes("$A")).repeated(200); },
     6, 2},
    {"pass_tokens",
     [] {
         return driver("RS_outputFileNamePrefix=/i/a|RS_aovCustomPrefix_1=" + QByteArray("$AOV").repeated(7000) +
                       "|RS_aovSuffix_1=" + QByteArray(30000, 'x'));
     },
     1, 1},
    {"takes_of_one_name", [] { return plainDriver + many(1000000, "take name t 0\n"); }, 1, 2},
    {"wedge_variants_that_fit", [] { return plainDriver + wedge("name1=c|steps1=16383"); }, 1, vxJ::jobArrayCapacity},
    {"wedge_variants_beyond", [] { return plainDriver + wedge("name1=c|steps1=2000000000"); }, 7,
     vxJ::jobArrayCapacity + 1},
    {"wedge_channels", [] { return plainDriver + wedge(many(10001, "name@=c|steps@=1|")); }, 1, 2},
    {"wedge_channels_left_out", [] { return plainDriver + wedge("name10000=c|steps10000=1").repeated(20000); }, 1, 1},
    {"wedge_placeholders_in_each_other",
     [] { return driver(passes("$WEDGE")) + wedge("prefix=" + nested(150) + "|name1=c|steps1=300"); }, 6, 301},
};

class Limits : public testing::TestWithParam<_limitCase> {};

TEST_P(Limits, EndALoadInOrder) {
    vxTest::freshScanState();
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write(GetParam().scene());
    file.close();
    vxTest::_loader loader(file.fileName());
    EXPECT_EQ(pLoadSceneFile(&loader.record()), GetParam().code);
    EXPECT_EQ(loader.count(), GetParam().jobs);
}

INSTANTIATE_TEST_SUITE_P(Table, Limits, testing::ValuesIn(limitCases), vxTest::rowName);

/// A scene whose second line is 4 GB long.
class _longLine : public QIODevice {
 public:
    _longLine() { open(QIODevice::ReadOnly | QIODevice::Unbuffered); }
    bool isSequential() const override { return true; }

 protected:
    qint64 readData(char* data, qint64 most) override {
        if (left == 0) return end.readData(data, most);
        const qint64 count = std::min(most, left);
        std::memset(data, 'x', static_cast<std::size_t>(count));
        left -= count;
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

 private:
    struct _end : vxTest::_pieces {
        using _pieces::_pieces, _pieces::readData;
    };
    qint64 left = qint64{4} << 30;
    _end end{"\n" + driver("vm_picture=/i/b.exr"), 1 << 20, true};
};

TEST(LimitsOfLines, FourGigabytesLong) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    _longLine scene;
    _sceneFacts facts;
    EXPECT_EQ(scanScene(loader.record(), scene, facts), 1);
    EXPECT_EQ(loader.count(), 1);
}

TEST(LimitsOfNames, CutAtTheRecordsCapacity) {
    for (const int length : {149, 150, 151, 1000, 100000}) {
        vxTest::freshScanState();
        vxTest::_loader loader;
        const QByteArray name(length, 'n');
        const QByteArray lines = "vm_picture=/i/" + name + ".exr|take=wide|camera=/obj/" + name;
        ASSERT_EQ(loader.load(driver(lines, "out/" + name)), 1);
        const auto& job = loader.job(0);
        EXPECT_EQ(job.layer.length(), std::min(length + 5, 150));
        EXPECT_EQ(job.camera.length(), length + 5 <= 150 ? length + 5 : 0);  // a cut path finds no camera ...
        EXPECT_EQ(vxTest::plainOf(job.channel), "wide");                     // ... but its take
        EXPECT_EQ(job.imageDir.length() + job.imageFileName.length() + job.imageExtension.length(),
                  std::min(length + 7, 1000));
    }
}

TEST(LimitsOfNumbers, BeyondThirtyTwoBitsReadAsNothing) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    ASSERT_EQ(loader.load("frange 2147483648 99999999999999999999\n" + plainDriver +
                          driver("trange=\"normal\"|f=-2147483648\t2147483647\t4294967297|vm_picture=/i/a.exr")),
              1);
    EXPECT_EQ(loader.job(0).sceneSettings.seqStart, 0);
    EXPECT_EQ(loader.job(0).sceneSettings.seqEnd, 0);
    EXPECT_EQ(loader.job(1).sceneSettings.seqStart, -2147483648.0);
    EXPECT_EQ(loader.job(1).sceneSettings.seqEnd, 2147483647);
    EXPECT_EQ(loader.job(1).sceneSettings.seqStep, 0);
}

/// The catalogue's look-ups and the variables' are quicker than to try one after the other, and must not tell.
TEST(IndexedLists, FindWhatALookAtEveryEntryFinds) {
    std::mt19937 random(1);
    const QStringList letters{
        QStringLiteral("a"), QStringLiteral("A"),      QStringLiteral("k"),      QChar(0x212A),
        QChar(0xDF),         QStringLiteral("\u1E9E"), QStringLiteral("$"),      QStringLiteral("{"),
        QStringLiteral("s"), wide("\xF0\x90\x90\x80"), wide("\xF0\x90\x90\xA8"), QChar(0x130)};
    const auto text = [&](unsigned longest) {
        QString all;
        for (auto left = random() % (longest + 1); left > 0; --left) all += letters.at(static_cast<int>(random() % 12));
        return all;
    };
    for (int round = 0; round < 300; ++round) {
        beginBudget();
        QList<_namevalue> variables;
        struct _entry {
            QString lopName;
            QStringList renderNodes;
        };
        _nodeList<_entry> nodes;
        for (int i = 0; i < 20; ++i) {
            variables.append({text(3), text(3)});
            nodes.attach(nodes.find(text(2), true), text(2));
        }
        const _variableList list(variables);
        const QString searched = text(12);
        QList<_size> marks;
        for (_size at = searched.indexOf(u'$'); at >= 0; at = searched.indexOf(u'$', at + 1)) marks.append(at);
        const auto stands = [&](const QString& name) {
            return std::any_of(marks.begin(), marks.end(), [&](_size mark) {
                const QString rest = searched.mid(mark + 1);
                return rest.startsWith(name, Qt::CaseInsensitive) || rest.startsWith(u'{' + name, Qt::CaseInsensitive);
            });
        };
        for (_size from = 0; from <= variables.size(); ++from) {
            _size first = from;
            while (first < variables.size() && !stands(variables.at(first).name)) ++first;
            EXPECT_EQ(list.firstNamedIn(searched, marks, from), first < variables.size() ? first : -1);
        }
        const QString path = text(2);
        qint32 byPath = -1;
        qint32 byDriver = -1;
        for (auto i = static_cast<qint32>(nodes.entries().size()); i-- > 0;) {
            if (nodes.entries().at(i).lopName.compare(path, Qt::CaseInsensitive) == 0) byPath = i;
            if (nodes.entries().at(i).renderNodes.contains(path)) byDriver = i;
        }
        EXPECT_EQ(nodes.find(path, false), byPath);
        EXPECT_EQ(nodes.findByDriver(path), byDriver);
    }
}

}  // namespace

}  // namespace vxP
