#include "input/sceneLines.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "input/asciiSpace.h"
#include "input/candidateScan.h"
#include "input/sceneLine.h"
#include "input/sectionFilter.h"
#include "input/validUtf8.h"
#include "scan/scanBudget.h"

namespace vxP {

namespace {

constexpr std::size_t blockBytes = std::size_t{256} * 1024;   ///< stays in the processor's cache while it is looked at
constexpr std::size_t carriedBytes = std::size_t{64} * 1024;  ///< of an unfinished line, in front of the next block
constexpr std::size_t longestParameter = std::size_t{32} * 1024;  ///< of a section's line, half of it at its end
constexpr std::size_t longestHead = std::size_t{512} * 1024;      ///< of an unfinished line that is longer than that

constexpr char lineEnd = '\n';

std::string_view trimmed(std::string_view line) {
    while (!line.empty() && isAsciiSpace(line.front())) line.remove_prefix(1);
    while (!line.empty() && isAsciiSpace(line.back())) line.remove_suffix(1);
    return line;
}

/// True when the line's text is its bytes: ASCII, and no carriage return that would be dropped from its middle.
bool isPlain(std::string_view line) {
    constexpr std::uint64_t ones = 0x0101010101010101;
    constexpr std::uint64_t returns = ones * '\r';
    std::uint64_t marks = 0;  // the upper bit of a byte that is one of the two; of those behind it, perhaps
    std::uint64_t eight = 0;
    for (; line.size() >= sizeof eight; line.remove_prefix(sizeof eight)) {
        std::memcpy(&eight, line.data(), sizeof eight);
        marks |= eight | ((eight ^ returns) - ones);
    }
    if ((marks & (ones << 7U)) != 0) return false;
    return std::all_of(line.begin(), line.end(), [](char byte) { return byte >= 0 && byte != '\r'; });
}

}  // namespace

_sceneLines::_sceneLines(QIODevice& bytesOfScene) : source(bytesOfScene) {
    block.resize(static_cast<int>(carriedBytes + blockBytes));
    filled = lineStart = position = carriedBytes;
    offset = -static_cast<qint64>(carriedBytes);
}

/// Reads the next block to follow what is still needed of the old one. @return false at the end of the scene
bool _sceneLines::refill() {
    if (ended) return false;
    const std::size_t rest = filled - lineStart;
    const std::size_t kept = std::min(rest, carriedBytes);
    const std::size_t surplus = std::min(rest - kept, longestHead - static_cast<std::size_t>(head.size()));
    head.append(block.constData() + lineStart, static_cast<int>(surplus));
    lineStart = carriedBytes - kept;
    std::memmove(block.data() + lineStart, block.constData() + filled - kept, kept);
    position = carriedBytes - (filled - position);
    const qint64 count = source.read(block.data() + carriedBytes, static_cast<qint64>(blockBytes));
    failed = count < 0;
    ended = count <= 0;
    if (count > 0) allowWorkFor(count);
    offset += static_cast<qint64>(filled - carriedBytes);
    filled = carriedBytes + static_cast<std::size_t>(std::max<qint64>(count, 0));
    return !ended;
}

void _sceneLines::beginLineAt(std::size_t start) {
    lineStart = start;
    lineAt = offset + static_cast<qint64>(start);
    position = start;
    if (!head.isEmpty()) head.resize(0);
}

/// Position after the line end that follows `from`, or the end of the scene.
std::size_t _sceneLines::endOfLine(std::size_t from) {
    position = from;
    for (;;) {
        const std::string_view rest = bytes().substr(position);
        if (const void* const end = std::memchr(rest.data(), lineEnd, rest.size()); end != nullptr)
            return static_cast<std::size_t>(static_cast<const char*>(end) - block.constData()) + 1;
        position = filled;
        if (!refill()) return filled;
    }
}

/// The line from its start to `end`, without what was left out of a long one.
std::string_view _sceneLines::lineUpTo(std::size_t end) {
    wantedAt = lineAt;
    const std::string_view tail = bytes().substr(lineStart, end - lineStart);
    if (head.isEmpty()) return tail;
    longLine = head;
    longLine.append(tail.data(), static_cast<int>(tail.size()));
    return {longLine.constData(), static_cast<std::size_t>(longLine.size())};
}

/// A parameter without the middle of a value that is far too long: its name is in front, its bracket at the end.
std::string_view _sceneLines::condensed(std::string_view line) {
    if (line.size() <= longestParameter) return line;
    constexpr std::size_t half = longestParameter / 2;
    parameter.assign(line.substr(0, half));
    parameter.append(line.substr(line.size() - half));
    return parameter;
}

std::string_view _sceneLines::nextInSection() {
    for (;;) {
        const std::size_t end = endOfLine(position);
        const std::string_view line = lineUpTo(end);
        if (line.empty()) return {};
        beginLineAt(end);
        if (mayMatterToASection(line)) return condensed(line);
    }
}

/// Moves on to the line that holds the byte before `end`.
void _sceneLines::beginLastLineBefore(std::size_t end) {
    const char* const start = block.constData() + lineStart;
    if (const void* const newline = memrchr(start, lineEnd, end - lineStart); newline != nullptr)
        beginLineAt(static_cast<std::size_t>(static_cast<const char*>(newline) - block.constData()) + 1);
}

/// @param line  the one before `position`
bool _sceneLines::isWantedOutside(std::string_view line) {
    const std::string_view text = trimmed(line);
    if (!isPlain(text)) return true;
    const _sceneLine meaning = classifyAsciiLine(text);
    if (!meaning.matters()) return false;
    const bool opensOnly = meaning.kind == _lineKind::section && !meaning.isFrameRange && !meaning.isVariable;
    return !opensOnly || !hasPassed(*meaning.section, text);
}

/// Moves on behind the section when nothing in it may matter but its end.
bool _sceneLines::hasPassed(const _sectionKind& kind, std::string_view header) {
    if (emptySections == nullptr || !emptySections->mayPass(kind, header)) return false;
    for (std::size_t start = position;;) {
        const std::string_view rest = bytes().substr(start);
        const std::size_t size = rest.find(lineEnd) + 1;
        if (size == 0) return false;
        const std::string_view line = rest.substr(0, size);
        if (!mayMatterToASection(line)) {
            start += size;
            continue;
        }
        beginLineAt(start);  // what is in front of it need not be looked at again
        const std::string_view end = trimmed(condensed(line));
        if (end.front() != '}' || !isPlain(end)) return false;
        beginLineAt(start + size);
        emptySections->pass(header.size(), end.size());
        return true;
    }
}

/// Goes from candidate to candidate; the line ends between them are not looked at.
std::string_view _sceneLines::nextOutside() {
    for (;;) {
        const bool complete = ended;
        const std::size_t candidate = findCandidate(bytes(), position, complete);
        if (candidate < filled) {
            beginLastLineBefore(candidate);
            const std::size_t end = endOfLine(candidate);
            const std::string_view line = lineUpTo(end);
            beginLineAt(end);
            if (isWantedOutside(line)) return line;
        } else if (complete) {
            return {};
        } else {
            const std::size_t searched = std::max(position, filled - std::min(filled, candidateLookAhead));
            beginLastLineBefore(searched);
            position = searched;
            refill();
        }
    }
}

/// The scene's first line is always handed out: a decoder may treat the first bytes that it sees apart.
std::string_view _sceneLines::firstLine() {
    first = false;
    const std::size_t end = endOfLine(position);
    const std::string_view line = lineUpTo(end);
    beginLineAt(end);
    return line;
}

std::string_view _sceneLines::next() {
    if (!wanted.empty()) return wanted;
    if (first)
        wanted = firstLine();
    else
        wanted = sectionOpen ? nextInSection() : nextOutside();
    wanted = failed ? std::string_view() : validUtf8(wanted, validLine);
    return wanted;
}

}  // namespace vxP
