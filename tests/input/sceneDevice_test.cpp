#include "input/sceneDevice.h"

#include <gtest/gtest.h>

#include <QTextStream>
#include <random>

#include "input/candidateScan.h"
#include "plugin/sceneScan.h"
#include "scan/scanState.h"
#include "tests/support/sceneText.h"
#include "tests/support/twoScans.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::_pieces;

// ---- scenes of every kind of line, put together at random

const QByteArray nul(1, '\0');

const QByteArray pieces[] = {
    "\n",
    "\r\n",
    "\r",
    " \t\v\f",
    "\xC2\xA0",
    "\xC5\xBF",
    "\xE2\x84\xAA",
    "\xFF\xFE",
    nul,
    "#",
    "{",
    "}",
    "}\n",
    "{\n",
    "frange 1001 1100\n",
    "FRANGE\t5 6\n",
    "fr\rang\re 7 9\n",
    "frange\t[ 0\tlocks=0 ]\t(\t1\t)\n",
    "frang",
    "set -g _HIP_SAVEVERSION = '19.5.640'\n",
    "\xC5\xBF"
    "et -g JOB = '/a'\n",
    "set -g LONG_NAME = '/b c'\n",
    "SET -G X = 'y'\r\n",
    "HouLC1033.variables",
    "_hip_\xC5\xBF"
    "aveversion '20.1'\n",
    "take name Main kids 1\n",
    "  take name wide kids 0\n",
    "ta\rke name odd\n",
    "Take name no\n",
    "070707out/mantra1.parm",
    "070707obj/geo1/filecache1.parm",
    "stage/karma1.parm",
    "obj/cam1.parm",
    "obj/box1.parm",
    "obj/OBJ/REDSHIFT_rop.parm",
    "out/wedge1.parm",
    "stage/rendersettings1.parm",
    "stage/hdprman1.parm",
    ".pa\rrm{\n",
    "vm_picture\t[ 0\tlocks=0 ]\t(\t\"$HIP/$JOB/a.$F4.exr\"\t)\n",
    "VM_PICTURE\t(\t/i/b.exr\t)\n",
    "\xC2\xA0vm_picture\t(\t/i/c.$F.exr\t)\n",
    "vm_\rpicture\t(\t/i/d.exr\t)\n",
    "vm_picture (\t/i/no.exr\t)\n",
    "soho_outputmode\t(\ton\t)\n",
    "\xC5\xBFoho_diskfile\t(\t/x/a.$F4.ifd\t)\n",
    "soho_diskfile\t(\t/x/b.ifd\t)\n",
    "camera\t(\t/obj/cam1\t)\n",
    "res\t(\t1920\t1080\t)\n",
    "trange\t(\t\"on\"\t)\n",
    "f\t(\t1\t20\t2\t)\n",
    "take\t(\twide\t)\n",
    "filename\t(\t/a/b.abc\t)\n",
    "objectPath\t(\tx\t)\n",
    "driver\t(\t../mantra1\t)\n",
    "wedgemethod\t(\tchannel\t)\n",
    "name1\t(\tamount\t)\n",
    "steps1\t(\t3\t)\n",
    "range1\t(\t0\t1\t)\n",
    "name\t(\tx\t)\n",
    "tx\t[ 0\tlocks=0 ]\t(\t1.5\t)\n",
    "vm_quality\t(\t3\t)\n",
    "a line that nobody wants, of some length\n",
};

QByteArray randomScene(std::mt19937& random) {
    QByteArray scene;
    for (auto left = random() % 60; left > 0; --left) {
        const QByteArray& part = pieces[random() % std::size(pieces)];
        scene += part;
        if (part.endsWith(".parm") && random() % 5 != 0) scene += nul + "{\n";
    }
    if (random() % 8 == 0) scene.insert(static_cast<int>(random() % 4), QByteArray("\xEF\xBB\xBF"));
    return scene;
}

TEST(SceneDevice, GivesTheJobsThatAPlainStreamGives) {
    std::mt19937 random(20);
    constexpr _searchPath paths[] = {_searchPath::automatic, _searchPath::avx2, _searchPath::portable};
    int withJobs = 0;
    for (int round = 0; round < 3000; ++round) {
        const QByteArray scene = randomScene(random);
        const QByteArray expected = vxTest::outcomeOfPlainScan(scene);
        withJobs += expected.startsWith("1 0") ? 0 : 1;
        const qint64 piece = round % 3 == 0 ? 1 << 20 : 1 + static_cast<qint64>(random() % 64);
        chooseSearchPath(paths[round % 3]);
        const QByteArray fast = vxTest::outcomeOfScan(scene, piece);
        ASSERT_EQ(fast, expected) << "round " << round << ":\n" << scene.toStdString();
    }
    chooseSearchPath(_searchPath::automatic);
    EXPECT_GT(withJobs, 500);
}

// ---- lines of the device itself

QStringList linesOf(_sceneDevice& device) {
    QTextStream stream(&device);
    QStringList lines;
    while (!stream.atEnd()) lines.append(stream.readLine());
    return lines;
}

TEST(SceneDevice, DropsAByteOrderMarkAtTheVeryStartAlone) {
    for (const auto& [scene, start] : {std::pair{"\xEF\xBB\xBF"
                                                 "frange 7 9\n",
                                                 7},
                                       {"\n\xEF\xBB\xBF"
                                        "frange 7 9\n",
                                        1}}) {
        for (const qint64 piece : {1, 1000}) {
            EXPECT_EQ(vxTest::outcomeOfScan(scene, piece), vxTest::outcomeOfPlainScan(scene));
            EXPECT_EQ(GLseqStart, start);
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
        const QByteArray scene = "fps 24\n" + QByteArray(length, 'x') + "070707out/mantra1.parm" + nul +
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

TEST(SceneDevice, TellsAnErrorFromTheEnd) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    _sceneFacts facts;
    _pieces scene(vxTest::section("out/mantra1", {{"vm_picture", "/img/a.exr"}}) + "set -g JOB = '/pro", 50, false);
    EXPECT_EQ(scanScene(loader.record(), scene, facts), resultException);
    EXPECT_EQ(loader.count(), 1);
    _pieces firstLine("set -g JOB = '/pro", 50, false);
    EXPECT_EQ(scanScene(loader.record(), firstLine, facts), resultException);
    EXPECT_TRUE(hVariables.isEmpty());  // a second try finds no half value
}

}  // namespace

}  // namespace vxP
