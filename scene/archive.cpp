#include "scene/archive.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "scan/scanBudget.h"

namespace vxN {

namespace {

constexpr qint64 blockBytes = qint64{64} * 1024;
constexpr qint64 behindBytes = qint64{4} * 1024;  ///< of a block: small bodies in front of the header looked at
constexpr qint64 longestName = 4096;
constexpr qint64 longestMagic = 7;
constexpr qint64 bytesAroundEntry = 64;

/// How the headers of a kind of archive look: the magic, digits, for the open kind with the sizes of name and body
/// among them, and the name with a NUL behind it.
struct _headerForm {
    _archiveKind kind;
    std::string_view magic;
    char lastNumeral;   ///< of the digits, which letters follow where it is 9
    qint64 fixedBytes;  ///< in front of the name
    std::string_view trailer;
};

constexpr std::array headerForms{
    _headerForm{_archiveKind::open, "070707", '7', 76, "TRAILER!!!"},
    _headerForm{_archiveKind::nonCommercial, "HouNC\0321", '9', 34, "NON_COMMERCIAL_FILE!!!"},
    _headerForm{_archiveKind::limitedCommercial, "HouLC\0321", '9', 34, "LIMITED_COMMERCIAL_FILE!!!"},
};

// Places of the sizes in an open header.
constexpr std::size_t nameSizeAt = 59;
constexpr std::size_t nameSizeDigits = 6;
constexpr std::size_t bodySizeAt = 65;
constexpr std::size_t bodySizeDigits = 11;

/// Entries whose bodies hold archives.
constexpr std::array<std::string_view, 2> definitionEntries{".OPdummydefs", ".defotl"};

/// The one scene-wide entry whose name does not begin with a dot.
constexpr std::string_view functionsEntry = "expression.func";

bool holdsArchives(std::string_view name) {
    return std::find(definitionEntries.begin(), definitionEntries.end(), name) != definitionEntries.end();
}

bool isSceneWide(std::string_view name) {
    return name.starts_with('.') || name == functionsEntry;
}

qint64 octalIn(std::string_view digits) {
    qint64 number = 0;
    for (const char digit : digits) number = number * 8 + (digit - '0');
    return number;
}

const _headerForm& formOf(_archiveKind kind) {
    return *std::find_if(headerForms.begin(), headerForms.end(), [&](const auto& form) { return form.kind == kind; });
}

_archiveKind kindOf(std::string_view begin) {
    for (const _headerForm& form : headerForms)
        if (begin.starts_with(form.magic)) return form.kind;
    return _archiveKind::none;
}

/// The NUL behind a name, or what no name holds.
bool endsName(char byte) {
    return byte >= 0 && byte < ' ';
}

bool hasForm(std::string_view fixed, const _headerForm& form) {
    const auto isDigit = [&](char byte) {
        const bool isLetter = form.lastNumeral == '9' && byte >= 'a' && byte <= 'f';
        return isLetter || (byte >= '0' && byte <= form.lastNumeral);
    };
    return static_cast<qint64>(fixed.size()) == form.fixedBytes && fixed.starts_with(form.magic) &&
           std::all_of(fixed.begin() + form.magic.size(), fixed.end(), isDigit);
}

/// Position of the magic in the text; npos: none.
std::size_t findMagic(std::string_view text, std::string_view magic) {
    const void* const found = memmem(text.data(), text.size(), magic.data(), magic.size());
    if (found == nullptr) return std::string_view::npos;
    return static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

/// Length in bytes of the name in front of a NUL; 0: there is none.
std::size_t nameSizeIn(std::string_view text) {
    const auto* const end = std::find_if(text.begin(), text.end(), endsName);
    return end != text.end() && *end == '\0' ? static_cast<std::size_t>(end - text.begin()) : 0;
}

qint64 bytesOf(const _entry& entry) {
    return bytesAroundEntry + static_cast<qint64>(entry.name.capacity());
}

/// Bytes from an offset on, fewer where the source has no more or cannot be read.
std::string bytesOf(const _byteSource& source, qint64 offset, qint64 most) {
    std::string bytes(static_cast<std::size_t>(most), '\0');
    const qint64 got = source.readAt(offset, bytes.data(), most);
    bytes.resize(static_cast<std::size_t>(std::max<qint64>(got, 0)));
    return bytes;
}

}  // namespace

qint64 _memorySource::readAt(qint64 offset, char* data, qint64 most) const {
    if (offset < 0 || offset > byteCount()) return -1;
    return static_cast<qint64>(bytes.copy(data, static_cast<std::size_t>(most), static_cast<std::size_t>(offset)));
}

_entryName splitEntryName(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) return {name, {}};
    return {name.substr(0, dot), name.substr(dot + 1)};
}

_archiveKind archiveKindOf(const _byteSource& source) {
    return kindOf(bytesOf(source, 0, longestMagic));
}

bool endsWithTrailer(const _byteSource& source, _archiveKind kind) {
    if (kind == _archiveKind::none) return false;
    const _headerForm& form = formOf(kind);
    const std::string text = bytesOf(source, std::max<qint64>(source.byteCount() - blockBytes, 0), blockBytes);
    std::string_view end = text;
    while (!end.empty() && (endsName(end.back()) || end.back() == ' ')) end.remove_suffix(1);
    if (!end.ends_with(form.trailer)) return false;
    end.remove_suffix(form.trailer.size());
    const auto fixedBytes = static_cast<std::size_t>(form.fixedBytes);
    return end.size() >= fixedBytes && hasForm(end.substr(end.size() - fixedBytes), form);
}

_archive::_archive(const _byteSource& bytes) : source(bytes), sourceSize(std::max<qint64>(bytes.byteCount(), 0)) {
    archiveKind = kindOf(bytesAt(0, longestMagic));
    if (archiveKind == _archiveKind::none) return;
    ahead = headerAt(0);
    isSized = ahead && archiveKind == _archiveKind::open;
    if (ahead) return;
    archiveEnd = _archiveEnd::broken;
    ahead = searchHeader(0);
}

_archiveEnd _archive::end() const {
    return readFailed ? _archiveEnd::unreadable : archiveEnd;
}

std::optional<_entry> _archive::next() {
    while (decided == 0 && ahead) hold(takeEntry());
    if (held.empty()) return std::nullopt;
    if (decided > 0) --decided;
    vxP::keepMemory(-bytesOf(held.front()));
    _entry entry = std::move(held.front());
    held.pop_front();
    return entry;
}

/// Keeps an entry until it is clear that it lies in no definition: where sizes are not known, what lies between a
/// definition and a trailer which is not the last one belongs to the definition.
void _archive::hold(_entry entry) {
    if (entry.name == formOf(archiveKind).trailer) return endArchive(entry);
    const bool maySpan = !isSized && holdsArchives(entry.name);
    const bool settles = held.empty() || isSceneWide(entry.name);
    vxP::keepMemory(bytesOf(entry));
    held.push_back(std::move(entry));
    if (settles) decided = held.size() - (maySpan ? 1 : 0);
}

/// A trailer: of the scene, or of an archive within a definition.
void _archive::endArchive(const _entry& trailer) {
    if (!ahead && (isSized || trailer.body.size < headerForms.back().fixedBytes)) {
        if (archiveEnd == _archiveEnd::cut) archiveEnd = _archiveEnd::complete;
        return;
    }
    if (held.empty()) return;
    held.front().body.size = (ahead ? ahead->start : sourceSize) - held.front().body.offset;
    for (; held.size() > 1; held.pop_back()) vxP::keepMemory(-bytesOf(held.back()));
}

/// The entry of the header ahead, and the next header.
_entry _archive::takeEntry() {
    _header header = std::move(*ahead);
    ahead.reset();
    const qint64 end = isSized ? endBySize(header) : endBySearch(header);
    return {std::move(header.name), header.start, {header.bodyStart, end - header.bodyStart}};
}

qint64 _archive::endBySize(const _header& header) {
    const qint64 end = header.bodyStart + header.bodySize;
    const bool isLast = header.name == formOf(archiveKind).trailer || end == sourceSize;
    if (!isLast && end < sourceSize) ahead = headerAt(end);
    // Headers in the rest of a definition would be those of archives in it.
    const bool isCut = end > sourceSize && holdsArchives(header.name);
    if (isLast || isCut || ahead) return std::min(end, sourceSize);
    isSized = false;
    const qint64 found = endBySearch(header);
    if (!ahead) return std::min(end, sourceSize);
    archiveEnd = _archiveEnd::broken;
    return found;
}

qint64 _archive::endBySearch(const _header& header) {
    ahead = searchHeader(header.bodyStart);
    return ahead ? ahead->start : sourceSize;
}

std::optional<_archive::_header> _archive::headerAt(qint64 offset) {
    const _headerForm& form = formOf(archiveKind);
    const std::string_view bytes = bytesAt(offset, form.fixedBytes + longestName);
    const std::string_view fixed = bytes.substr(0, static_cast<std::size_t>(form.fixedBytes));
    if (!hasForm(fixed, form)) return std::nullopt;
    std::string_view behind = bytes.substr(fixed.size());
    _header header{{}, offset, 0, 0};
    if (archiveKind == _archiveKind::open) {
        const qint64 nameSize = octalIn(fixed.substr(nameSizeAt, nameSizeDigits));
        if (nameSize > longestName) return std::nullopt;
        behind = behind.substr(0, static_cast<std::size_t>(nameSize));
        header.bodySize = octalIn(fixed.substr(bodySizeAt, bodySizeDigits));
    }
    vxP::spendWork(vxP::archiveEntryCost);
    const std::size_t nameSize = nameSizeIn(behind);
    const bool isTold = archiveKind != _archiveKind::open || nameSize + 1 == behind.size();
    if (nameSize == 0 || !isTold) return std::nullopt;
    header.name = behind.substr(0, nameSize);
    header.bodyStart = offset + form.fixedBytes + static_cast<qint64>(nameSize) + 1;
    return header;
}

/// The next header at or behind an offset.
std::optional<_archive::_header> _archive::searchHeader(qint64 from) {
    const std::string_view magic = formOf(archiveKind).magic;
    const auto magicBytes = static_cast<qint64>(magic.size());
    for (std::string_view bytes = blockFrom(from, magicBytes); bytes.size() >= magic.size();
         bytes = blockFrom(from, magicBytes)) {
        const std::size_t found = findMagic(bytes, magic);
        from += static_cast<qint64>(std::min(found, bytes.size() - magic.size() + 1));
        if (found == std::string_view::npos) continue;
        vxP::spendWork(vxP::archiveMagicCost);
        if (auto header = headerAt(from)) return header;
        ++from;
    }
    return std::nullopt;
}

std::string_view _archive::bytesAt(qint64 offset, qint64 wanted) {
    return blockFrom(offset, wanted).substr(0, static_cast<std::size_t>(wanted));
}

/// All that the block holds from an offset on: as much as wanted and more, less only at the end of the source.
std::string_view _archive::blockFrom(qint64 offset, qint64 wanted) {
    const qint64 count = std::clamp<qint64>(sourceSize - offset, 0, wanted);
    const bool isHere = offset >= blockStart && offset + count <= blockStart + static_cast<qint64>(block.size());
    if (!isHere) readBlock(offset, count);
    return std::string_view(block).substr(std::min(static_cast<std::size_t>(offset - blockStart), block.size()));
}

void _archive::readBlock(qint64 offset, qint64 count) {
    blockStart = std::max<qint64>(offset - behindBytes, 0);
    const qint64 most = std::min(sourceSize - blockStart, std::max(blockBytes, behindBytes + count));
    block.resize(static_cast<std::size_t>(most));
    const qint64 got = readFailed ? -1 : source.readAt(blockStart, block.data(), most);
    readFailed = got < 0;
    block.resize(static_cast<std::size_t>(std::max<qint64>(got, 0)));
    const qint64 end = blockStart + static_cast<qint64>(block.size());
    vxP::allowWorkFor(std::max<qint64>(end - std::max(furthest, blockStart), 0));
    vxP::spendWork(vxP::archiveSearchCost, end - blockStart);
    furthest = std::max(furthest, end);
}

std::string _archive::read(const _body& body, qint64 most) {
    const qint64 wanted = std::min(body.size, most);
    return wanted > blockBytes ? readBody(source, body, most) : std::string(bytesAt(body.offset, wanted));
}

std::string readBody(const _byteSource& source, const _body& body, qint64 most) {
    const qint64 wanted = std::min({body.size, most, std::max<qint64>(source.byteCount() - body.offset, 0)});
    vxP::spendWork(vxP::archiveBodyCost, wanted);
    std::string text(static_cast<std::size_t>(wanted), '\0');
    const qint64 got = source.readAt(body.offset, text.data(), wanted);
    text.resize(static_cast<std::size_t>(std::max<qint64>(got, 0)));
    return text;
}

qint64 headerBytes(_archiveKind kind) {
    return kind == _archiveKind::none ? 0 : formOf(kind).fixedBytes;
}

}  // namespace vxN
