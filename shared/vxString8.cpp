#include "shared/vxString8.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace vxS {

namespace {

std::string_view viewOf(const _narrowText& text) noexcept {
    return {text.bytes, usedLength(*text.length, text.capacity)};
}

void endTextAt(const _narrowText& text, std::size_t length) noexcept {
    *text.length = static_cast<quint16>(length);
    text.bytes[length] = '\0';
}

char foldedLetter(char letter) noexcept {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

void assignText(_narrowText text, std::string_view source) noexcept {
    const std::size_t length = std::min<std::size_t>(source.size(), text.capacity);
    if (length > 0) std::memmove(text.bytes, source.data(), length);
    endTextAt(text, length);
}

void assignText(_narrowText text, QStringView source) {
    const QByteArray latin = source.toLatin1();
    assignText(text, std::string_view(latin.constData(), static_cast<std::size_t>(latin.size())));
}

void setTextLength(_narrowText text, _size length) noexcept {
    if (length >= 0 && static_cast<std::size_t>(length) <= viewOf(text).size())
        endTextAt(text, static_cast<std::size_t>(length));
}

void insertText(_narrowText text, _size position, std::string_view source) {
    std::string whole(viewOf(text));
    if (position < 0 || static_cast<std::size_t>(position) > whole.size()) return;
    assignText(text, std::string_view(whole.insert(static_cast<std::size_t>(position), source)));
}

void removeText(_narrowText text, _size position, _size count) noexcept {
    const std::size_t length = viewOf(text).size();
    const auto start = static_cast<std::size_t>(position);
    if (position < 0 || start >= length || count <= 0) return;
    const std::size_t removed = std::min(static_cast<std::size_t>(count), length - start);
    std::memmove(text.bytes + start, text.bytes + start + removed, length - start - removed);
    endTextAt(text, length - removed);
}

void replaceText(_narrowText text, std::string_view before, std::string_view after, Qt::CaseSensitivity sensitivity) {
    if (before.empty()) return;
    const std::string_view old = viewOf(text);
    std::string whole;
    std::size_t done = 0;
    for (_size hit = 0; (hit = indexOfText(old, before, static_cast<_size>(done), sensitivity)) >= 0;) {
        whole.append(old, done, static_cast<std::size_t>(hit) - done).append(after);
        done = static_cast<std::size_t>(hit) + before.size();
    }
    if (done == 0) return;
    assignText(text, std::string_view(whole.append(old, done)));
}

_size indexOfText(std::string_view text, std::string_view part, _size from, Qt::CaseSensitivity sensitivity) noexcept {
    if (from < 0 || static_cast<std::size_t>(from) > text.size()) return -1;
    const auto hit = std::search(text.begin() + from, text.end(), part.begin(), part.end(), [&](char a, char b) {
        return sensitivity == Qt::CaseSensitive ? a == b : foldedLetter(a) == foldedLetter(b);
    });
    return hit == text.end() && !part.empty() ? -1 : static_cast<_size>(hit - text.begin());
}

}  // namespace vxS
