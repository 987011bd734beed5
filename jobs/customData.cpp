// Custom data: a name directory, one entry after the other, then the values. An entry is
//
//   mode "u" or "c" | start of the value, 2 bytes | its characters, 2 bytes | name | zero byte
//
// with the high byte first. The block is shared with another program, so nothing in it is taken on trust.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxJ {

namespace {

constexpr int entryHeadSize = 5;
constexpr int characterLimit = 3990;          // names, values and 5 for each entry
constexpr quint8 modeLetters[] = {'u', 'c'};  // by CUSTOMData_Modes

int bytesPerCharacter(CUSTOMData_Modes mode) {
    return mode == CUSTOMData_Modes::twoBytes ? 2 : 1;
}

int bigEndian(const quint8* bytes) {
    return bytes[0] * 256 + bytes[1];
}

quint8* putBigEndian(quint8* at, int number) {
    at[0] = static_cast<quint8>(number / 256);
    at[1] = static_cast<quint8>(number % 256);
    return at + 2;
}

quint8* putBytes(quint8* at, const QByteArray& bytes) {
    std::memcpy(at, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return at + bytes.size();
}

/// A directory entry as it is read. The name lies inside the block; the value may still be out of it.
struct _entry {
    CUSTOMData_Modes mode;
    int valueStart;
    int valueLength;  ///< characters
    QLatin1String name;
};

/// The entries in order, as many as the count says, at most up to the first damaged one.
class _directoryWalk {
 public:
    explicit _directoryWalk(const _JobSettingsScene& settings)
        : block(settings.customDataBlock), left(settings.customDataCount) {}

    bool next(_entry& entry) {
        const int nameStart = position + entryHeadSize;
        if (left <= 0 || nameStart >= customDataBlockCapacity) return false;
        const auto* const mode = std::find(std::begin(modeLetters), std::end(modeLetters), block[position]);
        const quint8* const name = block + nameStart;
        const quint8* const nameEnd = std::find(name, block + customDataBlockCapacity, quint8{0});
        if (mode == std::end(modeLetters) || nameEnd == block + customDataBlockCapacity) return false;
        const int nameLength = static_cast<int>(nameEnd - name);
        entry = {static_cast<CUSTOMData_Modes>(mode - modeLetters), bigEndian(block + position + 1),
                 bigEndian(block + position + 3), QLatin1String(reinterpret_cast<const char*>(name), nameLength)};
        position = nameStart + nameLength + 1;
        --left;
        return true;
    }

 private:
    const quint8* block;
    int left;
    int position = 0;
};

bool findByID(const _JobSettingsScene& settings, int id, _entry& entry) {
    if (id < 0) return false;
    _directoryWalk walk(settings);
    while (walk.next(entry))
        if (id-- == 0) return true;
    return false;
}

bool findByName(const _JobSettingsScene& settings, const QString& name, _entry& entry) {
    _directoryWalk walk(settings);
    while (walk.next(entry))
        if (entry.name.compare(name, Qt::CaseInsensitive) == 0) return true;
    return false;
}

/// The low byte of each character; empty for a value that does not lie inside the block.
QString decodedValue(const _JobSettingsScene& settings, const _entry& entry) {
    const int width = bytesPerCharacter(entry.mode);
    if (entry.valueStart + entry.valueLength * width > customDataBlockCapacity) return {};
    const quint8* low = settings.customDataBlock + entry.valueStart + width - 1;
    QString value(entry.valueLength, QChar());
    for (QChar& character : value) {
        character = QChar(char16_t{*low});
        low += width;
    }
    return value;
}

/// An entry as it is written.
struct _storedEntry {
    CUSTOMData_Modes mode;
    int valueLength;  ///< characters
    QByteArray name;
    QByteArray value;

    _size bytes() const { return entryHeadSize + name.size() + 1 + value.size(); }
};

QByteArray encoded(const QString& text, CUSTOMData_Modes mode) {
    QByteArray bytes;
    for (const QChar character : text) {
        if (mode == CUSTOMData_Modes::twoBytes) bytes.append(static_cast<char>(character.row()));
        bytes.append(static_cast<char>(character.cell()));
    }
    return bytes;
}

_storedEntry storedEntry(const QString& name, const QString& value) {
    const bool wide = std::any_of(value.begin(), value.end(), [](QChar c) { return c.row() != 0; });
    const auto mode = wide ? CUSTOMData_Modes::twoBytes : CUSTOMData_Modes::oneByte;
    QByteArray nameBytes = encoded(name, CUSTOMData_Modes::oneByte);
    const auto zero = nameBytes.indexOf('\0');  // would end the name in the directory
    if (zero >= 0) nameBytes.truncate(zero);
    return {mode, static_cast<int>(value.size()), nameBytes, encoded(value, mode)};
}

std::vector<_storedEntry> entriesThatFit(const QStringList& names, const QStringList& values) {
    std::vector<_storedEntry> entries;
    qint64 characters = 0;
    qint64 bytes = 0;
    const _size count = std::min(names.size(), values.size());
    for (_size i = 0; i < count; ++i) {
        characters += names.at(i).size() + values.at(i).size() + 5;
        if (characters > characterLimit) break;
        _storedEntry entry = storedEntry(names.at(i), values.at(i));
        bytes += entry.bytes();  // two-byte values and many short entries take more bytes than characters were counted
        if (bytes > customDataBlockCapacity) break;
        entries.push_back(std::move(entry));
    }
    return entries;
}

quint8* writeDirectory(quint8* at, const std::vector<_storedEntry>& entries) {
    int valueStart = 0;
    for (const auto& entry : entries) valueStart += static_cast<int>(entry.bytes() - entry.value.size());
    for (const auto& entry : entries) {
        *at++ = modeLetters[static_cast<int>(entry.mode)];
        at = putBigEndian(at, valueStart);
        at = putBigEndian(at, entry.valueLength);
        at = putBytes(at, entry.name);
        *at++ = 0;
        valueStart += static_cast<int>(entry.value.size());
    }
    return at;
}

/// Upper case within Latin-1; a letter whose upper case lies outside stays.
char upperLatin1(quint8 byte) {
    const QChar upper = QChar(char16_t{byte}).toUpper();
    return static_cast<char>(upper.row() == 0 ? upper.cell() : byte);
}

}  // namespace

void _JobSettingsScene::customData_ClearAll() {
    customDataCount = 0;
    customDataValuesEnd = 0;
    customDataNamesEnd = 0;
}

QString _JobSettingsScene::customData_NameByID(int id) const {
    _entry entry;
    return findByID(*this, id, entry) ? QString(entry.name) : QString();
}

QString _JobSettingsScene::customData_StrByID(int id) const {
    _entry entry;
    return findByID(*this, id, entry) ? decodedValue(*this, entry) : QString();
}

QString _JobSettingsScene::customData_Str(const QString& name) const {
    _entry entry;
    return findByName(*this, name, entry) ? decodedValue(*this, entry) : QString();
}

bool _JobSettingsScene::customData_Contains(const QString& name) const {
    _entry entry;
    return findByName(*this, name, entry);
}

_vxString8_allSize<5000> _JobSettingsScene::customData_allValuesAsBlock_Uppercase() const {
    if (customDataValuesEnd < 1 || customDataValuesEnd > customDataBlockCapacity || customDataNamesEnd < 0 ||
        customDataNamesEnd > customDataValuesEnd)
        return {};
    std::string upper;
    for (int i = customDataNamesEnd; i < customDataValuesEnd; ++i) upper += upperLatin1(customDataBlock[i]);
    return _vxString8_allSize<5000>(std::string_view(upper));
}

bool _JobSettingsScene::customData_isEqual(const _JobSettingsScene* other) const {
    return other != nullptr && std::memcmp(customDataBlock, other->customDataBlock, sizeof customDataBlock) == 0;
}

void _JobSettingsScene::customData_All(QStringList& names, QStringList& values) const {
    names.clear();
    values.clear();
    _directoryWalk walk(*this);
    for (_entry entry; walk.next(entry);) {
        names.append(entry.name);
        values.append(decodedValue(*this, entry));
    }
}

void _JobSettingsScene::customData_All(_varValList& list) const {
    list.clear();
    _directoryWalk walk(*this);
    for (_entry entry; walk.next(entry);) list.append({entry.name, decodedValue(*this, entry)});
}

QString _JobSettingsScene::customData_AllAsString() const {
    QString lines;
    _directoryWalk walk(*this);
    for (_entry entry; walk.next(entry);)
        lines += entry.name + QLatin1Char('=') + decodedValue(*this, entry) + QLatin1Char('\n');
    return lines;
}

void _JobSettingsScene::customDataSet_All(const QStringList& names, const QStringList& values) {
    const std::vector<_storedEntry> entries = entriesThatFit(names, values);
    std::fill(std::begin(customDataBlock), std::end(customDataBlock), quint8{0});
    quint8* end = writeDirectory(customDataBlock, entries);
    customDataNamesEnd = static_cast<qint32>(end - customDataBlock);
    for (const auto& entry : entries) end = putBytes(end, entry.value);
    customDataValuesEnd = static_cast<qint32>(end - customDataBlock);
    customDataCount = static_cast<qint32>(entries.size());
}

void _JobSettingsScene::customDataSet_All(const _varValList& list) {
    QStringList names;
    QStringList values;
    for (const auto& variable : list) {
        names.append(variable.name);
        values.append(variable.value);
    }
    customDataSet_All(names, values);
}

void _JobSettingsScene::customDataSet_Str(const QString& name, const QString& value) {
    QStringList names;
    QStringList values;
    customData_All(names, values);
    bool found = false;
    for (_size i = 0; i < names.size(); ++i) {
        if (names.at(i).compare(name, Qt::CaseInsensitive) != 0) continue;
        found = true;
        if (value.isEmpty()) {
            names.removeAt(i);
            values.removeAt(i);
        } else {
            values[i] = value;
        }
    }
    if (!found && !value.isEmpty()) {
        names.append(name);
        values.append(value);
    }
    customDataSet_All(names, values);
}

void _JobSettingsScene::customDataSet_StrByID(int id, const QString& value) {
    QStringList names;
    QStringList values;
    customData_All(names, values);
    if (id < 0 || id >= names.size()) return;
    if (value.isEmpty()) {
        names.removeAt(id);
        values.removeAt(id);
    } else {
        values[id] = value;
    }
    customDataSet_All(names, values);
}

}  // namespace vxJ
