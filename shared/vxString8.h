// Texts of fixed capacity in 8-bit characters, as the records shared with the host hold them.
#pragma once

#include <QString>
#include <QStringView>
#include <compare>
#include <string_view>

#include "shared/vxString.h"

namespace vxS {

/// One fixed-capacity 8-bit text without its capacity as a type.
struct _narrowText {
    quint16* length;
    char* bytes;  ///< `capacity` + 1 characters, the last one for the terminator
    quint16 capacity;
};

// The operations that change a text. All cut at capacity, end the text with a 0 byte, and accept a source that
// lies inside the text itself. Positions outside the text change nothing.
VX_EXPORT void assignText(_narrowText text, std::string_view source) noexcept;
/// Characters are stored as Latin-1; one above U+00FF becomes "?".
VX_EXPORT void assignText(_narrowText text, QStringView source);
VX_EXPORT void setTextLength(_narrowText text, _size length) noexcept;
VX_EXPORT void insertText(_narrowText text, _size position, std::string_view source);
VX_EXPORT void removeText(_narrowText text, _size position, _size count) noexcept;
VX_EXPORT void replaceText(_narrowText text, std::string_view before, std::string_view after,
                           Qt::CaseSensitivity sensitivity);
/// First position of `part` at or after `from`, or -1. Case is folded for ASCII letters only.
VX_EXPORT _size indexOfText(std::string_view text, std::string_view part, _size from,
                            Qt::CaseSensitivity sensitivity) noexcept;

/// A text of up to `Capacity` 8-bit Latin-1 characters: 2 bytes of length and Capacity + 1 characters, filled up to
/// an even size. Trivially copyable, alignment 2. The rules of `_vxString` hold: cut at capacity, never fail.
template <quint16 Capacity>
class _vxString8_allSize {
 public:
    _vxString8_allSize() noexcept { clear(); }
    explicit _vxString8_allSize(std::string_view source) noexcept { *this = source; }
    explicit _vxString8_allSize(const char* source) noexcept { *this = std::string_view(source); }
    explicit _vxString8_allSize(QStringView source) { *this = source; }
    _vxString8_allSize& operator=(std::string_view source) noexcept {
        assignText(text(), source);
        return *this;
    }
    _vxString8_allSize& operator=(QStringView source) {
        assignText(text(), source);
        return *this;
    }

    static constexpr quint16 capacity() noexcept { return Capacity; }
    _size length() const noexcept { return usedLength(lengthWord, Capacity); }
    bool isEmpty() const noexcept { return lengthWord == 0; }
    std::string_view view() const noexcept { return {bytes, static_cast<std::size_t>(length())}; }
    QString toQString() const { return QString::fromLatin1(bytes, length()); }

    void clear() noexcept {
        lengthWord = 0;
        bytes[0] = '\0';
    }
    /// Cuts the text to its first `length` characters; a greater length changes nothing.
    void setLength(_size length) noexcept { setTextLength(text(), length); }
    void insert(_size position, std::string_view source) { insertText(text(), position, source); }
    void remove(_size position, _size count) noexcept { removeText(text(), position, count); }
    void replaceCaseSen(std::string_view before, std::string_view after) {
        replaceText(text(), before, after, Qt::CaseSensitive);
    }
    void replaceCaseInsen(std::string_view before, std::string_view after) {
        replaceText(text(), before, after, Qt::CaseInsensitive);
    }
    _size indexOf(std::string_view part, _size from = 0,
                  Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const noexcept {
        return indexOfText(view(), part, from, sensitivity);
    }
    bool contains(std::string_view part) const noexcept { return indexOf(part) >= 0; }
    bool startsWith(const char* part) const noexcept { return view().starts_with(part); }

    template <quint16 Other>
    bool operator==(const _vxString8_allSize<Other>& other) const noexcept {
        return view() == other.view();
    }
    bool operator==(std::string_view other) const noexcept { return view() == other; }
    template <quint16 Other>
    std::strong_ordering operator<=>(const _vxString8_allSize<Other>& other) const noexcept {
        return view() <=> other.view();
    }

 private:
    _narrowText text() noexcept { return {&lengthWord, bytes, Capacity}; }

    quint16 lengthWord;
    char bytes[(Capacity / 2 + 1) * 2];
};

static_assert(sizeof(_vxString8_allSize<15>) == 18 && sizeof(_vxString8_allSize<16>) == 20);
static_assert(sizeof(_vxString8_allSize<150>) == 154 && alignof(_vxString8_allSize<150>) == 2);

}  // namespace vxS
