#include "input/validUtf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "scan/scanBudget.h"

namespace vxP {

namespace {

constexpr std::string_view replacement{"\xEF\xBF\xBD"};

/// The sequences that begin alike. All bytes after the second one are 0x80 to 0xBF.
/// Source: The Unicode Standard, table 3-7, well-formed UTF-8 byte sequences.
struct _sequence {
    std::uint8_t firstFrom, firstTo;
    std::uint8_t secondFrom, secondTo;
    std::size_t length;
};

constexpr std::array sequences{
    _sequence{0xC2, 0xDF, 0x80, 0xBF, 2}, _sequence{0xE0, 0xE0, 0xA0, 0xBF, 3}, _sequence{0xE1, 0xEC, 0x80, 0xBF, 3},
    _sequence{0xED, 0xED, 0x80, 0x9F, 3}, _sequence{0xEE, 0xEF, 0x80, 0xBF, 3}, _sequence{0xF0, 0xF0, 0x90, 0xBF, 4},
    _sequence{0xF1, 0xF3, 0x80, 0xBF, 4}, _sequence{0xF4, 0xF4, 0x80, 0x8F, 4},
};

constexpr std::uint8_t noRow = sequences.size();

/// The row for a sequence's first byte.
constexpr auto rowOf = []() consteval {
    std::array<std::uint8_t, 256> rows{};
    rows.fill(noRow);
    for (std::uint8_t row = 0; row < noRow; ++row)
        for (std::size_t byte = sequences[row].firstFrom; byte <= sequences[row].firstTo; ++byte) rows[byte] = row;
    return rows;
}
();

bool isBetween(char byte, std::uint8_t from, std::uint8_t to) {
    const auto code = static_cast<std::uint8_t>(byte);
    return code >= from && code <= to;
}

/// Bytes of the valid sequence that the text begins with; 0: there is none.
std::size_t validLength(std::string_view text) {
    const std::uint8_t row = rowOf[static_cast<std::uint8_t>(text.front())];
    if (row == noRow) return 0;
    const _sequence& sequence = sequences[row];
    if (text.size() < sequence.length || !isBetween(text[1], sequence.secondFrom, sequence.secondTo)) return 0;
    const std::string_view rest = text.substr(2, sequence.length - 2);
    const bool goesOn = std::all_of(rest.begin(), rest.end(), [](char byte) { return isBetween(byte, 0x80, 0xBF); });
    return goesOn ? sequence.length : 0;
}

/// Position of the first byte beyond ASCII at or after `from`, or the end.
std::size_t nextBeyondAscii(std::string_view text, std::size_t from) {
    constexpr std::uint64_t highBits = 0x8080808080808080;
    for (std::uint64_t eight = 0; from + sizeof eight <= text.size(); from += sizeof eight) {
        std::memcpy(&eight, text.data() + from, sizeof eight);
        if ((eight & highBits) != 0) break;
    }
    while (from < text.size() && text[from] >= 0) ++from;
    return from;
}

/// Position of the first byte at or after `from` that belongs to no valid sequence, or the end.
std::size_t nextInvalid(std::string_view text, std::size_t from) {
    for (from = nextBeyondAscii(text, from); from < text.size(); from = nextBeyondAscii(text, from)) {
        const std::size_t length = validLength(text.substr(from));
        if (length == 0) break;
        from += length;
    }
    return from;
}

}  // namespace

std::string_view validUtf8(std::string_view line, std::string& buffer) {
    std::size_t invalid = nextInvalid(line, 0);
    if (invalid == line.size()) return line;
    buffer.clear();
    std::size_t copied = 0;
    for (; invalid < line.size(); invalid = nextInvalid(line, copied)) {
        buffer.append(line, copied, invalid - copied);
        buffer.append(replacement);
        spendWork(invalidByteCost);
        copied = invalid + 1;
    }
    buffer.append(line, copied, line.size() - copied);
    return buffer;
}

}  // namespace vxP
