#include "explain/entryHeader.h"

#include <algorithm>
#include <array>

#include "input/asciiSpace.h"

namespace vxE {

namespace {

constexpr std::string_view typeText{".init\0type = ", 13};
constexpr std::string_view channelsSuffix{".chn"};
constexpr std::string_view parametersSuffix{".parm"};

constexpr bool isOctal(char byte) {
    return byte >= '0' && byte <= '7';
}
constexpr bool isHexadecimal(char byte) {
    return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'f');
}

/// What the archive writes right in front of a path.
struct _archiveHeader {
    std::string_view magic;
    std::size_t freeBytes;
    std::string_view mark;
    std::size_t digitCount;
    bool (*isDigit)(char);

    constexpr std::size_t beforeDigits() const { return magic.size() + freeBytes + mark.size(); }
    constexpr std::size_t size() const { return beforeDigits() + digitCount; }
};

constexpr std::array archiveHeaders{
    _archiveHeader{"070707", 0, {}, 70, isOctal},
    _archiveHeader{"Hou", 2, "\x1a", 28, isHexadecimal},
};

/// Bytes of the text, which begins with a magic, in which no other header can begin: all of a whole header.
std::size_t bytesDone(std::string_view text, const _archiveHeader& header) {
    if (text.substr(header.magic.size() + header.freeBytes, header.mark.size()) != header.mark) return 1;
    const std::string_view digits = text.substr(header.beforeDigits(), header.digitCount);
    const auto end = std::find_if_not(digits.begin(), digits.end(), header.isDigit);
    return header.beforeDigits() + static_cast<std::size_t>(end - digits.begin());
}

/// Where the path behind the last header begins; `from` where there is none behind that.
std::size_t behindArchiveHeader(std::string_view line, std::size_t from, const _archiveHeader& header) {
    std::size_t at = line.find(header.magic, from - std::min(from, header.beforeDigits()));
    while (at != line.npos && at + header.size() < line.size()) {
        const std::size_t done = bytesDone(line.substr(at), header);
        if (done == header.size()) from = at + done;
        at = line.find(header.magic, at + done);
    }
    return from;
}

constexpr bool partsPaths(char byte) {
    return vxP::isAsciiSpace(byte) || byte == '\0';
}

/// The path that the line ends with; empty: none.
std::string_view pathAtEnd(std::string_view line) {
    std::size_t start = line.size();
    while (start > 0 && !partsPaths(line[start - 1])) --start;
    for (const _archiveHeader& header : archiveHeaders) start = behindArchiveHeader(line, start, header);
    return line.substr(start);
}

std::optional<_entryHeader> headerOf(_entryKind kind, std::string_view lineToPath, std::string_view type) {
    const std::string_view path = pathAtEnd(lineToPath);
    if (path.empty()) return {};
    return _entryHeader{kind, path, type};
}

/// `…out/mantra1.init<NUL>type = ifd`
std::optional<_entryHeader> headerOfType(std::string_view line) {
    std::size_t type = line.size();
    while (type > 0 && !vxP::isAsciiSpace(line[type - 1])) --type;
    const std::string_view before = line.substr(0, type);
    if (!before.ends_with(typeText)) return {};
    return headerOf(_entryKind::type, before.substr(0, type - typeText.size()), line.substr(type));
}

}  // namespace

std::optional<_entryHeader> entryHeaderOf(std::string_view line) {
    if (!mayEndWithHeader(line)) return {};
    if (line.back() != '{') return headerOfType(line);
    do {
        line.remove_suffix(1);
    } while (!line.empty() && partsPaths(line.back()));
    if (line.ends_with(parametersSuffix))
        return headerOf(_entryKind::parameters, line.substr(0, line.size() - parametersSuffix.size()), {});
    if (line.ends_with(channelsSuffix))
        return headerOf(_entryKind::channels, line.substr(0, line.size() - channelsSuffix.size()), {});
    return {};
}

}  // namespace vxE
