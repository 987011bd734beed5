#include "host/files/folderScan.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <optional>
#include <string_view>

namespace vxH {
namespace {

constexpr std::size_t mostDigits = 18;  // of a frame number that fits 64 bits

int sizeOf(const QByteArray& text) {
    return static_cast<int>(text.size());
}

QByteArray numberedKey(std::string_view prefix, std::string_view suffix) {
    QByteArray key(prefix.data(), static_cast<int>(prefix.size()));
    key.append('\0');
    return key.append(suffix.data(), static_cast<int>(suffix.size()));
}

/// Digits with "-" in front of a negative one.
struct _frameText {
    qint64 frame;
    std::size_t digits;
    bool hasZeros;  ///< in front
};

std::optional<_frameText> frameText(std::string_view text) {
    const bool isNegative = !text.empty() && text.front() == '-';
    const auto digits = text.substr(isNegative ? 1 : 0);
    if (digits.empty() || digits.size() > mostDigits) return std::nullopt;
    qint64 number = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9') return std::nullopt;
        number = number * 10 + (digit - '0');
    }
    if (isNegative && number == 0) return std::nullopt;
    return _frameText{isNegative ? -number : number, digits.size(), digits.size() > 1 && digits.front() == '0'};
}

/// Of a negative number programs count the "-" among the digits or do not.
bool isPadded(const _frameText& text, int padding) {
    const auto least = static_cast<std::size_t>(padding);
    const bool isExact = text.hasZeros ? text.digits == least : text.digits >= least;
    const bool countsSign = text.frame < 0 && (text.hasZeros ? text.digits + 1 == least : text.digits + 1 >= least);
    return isExact || countsSign;
}

struct _closeFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

/// Asks for a file once, however many jobs write it.
class _fileLook {
 public:
    _fileLook(int folderDescriptor, const dirent& entryOfFile, bool isAsked)
        : folder(folderDescriptor), entry(entryOfFile), asks(isAsked) {}

    /// @return false for what is no file
    bool fill(_foundFile& file) {
        if (!isDone) look();
        file.bytes = found.bytes;
        file.changed = found.changed;
        return isFile;
    }

 private:
    void look() {
        isDone = true;
        isFile = entry.d_type == DT_REG;
        if (!asks && (isFile || entry.d_type == DT_DIR)) return;
        struct stat status {};
        isFile = fstatat(folder, static_cast<const char*>(entry.d_name), &status, 0) == 0 && S_ISREG(status.st_mode);
        if (!isFile || !asks) return;
        found.bytes = status.st_size;
        found.changed = status.st_mtim;
    }

    int folder;
    const dirent& entry;
    bool asks;
    bool isDone = false;
    bool isFile = false;
    _foundFile found;
};

}  // namespace

/// A reading on its way.
class _folderScan::_reading {
 public:
    _reading(const _folderScan& wantedNames, const _takeFound& takeFile) : scan(wantedNames), take(takeFile) {}

    void look(std::string_view name, _fileLook& file) const {
        if (!scan.whole.isEmpty()) {
            const auto found =
                scan.whole.constFind(QByteArray::fromRawData(name.data(), static_cast<int>(name.size())));
            if (found != scan.whole.constEnd())
                for (const auto place : *found) hand(place, 0, file);
        }
        for (const auto& [front, back] : scan.lengths) lookForFrame(name, front, back, file);
    }

 private:
    void lookForFrame(std::string_view name, int front, int back, _fileLook& file) const {
        const auto prefix = static_cast<std::size_t>(front);
        const auto suffix = static_cast<std::size_t>(back);
        if (name.size() <= prefix + suffix) return;
        const auto text = frameText(name.substr(prefix, name.size() - prefix - suffix));
        if (!text) return;
        const auto found =
            scan.numbered.constFind(numberedKey(name.substr(0, prefix), name.substr(name.size() - suffix)));
        if (found == scan.numbered.constEnd()) return;
        for (const auto place : *found)
            if (isPadded(*text, scan.numbers[place].padding)) handFrame(place, text->frame, file);
    }

    void handFrame(std::size_t wanted, qint64 frame, _fileLook& file) const {
        const auto& [first, last, step] = scan.numbers[wanted].frames;
        const bool isWanted = first <= frame && frame <= last && (frame - first) % step == 0;
        if (isWanted) hand(wanted, (frame - first) / step, file);
    }

    void hand(std::size_t wanted, qint64 place, _fileLook& look) const {
        _foundFile file;
        file.place = place;
        if (look.fill(file)) take(wanted, file);
    }

    const _folderScan& scan;
    const _takeFound& take;
};

void _folderScan::add(const _wantedName& name) {
    const auto place = numbers.size();
    numbers.push_back({name.padding, name.frames});
    if (name.padding == 0) {
        whole[name.prefix + name.suffix].push_back(place);
        return;
    }
    lengths.emplace(sizeOf(name.prefix), sizeOf(name.suffix));
    numbered[numberedKey({name.prefix.constData(), static_cast<std::size_t>(name.prefix.size())},
                         {name.suffix.constData(), static_cast<std::size_t>(name.suffix.size())})]
        .push_back(place);
}

_folderAnswer _folderScan::read(const QString& path, bool asksForSizes, const _takeFound& take, int& error) const {
    const std::unique_ptr<DIR, _closeFolder> folder(opendir(path.toUtf8().constData()));
    error = errno;
    if (!folder) return error == ENOENT || error == ENOTDIR ? _folderAnswer::isMissing : _folderAnswer::failed;
    const _reading reading(*this, take);
    errno = 0;
    for (const dirent* entry = readdir(folder.get()); entry != nullptr; entry = readdir(folder.get())) {
        _fileLook file(dirfd(folder.get()), *entry, asksForSizes);
        reading.look({static_cast<const char*>(entry->d_name)}, file);
        errno = 0;
    }
    error = errno;
    return error == 0 ? _folderAnswer::read : _folderAnswer::failed;
}

}  // namespace vxH
