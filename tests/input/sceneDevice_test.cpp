// That no wanted line is left out is fuzz/sceneDevice.cpp's to show.
#include "input/sceneDevice.h"

#include <gtest/gtest.h>

#include <QTextStream>

#include "plugin/sceneScan.h"
#include "scan/scanBudget.h"
#include "scan/scanObserver.h"
#include "scan/scanState.h"
#include "tests/support/pieces.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::_pieces;

QStringList linesOf(_sceneDevice& device) {
    QTextStream stream(&device);
    QStringList lines;
    while (!stream.atEnd()) lines.append(stream.readLine());
    return lines;
}

TEST(SceneDevice, DropsAByteOrderMarkAtTheVeryStartAlone) {
    for (const auto& [scene, first] : {std::pair{"\xEF\xBB\xBF"
                                                 "frange 7 9\n",
                                                 "frange 7 9"},
                                       {"\n\xEF\xBB\xBF"
                                        "frange 7 9\n",
                                        ""}}) {
        for (const qint64 piece : {1, 1000}) {
            _pieces source(scene, piece, true);
            _sceneDevice device(source);
            EXPECT_EQ(linesOf(device).value(0), QLatin1String(first));
        }
    }
}

TEST(SceneDevice, LeavesOutWhatNobodyWants) {
    _pieces source("first\nunwanted\nframe\nfrange 1 2\nx.parm {\nout/a.parm {\nobj/box.parm\n", 1000, true);
    _sceneDevice device(source);
    EXPECT_EQ(linesOf(device).join(u'|'), QLatin1String("first|frange 1 2|out/a.parm {"));
}

TEST(SceneDevice, HandsOutOneLineARead) {
    _pieces source("first\ntake name a\ntx\t(1)\ntake\t(b)\n}\ntake name c\n", 3, true);
    _sceneDevice device(source);
    QTextStream stream(&device);
    EXPECT_EQ(stream.readLine(), QLatin1String("first"));
    EXPECT_EQ(stream.readLine(), QLatin1String("take name a"));
    device.setSectionOpen(true);
    EXPECT_EQ(QTextStream(&device).readLine(), QLatin1String("take\t(b)"));
    EXPECT_EQ(stream.readLine(), QLatin1String("}"));
    device.setSectionOpen(false);
    EXPECT_EQ(stream.readLine(), QLatin1String("take name c"));
    EXPECT_TRUE(stream.atEnd());
}

/// Of a line too long to keep, the beginning and the end count.
TEST(SceneDevice, ReadsLongLinesByTheirEnds) {
    for (const int length : {70000, 300000, 600000, 5000000}) {
        const QByteArray scene = "fps 24\n" + QByteArray(length, 'x') + "070707out/mantra1.parm" + QByteArray(1, 0) +
                                 "{\nvm_picture\t(\t/i/a.exr\t)\nsop\t(\t" + QByteArray(length, 'y') +
                                 "\t)\n}\ntake name " + QByteArray(length, 'z') + "\n";
        vxTest::freshScanState();
        vxTest::_loader loader;
        _sceneFacts facts;
        _pieces source(scene, 1 << 20, true);
        EXPECT_EQ(scanScene(loader.record(), source, facts), resultSuccess);
        ASSERT_EQ(loader.count(), 1) << length;
        EXPECT_EQ(vxTest::plainOf(loader.job(0).layer), "/out/mantra1");
        EXPECT_EQ(facts.takes.names.size(), 1);
    }
}

/// A text stream decodes pieces of 16,384 bytes: a broken sequence at the end of one costs Qt 6 what comes behind it.
TEST(SceneDevice, DecodesALineAsAWhole) {
    for (const char* const bytes : {"\xFF", "\xC3", "\xE2\x82", "\xF0\x9F\x98", "\x82\x82", "\xC3\xA9", "\xE2\x82\xAC",
                                    "\xF0\x9F\x98\x80", "\xED\xA0\x80", "\xC0\x80", "\xF4\x90\x80\x80", "\xC3\r\xA9"}) {
        for (int end = 16380; end <= 16388; ++end) {
            const QByteArray first = QByteArray("take name ").leftJustified(end, 'x').replace(end - 4, 4, bytes);
            const QByteArray scene = first + "\ntake name " + bytes + "\n}\n" + first;
            _pieces source(scene, 1000, true);
            _sceneDevice device(source);
            const QString text = QString::fromUtf8(QByteArray(scene).replace("}\n", "")).remove(u'\r');
            EXPECT_EQ(linesOf(device).join(u'\n'), text) << QByteArray(bytes).toHex().data() << end;
        }
    }
}

TEST(SceneDevice, TellsAnErrorFromTheEnd) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    _sceneFacts facts;
    _pieces scene(vxTest::driver("vm_picture=/img/a.exr") + "set -g JOB = '/pro", 50, false);
    EXPECT_EQ(scanScene(loader.record(), scene, facts), resultException);
    EXPECT_EQ(loader.count(), 1);
    _pieces firstLine("set -g JOB = '/pro", 50, false);
    EXPECT_EQ(scanScene(loader.record(), firstLine, facts), resultException);
    EXPECT_TRUE(hVariables.isEmpty());  // a second try finds no half value
}

class _listener : public _scanObserver {
    void sectionBegins(qint64, qint32) override {}
    void readerTakes(_sectionReader, const QString&) override {}
    void parameter(const QString&) override {}
    void remark(_remark, const QString&, const QString&) override {}
    void sectionEnds(qint32) override {}
};

/// What a scan leaves that has so much less work to spend than it may; empty when that is too little.
QString leftWithout(qint64 work, const QByteArray& scene) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    _sceneFacts facts;
    _pieces source(scene, 1 << 20, true);
    try {
        spendWork({work}, 0);
        scanScene(loader.record(), source, facts);
    } catch (const _budgetExceeded&) {
        return {};
    }
    return QStringLiteral("%1 jobs, %2 takes, frames %3 %4 %5, empty %6")
        .arg(loader.count())
        .arg(facts.takes.names.size())
        .arg(GLseqStart)
        .arg(seqStart)
        .arg(trange)
        .arg(emptyNodesfound);
}

/// With the work that the scan does not need.
QString outcomeOf(const QByteArray& scene) {
    qint64 spare = 0;
    for (qint64 step = qint64{1} << 40; step > 0; step /= 2)
        if (!leftWithout(spare + step, scene).isEmpty()) spare += step;
    return QString::number(spare) + QLatin1String(" steps, ") + leftWithout(spare, scene);
}

/// Sections are only passed over where nobody listens.
TEST(SceneDevice, PassesOverSectionsWithoutADifference) {
    const QByteArray header("out/a.parm\0{\n", 13);
    for (const QByteArray& section :
         {vxTest::driver("tx=1"), vxTest::driver("tx=1", "obj/geo1/box1"), vxTest::driver("constraints_on=off"),
          vxTest::driver("trange=on"), vxTest::driver("vm_picture=/i/a.exr"), vxTest::driver("tx=1", "stage/karma1"),
          vxTest::driver("tx=1", "out/\xC5\xBF"), "frange 3 9 " + header + "}\n", header + "  } rest\r\n",
          header + "} \xC3\xA9\n", header + "}\r}\n", header + "}" + QByteArray(40000, 'x') + "\n",
          header + QByteArray("tx\t(1)\n").repeated(50000) + "}\n", header + "take name inner\n}\n", header + "tx"}) {
        const QByteArray scene = "frange 5 6\n" + section + "take name a\n" + section + "frange 7 8\n";
        const QString passed = outcomeOf(scene);
        _listener listener;
        scanObserver = &listener;
        EXPECT_EQ(passed, outcomeOf(scene)) << section.left(200).data();
        scanObserver = nullptr;
    }
}

}  // namespace

}  // namespace vxP
