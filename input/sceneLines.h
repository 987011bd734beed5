// The lines of a scene that anyone wants, out of its bytes.
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <string>
#include <string_view>

namespace vxP {

struct _sectionKind;

/// Someone who can tell beforehand what comes of a section that holds none of the parameters that readers know.
class _emptySections {
 public:
    virtual ~_emptySections() = default;
    /// True when such a section would be read to its end, and its reader do nothing that `pass` cannot do.
    /// @param header  as plain text, trimmed
    virtual bool mayPass(const _sectionKind& kind, std::string_view header) const = 0;
    /// The section has been left out.
    /// @param header  characters of its header ...
    /// @param end     ... and of the line that closes it, trimmed
    virtual void pass(std::size_t header, std::size_t end) = 0;
};

/// Reads a scene in large blocks and finds its next wanted line. While no section is open that is a line that
/// `classifyLine` knows; while one is open, a line that may be its end or a parameter that a reader knows. Lines that
/// may only possibly be wanted are handed out too: what cannot be told from the bytes alone is left to the scan.
///
/// Of a line longer than about 600,000 bytes only the beginning (at least 512 KiB) and the last 64 KiB count, of one in
/// an open section longer than 32 KiB only the first and the last 16 KiB; what is in between is left out. Lines are
/// handed out as valid UTF-8. Memory stays below 4 MiB, however long the lines are.
class _sceneLines {
 public:
    /// @param source  open for reading; must outlive the lines
    explicit _sceneLines(QIODevice& source);

    void setSectionOpen(bool open) { sectionOpen = open; }

    /// Leaves out the sections that are passed to `passer`. Only those that lie in one block are found: most are small.
    void passEmptySections(_emptySections& passer) { emptySections = &passer; }

    /// The next wanted line with its line end, if it has one; empty at the end of the scene. It stays valid, and
    /// stays the answer, until it has been taken.
    std::string_view next();
    void take() { wanted = {}; }

    /// Position in the scene of the line handed out last (bytes from its beginning).
    qint64 positionOfLine() const { return wantedAt; }

    /// True when the source reported an error; the lines then end before it. A line that it cut is not handed out: a
    /// part of a variable's value would stay with the plug-in and get into the jobs of a second try.
    bool readFailed() const { return failed; }

 private:
    std::string_view bytes() const { return {block.constData(), filled}; }
    bool refill();
    std::size_t endOfLine(std::size_t from);
    void beginLineAt(std::size_t start);
    void beginLastLineBefore(std::size_t end);
    std::string_view firstLine();
    std::string_view nextInSection();
    std::string_view nextOutside();
    std::string_view lineUpTo(std::size_t end);
    bool isWantedOutside(std::string_view line);
    bool hasPassed(const _sectionKind& kind, std::string_view header);
    std::string_view condensed(std::string_view line);

    QIODevice& source;
    QByteArray block;       ///< room for the rest of an unfinished line and, always in the same place, a new block
    std::size_t filled;     ///< end of the bytes in it
    qint64 offset = 0;      ///< of the block's first byte in the scene; carried bytes make it negative at first
    qint64 lineAt = 0;      ///< position in the scene of the line being looked at ...
    qint64 wantedAt = 0;    ///< ... and of the one handed out
    std::size_t lineStart;  ///< where the line being looked at begins ...
    QByteArray head;        ///< ... and what of it no longer is in the block
    std::size_t position;   ///< bytes before this need not be looked at again
    std::string_view wanted;
    QByteArray longLine;
    std::string parameter;
    std::string validLine;
    _emptySections* emptySections = nullptr;
    bool sectionOpen = false;
    bool first = true;
    bool ended = false;
    bool failed = false;
};

}  // namespace vxP
