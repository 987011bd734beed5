// What all fuzz targets share: values out of the input's bytes, and the promises that are checked.
#pragma once

#include <QString>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string_view>

namespace vxFuzz {

/// Reports a broken promise as a finding.
inline void expect(bool holds, const char* promise) {
    if (holds) return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

/// Takes values from the front of the input; when it is used up, zeros and empty texts.
class _input {
 public:
    _input(const std::uint8_t* data, std::size_t size) : left(reinterpret_cast<const char*>(data), size) {}

    bool isEmpty() const { return left.empty(); }
    std::string_view bytes(std::size_t count) {
        const std::string_view taken = left.substr(0, count);
        left.remove_prefix(taken.size());
        return taken;
    }
    template <typename Number>
    Number number() {
        Number value{};
        const std::string_view taken = bytes(sizeof value);
        if (!taken.empty()) std::memcpy(&value, taken.data(), taken.size());
        return value;
    }
    bool flag() { return number<quint8>() % 2 != 0; }
    /// Up to the next line end, which is dropped.
    QString line() {
        const std::string_view taken = bytes(std::min(left.find('\n'), left.size()));
        bytes(1);
        return decoded(taken);
    }
    QString rest() { return decoded(bytes(left.size())); }

    /// Overwrites places of a record: each a position (3 bytes), what to write (low bit: bytes as they are or a text
    /// with its length word; the other bits: how many bytes of input), and these bytes. Ends at a count of 0.
    void patch(std::span<quint8> record) {
        for (;;) {
            const std::size_t position = number<quint16>() + std::size_t{65536} * number<quint8>();
            const auto kind = number<quint8>();
            const std::string_view taken = bytes(kind / 2U);
            if (taken.empty()) return;
            const QByteArray written = kind % 2 == 0 ? QByteArray(taken.data(), int(taken.size())) : asText(taken);
            const auto count = std::min(record.size(), static_cast<std::size_t>(written.size()));
            std::memcpy(&record[position % (record.size() - count + 1)], written.constData(), count);
        }
    }

 private:
    static QString decoded(std::string_view utf8) {
        return QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size()));
    }
    /// A 16-bit text as it is in a record.
    static QByteArray asText(std::string_view latin) {
        QByteArray text;
        for (const std::size_t number : {latin.size(), std::size_t{0}}) text += char(number), text += '\0';
        for (const char letter : latin) text += letter, text += '\0';
        return text;
    }

    std::string_view left;
};

}  // namespace vxFuzz
