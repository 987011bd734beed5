// The archive that a scene file is: entries one behind the other, each with a name and a body.
#pragma once

#include <QtGlobal>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vxN {

/// Where the bytes of a scene come from: a file, or memory.
class _byteSource {
 public:
    virtual ~_byteSource() = default;
    /// Bytes that there are. May change while the source is read; what is gone then is not there for `readAt`.
    virtual qint64 byteCount() const = 0;
    /// @return bytes read into `data`, fewer than `most` only at the end; -1 after an error
    virtual qint64 readAt(qint64 offset, char* data, qint64 most) const = 0;
};

/// Bytes in memory, which have to outlive it.
class _memorySource : public _byteSource {
 public:
    explicit _memorySource(std::string_view content) : bytes(content) {}
    qint64 byteCount() const override { return static_cast<qint64>(bytes.size()); }
    qint64 readAt(qint64 offset, char* data, qint64 most) const override;

 private:
    std::string_view bytes;
};

/// How the archive is written, told by its first header.
enum class _archiveKind : quint8 {
    none,               ///< no scene
    open,               ///< cpio, old ASCII: a header gives the size of its body
    nonCommercial,      ///< sizes are not plain: a body ends at the next header
    limitedCommercial,  ///< the same
};

/// What became of reading an archive.
enum class _archiveEnd : quint8 {
    complete,   ///< all entries and the trailer are there
    cut,        ///< it ends before its trailer
    broken,     ///< a size led to no header: the next one was searched for, entries may be missing or too long
    unreadable  ///< the source reported an error; what was read before is there
};

/// Told by the source's first bytes.
_archiveKind archiveKindOf(const _byteSource& source);

/// Told by the source's last bytes, whatever its size: true where nothing but zeros and white space follows a trailer.
/// An archive that is cut right behind the trailer of a definition in it is taken for a whole one.
/// @param kind  of the source's archive
bool endsWithTrailer(const _byteSource& source, _archiveKind kind);

/// Bytes of a header in front of the entry's name.
qint64 headerBytes(_archiveKind kind);

/// A part of the source.
struct _body {
    qint64 offset = 0;
    qint64 size = 0;  ///< never reaches behind the source's end
};

struct _entry {
    std::string name;  ///< "obj/geo1.parm"; bytes as they are
    qint64 start = 0;  ///< of its header
    _body body;
};

/// An entry's name, cut at its last dot: "obj/a.b" and "parm". What concerns the whole scene has no path.
struct _entryName {
    std::string_view path;
    std::string_view kind;
};
_entryName splitEntryName(std::string_view name);

/// Walks the entries of a scene. Bodies are left out unread where the headers tell their sizes. Archives within a
/// body (definitions are stored that way) give no entries of their own.
class _archive {
 public:
    /// @param source  has to outlive the archive
    explicit _archive(const _byteSource& source);

    _archiveKind kind() const { return archiveKind; }
    /// The next entry in file order, without the trailer; none at the end. Throws `_budgetExceeded`.
    std::optional<_entry> next();
    /// Meaningful when `next` gave none.
    _archiveEnd end() const;
    /// Bytes of a body, the first `most` of it; shorter where the source has become shorter.
    std::string read(const _body& body, qint64 most);

 private:
    struct _header {
        std::string name;
        qint64 start;
        qint64 bodyStart;
        qint64 bodySize;  ///< told by the open kind alone
    };

    void hold(_entry entry);
    void endArchive(const _entry& trailer);
    _entry takeEntry();
    qint64 endBySize(const _header& header);
    qint64 endBySearch(const _header& header);
    std::optional<_header> headerAt(qint64 offset);
    std::optional<_header> searchHeader(qint64 from);
    std::string_view bytesAt(qint64 offset, qint64 wanted);
    std::string_view blockFrom(qint64 offset, qint64 wanted);
    void readBlock(qint64 offset, qint64 count);

    const _byteSource& source;
    qint64 sourceSize;
    _archiveKind archiveKind = _archiveKind::none;
    _archiveEnd archiveEnd = _archiveEnd::cut;
    bool isSized = false;  ///< sizes lead from header to header; else each is searched for
    bool readFailed = false;
    std::optional<_header> ahead;  ///< of the entry that comes next
    std::deque<_entry> held;       ///< entries that may turn out to lie within a definition
    std::size_t decided = 0;       ///< of these, that do not
    std::string block;
    qint64 blockStart = 0;
    qint64 furthest = 0;  ///< end of what was read
};

/// Bytes of a body as `_archive::read` gives them. Throws `_budgetExceeded`.
std::string readBody(const _byteSource& source, const _body& body, qint64 most);

}  // namespace vxN
