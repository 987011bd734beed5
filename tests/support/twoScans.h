// The same scene read in two ways, to be compared: as the plug-in reads it, and as a plain stream gives it.
#pragma once

#include <QByteArray>
#include <QIODevice>

namespace vxTest {

/// Gives `bytes` in pieces of `pieceBytes` bytes, then an error instead of the end unless it `ends`.
class _pieces : public QIODevice {
 public:
    _pieces(QByteArray bytes, qint64 pieceBytes, bool ends);
    bool isSequential() const override { return true; }

 protected:
    qint64 readData(char* data, qint64 most) override;
    qint64 writeData(const char*, qint64) override { return -1; }

 private:
    QByteArray text;
    qint64 piece;
    bool fails;
    qint64 done = 0;
};

/// What a load from fresh state leaves: result code, a sum of every job's bytes, variables, options. Empty
/// when the scene asks for more work than it may.
QByteArray outcomeOfScan(const QByteArray& scene, qint64 pieceBytes);
/// The same with no line left out.
QByteArray outcomeOfPlainScan(const QByteArray& scene);

}  // namespace vxTest
