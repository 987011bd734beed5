// A device whose reads are as short as a test wants them.
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <algorithm>
#include <cstring>

namespace vxTest {

/// Gives `bytes` in pieces of `pieceBytes` bytes, then an error instead of the end unless it `ends`.
class _pieces : public QIODevice {
 public:
    _pieces(QByteArray bytes, qint64 pieceBytes, bool ends) : text(std::move(bytes)), piece(pieceBytes), fails(!ends) {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return true; }

 protected:
    qint64 readData(char* data, qint64 most) override {
        const qint64 count = std::min({most, piece, static_cast<qint64>(text.size()) - done});
        if (count <= 0) return fails ? -1 : 0;
        std::memcpy(data, text.constData() + done, static_cast<std::size_t>(count));
        done += count;
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

 private:
    QByteArray text;
    qint64 piece;
    bool fails;
    qint64 done = 0;
};

}  // namespace vxTest
