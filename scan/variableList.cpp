#include "scan/variableList.h"

#include <algorithm>
#include <bit>
#include <numeric>

#include "scan/scanBudget.h"
#include "shared/vxLetterCase.h"

namespace vxP {

namespace {

constexpr quint32 hashOfNothing = 2166136261U;

/// FNV-1a over folded characters. Qt folds a pair of surrogates as one character, so they do not tell names apart here.
quint32 hashWith(quint32 hash, QChar character) {
    const char16_t folded = character.isSurrogate() ? u'\xD800' : vxS::foldedCase(character).unicode();
    return (hash ^ folded) * 16777619U;
}

quint32 hashOf(QStringView name) {
    return std::accumulate(name.begin(), name.end(), hashOfNothing, hashWith);
}

bool isLatin(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar character) { return character.unicode() < 0x100; });
}

}  // namespace

_variableList::_variableList(const QList<_namevalue>& variables) {
    for (const _namevalue& variable : variables) append(variable.name, variable.value);
}

qint64 _variableList::bytesOf(QStringView name, QStringView value) {
    const qint64 width = isLatin(name) && isLatin(value) ? 1 : 2;
    return static_cast<qint64>(sizeof(_entry) + sizeof(_key)) + (name.size() + value.size()) * width;
}

void _variableList::append(QStringView name, QStringView value) {
    const bool isWide = !isLatin(name) || !isLatin(value);
    const _entry entry{static_cast<quint32>(texts.size()), static_cast<quint32>(name.size()),
                       static_cast<quint32>(value.size()), isWide};
    store(name, isWide);
    store(value, isWide);
    entries.push_back(entry);  // last, as each step may get no memory
}

void _variableList::store(QStringView text, bool isWide) {
    const auto* const bytes = reinterpret_cast<const char*>(text.utf16());
    if (isWide)
        texts.insert(texts.end(), bytes, bytes + text.size() * static_cast<_size>(sizeof(QChar)));
    else
        for (const QChar character : text) texts.push_back(character.toLatin1());
}

void _variableList::orderByLength() {
    // Texts are in the order in which they were appended; sorting by their places needs no second list.
    std::sort(entries.begin(), entries.end(), [](const _entry& a, const _entry& b) {
        return a.nameLength != b.nameLength ? a.nameLength > b.nameLength : a.start < b.start;
    });
    keys.clear();
}

QString _variableList::textOf(const _entry& entry, quint32 from, quint32 length) const {
    const auto width = static_cast<qint64>(entry.isWide ? sizeof(QChar) : 1);
    const auto start = texts.begin() + entry.start + from * width;
    if (entry.isWide) {
        QString text(static_cast<int>(length), Qt::Uninitialized);
        std::copy(start, start + length * width, reinterpret_cast<char*>(text.data()));
        return text;
    }
    QByteArray text(static_cast<int>(length), Qt::Uninitialized);
    std::copy(start, start + length, text.begin());
    return QString::fromLatin1(text.constData(), text.size());  // without its size, Qt 5 ends it at a NUL
}

QString _variableList::nameOf(_size position) const {
    const _entry& entry = entries[static_cast<std::size_t>(position)];
    return textOf(entry, 0, entry.nameLength);
}

QString _variableList::valueOf(_size position) const {
    const _entry& entry = entries[static_cast<std::size_t>(position)];
    return textOf(entry, entry.nameLength, entry.valueLength);
}

QList<_namevalue> _variableList::toList() const {
    QList<_namevalue> variables;
    for (_size position = 0; position < size(); ++position) variables.append(at(position));
    return variables;
}

/// Takes all its memory before it changes the index.
void _variableList::indexNewEntries() const {
    const std::size_t indexed = keys.size();
    if (indexed == entries.size()) return;
    spendWork(variableIndexCost, static_cast<qint64>(entries.size()));
    keys.reserve(entries.size());
    for (std::size_t position = indexed; position < entries.size(); ++position)
        if (hasNameOf.size() <= entries[position].nameLength) hasNameOf.resize(entries[position].nameLength + 1);
    for (std::size_t position = indexed; position < entries.size(); ++position) {
        keys.push_back({hashOf(nameOf(static_cast<_size>(position))), static_cast<quint32>(position)});
        hasNameOf[entries[position].nameLength] = true;
    }
    const auto firstNew = keys.begin() + static_cast<std::ptrdiff_t>(indexed);
    std::sort(firstNew, keys.end());
    std::inplace_merge(keys.begin(), firstNew, keys.end());
}

_size _variableList::firstOf(quint32 hash, QStringView name, _size from) const {
    const _key first{hash, static_cast<quint32>(from)};
    for (auto key = std::lower_bound(keys.begin(), keys.end(), first); key != keys.end() && key->hash == hash; ++key) {
        spendWork(nameComparisonCost, name.size());
        if (name.compare(nameOf(key->position), Qt::CaseInsensitive) == 0) return key->position;
    }
    return -1;
}

/// The first variable with whose name the text begins, or -1.
_size _variableList::firstBeginning(QStringView text, _size from) const {
    _size first = -1;
    quint32 hash = hashOfNothing;
    const _size longest = std::min(static_cast<_size>(text.size()), static_cast<_size>(hasNameOf.size()) - 1);
    spendWork(variableMarkCost, longest);
    for (_size length = 0; length <= longest; ++length) {
        if (length > 0) hash = hashWith(hash, text.at(length - 1));
        if (!hasNameOf[static_cast<std::size_t>(length)]) continue;
        spendWork(variableLookupCost, static_cast<qint64>(std::bit_width(keys.size())));
        const _size found = firstOf(hash, text.left(length), from);
        if (found >= 0 && (first < 0 || found < first)) first = found;
    }
    return first;
}

_size _variableList::firstNamedIn(QStringView text, const QList<_size>& marks, _size from) const {
    indexNewEntries();
    _size first = -1;
    const auto consider = [&](QStringView rest) {
        const _size found = firstBeginning(rest, from);
        if (found >= 0 && (first < 0 || found < first)) first = found;
    };
    for (const _size mark : marks) {
        const QStringView rest = text.mid(mark + 1);
        consider(rest);
        if (rest.startsWith(u'{')) consider(rest.mid(1));
    }
    return first;
}

QStringList _variableList::valuesOf(QStringView name) const {
    indexNewEntries();
    const quint32 hash = hashOf(name);
    QStringList values;
    for (_size at = firstOf(hash, name, 0); at >= 0; at = firstOf(hash, name, at + 1)) {
        values.append(valueOf(at));
        keepMemory(static_cast<qint64>(sizeof(QString)) + vxP::bytesOf(values.last()));
    }
    return values;
}

}  // namespace vxP
