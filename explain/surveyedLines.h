// The lines of a scene, or of a part of it, one after the other, whatever their length.
#pragma once

#include <QIODevice>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace vxE {

class _surveyedLines {
 public:
    /// @param source  open for reading; must outlive the lines
    explicit _surveyedLines(QIODevice& source) : bytesOfScene(&source), block(blockBytes) {}
    /// @param part  of the scene; must outlive the lines
    /// @param start  its position in the scene
    _surveyedLines(std::string_view part, qint64 start) : byte(start), rest(part) {}

    qint64 byte = 0;    ///< position of the line's beginning in the scene
    qint64 length = 0;  ///< in bytes, with its end
    qint64 number = 0;  ///< from 1, in what is read

    /// The line without its end: of a long one the first 4,096 bytes ...
    std::string_view front() const { return line.substr(0, longestEnd); }
    /// ... and the last.
    std::string_view back() const { return line.size() <= longestEnd ? line : line.substr(line.size() - longestEnd); }

    /// Goes to the next line. @return false at the end; then `byte` is the scene's length
    bool next() {
        byte += length;
        ++number;
        const void* const end = rest.empty() ? nullptr : std::memchr(rest.data(), '\n', rest.size());
        if (end == nullptr) return nextOverBlocks();
        const auto size = static_cast<std::size_t>(static_cast<const char*>(end) - rest.data());
        length = static_cast<qint64>(size) + 1;
        line = {rest.data(), size};
        rest.remove_prefix(size + 1);
        return true;
    }

 private:
    bool nextOverBlocks();
    bool refill();

    static constexpr std::size_t blockBytes = std::size_t{256} * 1024;
    static constexpr std::size_t longestEnd = 4096;

    QIODevice* bytesOfScene = nullptr;  ///< null: all is in `rest`
    std::vector<char> block;
    std::string_view rest;  ///< of the block
    std::string_view line;
    std::string joined;  ///< a line that lies in several blocks, without its middle where that is long
};

}  // namespace vxE
