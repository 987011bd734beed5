#include "shared/vxString.h"

#include <algorithm>
#include <cstring>

namespace vxS {

namespace {

QStringView viewOf(const _wideText& text) noexcept {
    return {text.units, static_cast<qsizetype>(usedLength(*text.length, text.capacity))};
}

void endTextAt(const _wideText& text, qsizetype length) noexcept {
    *text.length = static_cast<quint16>(length);
    text.units[length] = u'\0';
}

}  // namespace

void assignText(_wideText text, QStringView source) noexcept {
    const qsizetype length = std::min<qsizetype>(source.size(), text.capacity);
    if (length > 0) std::memmove(text.units, source.utf16(), static_cast<std::size_t>(length) * sizeof(char16_t));
    endTextAt(text, length);
}

void setTextLength(_wideText text, _size length) noexcept {
    if (length >= 0 && length <= viewOf(text).size()) endTextAt(text, length);
}

void insertText(_wideText text, _size position, QStringView source) {
    const QStringView old = viewOf(text);
    if (position < 0 || position > old.size()) return;
    assignText(text, old.toString().insert(position, source.toString()));
}

void removeText(_wideText text, _size position, _size count) noexcept {
    const qsizetype length = viewOf(text).size();
    if (position < 0 || position >= length || count <= 0) return;
    const qsizetype removed = std::min<qsizetype>(count, length - position);
    char16_t* const hole = text.units + position;
    std::memmove(hole, hole + removed, static_cast<std::size_t>(length - position - removed) * sizeof(char16_t));
    endTextAt(text, length - removed);
}

void replaceText(_wideText text, QStringView before, QStringView after, Qt::CaseSensitivity sensitivity) {
    const QStringView old = viewOf(text);
    auto found = before.isEmpty() ? -1 : old.indexOf(before, 0, sensitivity);
    if (found < 0) return;
    QString changed;
    decltype(found) copied = 0;
    for (; found >= 0 && changed.size() < text.capacity; found = old.indexOf(before, copied, sensitivity)) {
        changed += old.mid(copied, found - copied);
        changed += after.left(text.capacity);
        copied = found + before.size();
    }
    assignText(text, changed += old.mid(copied));
}

}  // namespace vxS
