#include "plugin/sceneDevice.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QTextStream>
#include <algorithm>

#include "plugin/sceneScan.h"
#include "tests/support/sceneText.h"

namespace vxP {

namespace {

/// Gives `text` in pieces of `piece` bytes, then an error instead of the end when `fails`.
class _pieces : public QIODevice {
 public:
    _pieces(QByteArray bytes, qint64 pieceBytes, bool ends) : text(std::move(bytes)), piece(pieceBytes), fails(!ends) {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return true; }

 protected:
    qint64 readData(char* data, qint64 most) override {
        const QByteArray part = text.mid(done, static_cast<int>(std::min(most, piece)));
        if (part.isEmpty()) return fails ? -1 : 0;
        std::copy(part.begin(), part.end(), data);
        done += part.size();
        return part.size();
    }
    qint64 writeData(const char*, qint64) override { return -1; }

 private:
    QByteArray text;
    qint64 piece;
    bool fails;
    vxS::_size done = 0;
};

QByteArray awkwardText() {
    const QByteArray longLine(40000, 'x');  // longer than a stream's own buffer
    return QByteArray("a\r\n\n") + longLine + QByteArray("\nb\0c\n\rd\re \xC3\xA4\xFF\n last without an end", 32);
}

QStringList linesOf(QIODevice& device) {
    QTextStream stream(&device);
    QStringList lines;
    while (!stream.atEnd()) lines.append(stream.readLine());
    return lines;
}

TEST(SceneDevice, HandsOutTheLinesThatAPlainStreamReads) {
    QByteArray text = awkwardText();
    QBuffer plain(&text);
    plain.open(QIODevice::ReadOnly | QIODevice::Text);
    const QStringList expected = linesOf(plain);
    ASSERT_EQ(expected.size(), 6);
    for (const qint64 piece : {1, 2, 7, 64, 16384, 1000000}) {
        _pieces source(text, piece, true);
        _sceneDevice device(source);
        EXPECT_EQ(linesOf(device), expected) << "in pieces of " << piece;
        EXPECT_FALSE(device.readFailed());
    }
}

TEST(SceneDevice, NeverReadsAheadOfTheLine) {
    _pieces source("first\nsecond\nthird\n", 1000, true);
    _sceneDevice device(source);
    QTextStream stream(&device);
    EXPECT_EQ(stream.readLine(), QLatin1String("first"));
    EXPECT_EQ(device.bytesAvailable(), 13);
    QTextStream other(&device);
    EXPECT_EQ(other.readLine(), QLatin1String("second"));
}

TEST(SceneDevice, TellsAnErrorFromTheEnd) {
    _pieces source("first\nsecond\n", 8, false);
    _sceneDevice device(source);
    EXPECT_EQ(linesOf(device), (QStringList{QStringLiteral("first"), QStringLiteral("second")}));
    EXPECT_TRUE(device.readFailed());

    vxTest::freshScanState();
    vxTest::_loader loader;
    _sceneFacts facts;
    _pieces scene(vxTest::section("out/mantra1", {{"vm_picture", "/img/a.exr"}}) + "x\n", 50, false);
    EXPECT_EQ(scanScene(loader.record(), scene, facts), resultException);
    EXPECT_EQ(loader.count(), 1);
}

}  // namespace

}  // namespace vxP
