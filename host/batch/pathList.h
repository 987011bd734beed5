// A list of paths as a stream of bytes: "a.hip\nb.hip\n", or the same with NULs.
#pragma once

#include <QString>
#include <string>

namespace vxH {

/// Splits a list of paths while it arrives. The first block that holds a separator shows which it is: NUL where
/// the block holds one, else the line end, whose carriage return does not count. Empty paths are skipped.
class _pathList {
 public:
    /// Longest path, in bytes: the system takes less. It bounds what is kept of a list without separators.
    static constexpr std::size_t longestPath = 65536;

    /// The next bytes of the list.
    void add(const char* bytes, std::size_t count);
    /// The list is complete: what follows the last separator is a path too.
    void end();

    /// The next path, or why there is none in its place.
    /// @return false when there is none before more of the list arrives
    bool next(std::string& path, QString& problem);

 private:
    void findSeparator();
    bool cut(std::string& path);

    std::string bytes;
    std::size_t position = 0;  // all before has been handed out
    char separator = '\n';
    bool isSeparatorKnown = false;
    bool isTooLong = false;  // the path at the position: its beginning has been dropped
    bool isEnded = false;
};

}  // namespace vxH
