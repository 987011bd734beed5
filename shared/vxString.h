// Texts of fixed capacity in 16-bit characters, as the records shared with the host hold them.
#pragma once

#include <QString>
#include <QStringView>
#include <compare>

#include "shared/vxExport.h"

namespace vxS {

/// Qt's own type for lengths and positions of texts: 32 bits with Qt 5, 64 bits with Qt 6.
using _size = decltype(QString().size());

/// One fixed-capacity text without its capacity as a type, so that the operations exist once.
struct _wideText {
    quint16* length;   ///< characters in use; a broken host may have written more than the capacity
    char16_t* units;   ///< `capacity` + 1 characters, the last one for the terminator
    quint16 capacity;  ///< characters, without the terminator
};

/// Characters in use, never more than the capacity.
constexpr quint16 usedLength(quint16 length, quint16 capacity) noexcept {
    return length < capacity ? length : capacity;
}

// The operations that change a text. All cut at capacity, end the text with a 0 character, and accept a source
// that lies inside the text itself. Positions outside the text change nothing.
VX_EXPORT void assignText(_wideText text, QStringView source) noexcept;
VX_EXPORT void setTextLength(_wideText text, _size length) noexcept;
VX_EXPORT void insertText(_wideText text, _size position, QStringView source);
VX_EXPORT void removeText(_wideText text, _size position, _size count) noexcept;
VX_EXPORT void replaceText(_wideText text, QStringView before, QStringView after, Qt::CaseSensitivity sensitivity);

/// A text of up to `Capacity` 16-bit characters: 2 * Capacity + 6 bytes, trivially copyable, alignment 2.
/// Every assignment cuts at capacity; nothing fails on overflow. A length word above the capacity reads as the
/// capacity. Assigning a text leaves the two bytes after the length word alone.
template <quint16 Capacity>
class _vxString {
 public:
    _vxString() noexcept { clear(); }
    explicit _vxString(QStringView source) noexcept : lengthWord(0) { *this = source; }
    _vxString& operator=(QStringView source) noexcept {
        assignText(text(), source);
        return *this;
    }

    static constexpr quint16 capacity() noexcept { return Capacity; }
    _size length() const noexcept { return usedLength(lengthWord, Capacity); }
    bool isEmpty() const noexcept { return lengthWord == 0; }
    QStringView view() const noexcept { return QStringView(units, length()); }
    QString toQString() const { return view().toString(); }

    /// Length 0 and a terminator in first place; the characters after it stay.
    void clear() noexcept {
        lengthWord = 0;
        units[0] = u'\0';
    }
    /// Cuts the text to its first `length` characters; a greater length changes nothing.
    void setLength(_size length) noexcept { setTextLength(text(), length); }
    void insert(_size position, QStringView source) { insertText(text(), position, source); }
    void append(QStringView source) { insertText(text(), length(), source); }
    void remove(_size position, _size count) noexcept { removeText(text(), position, count); }
    void replaceCaseSen(QStringView before, QStringView after) {
        replaceText(text(), before, after, Qt::CaseSensitive);
    }
    void replaceCaseInsen(QStringView before, QStringView after) {
        replaceText(text(), before, after, Qt::CaseInsensitive);
    }

    /// First position of `part` at or after `from`, or -1.
    _size indexOf(QStringView part, _size from = 0, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const {
        return static_cast<_size>(view().indexOf(part, from, sensitivity));
    }
    _size lastIndexOf(QStringView part) const { return static_cast<_size>(view().lastIndexOf(part)); }
    bool contains(QStringView part, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const {
        return view().contains(part, sensitivity);
    }
    bool startsWithCaseSen(QStringView part) const noexcept { return view().startsWith(part); }
    bool endsWithCaseInsen(QStringView part) const noexcept { return view().endsWith(part, Qt::CaseInsensitive); }

    /// Texts compare by their 16-bit characters, also across capacities.
    template <quint16 Other>
    bool operator==(const _vxString<Other>& other) const noexcept {
        return view() == other.view();
    }
    bool operator==(QStringView other) const noexcept { return view() == other; }
    template <quint16 Other>
    std::strong_ordering operator<=>(const _vxString<Other>& other) const noexcept {
        return view().compare(other.view()) <=> 0;
    }

 private:
    _wideText text() noexcept { return {&lengthWord, units, Capacity}; }

    quint16 lengthWord;
    quint16 untouched;
    char16_t units[Capacity + 1];
};

static_assert(sizeof(_vxString<25>) == 56 && sizeof(_vxString<1000>) == 2006 && alignof(_vxString<25>) == 2);

}  // namespace vxS
