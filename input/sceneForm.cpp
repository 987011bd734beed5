#include "input/sceneForm.h"

#include <algorithm>
#include <array>
#include <string>

#include "input/asciiSpace.h"
#include "input/sceneLine.h"

namespace vxP {

namespace {

using namespace std::string_view_literals;

/// How files begin that are taken for scenes.
struct _likeness {
    std::string_view begin;
    QLatin1String words;
};

constexpr std::array likenesses{
    // first match wins
    _likeness{"\x1f\x8b"sv, QLatin1String{"a gzip archive"}},
    _likeness{"BZh"sv, QLatin1String{"a bzip2 archive"}},
    _likeness{"\xfd\x37zXZ"sv, QLatin1String{"an xz archive"}},
    _likeness{"\x28\xb5\x2f\xfd"sv, QLatin1String{"a zstd archive"}},
    _likeness{"7z\xbc\xaf"sv, QLatin1String{"a 7-Zip archive"}},
    _likeness{"Rar!"sv, QLatin1String{"a RAR archive"}},
    _likeness{"PK\x03\x04"sv, QLatin1String{"a ZIP archive"}},
    _likeness{"\x7f\x45LF"sv, QLatin1String{"a program"}},
    _likeness{"MZ"sv, QLatin1String{"a Windows program"}},
    _likeness{"#!"sv, QLatin1String{"a script"}},
    _likeness{"%PDF-"sv, QLatin1String{"a PDF document"}},
    _likeness{"\x89PNG"sv, QLatin1String{"a PNG image"}},
    _likeness{"\xff\xd8\xff"sv, QLatin1String{"a JPEG image"}},
    _likeness{"\x76\x2f\x31\x01"sv, QLatin1String{"an OpenEXR image"}},
    _likeness{"INDX"sv, QLatin1String{"a library of digital assets"}},
    _likeness{"#usda"sv, QLatin1String{"a USD stage"}},
    _likeness{"PXR-USDC"sv, QLatin1String{"a USD stage"}},
    _likeness{"Ogawa"sv, QLatin1String{"an Alembic archive"}},
    _likeness{"version https://git-lfs"sv, QLatin1String{"a pointer of Git LFS whose file was not fetched"}},
};

/// The same for texts, which letter case and white space in front do not change.
constexpr std::array textLikenesses{
    _likeness{"<!doctype html"sv, QLatin1String{"an HTML page"}},
    _likeness{"<html"sv, QLatin1String{"an HTML page"}},
    _likeness{"<?xml"sv, QLatin1String{"an XML document"}},
};

constexpr std::size_t bytesOfLikeness = 512;

std::string_view withoutSpaceInFront(std::string_view text) {
    const auto* const first = std::find_if_not(text.begin(), text.end(), isAsciiSpace);
    return text.substr(static_cast<std::size_t>(first - text.begin()));
}

std::string inLowerCase(std::string_view text) {
    std::string lower(text);
    for (char& letter : lower)
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    return lower;
}

QLatin1String likenessOf(std::string_view text) {
    const std::string_view begin = text.substr(0, bytesOfLikeness);
    for (const _likeness& row : likenesses)
        if (begin.starts_with(row.begin)) return row.words;
    const std::string lower = inLowerCase(withoutSpaceInFront(begin));
    for (const _likeness& row : textLikenesses)
        if (lower.starts_with(row.begin)) return row.words;
    return {};
}

QString whatIsThere(std::string_view text) {
    if (text.empty()) return QStringLiteral("it is empty");
    const bool isZeros = std::all_of(text.begin(), text.end(), [](char byte) { return byte == '\0'; });
    if (isZeros) return QStringLiteral("it begins with nothing but zeros");
    const QLatin1String likeness = likenessOf(text);
    return likeness.isEmpty() ? QString() : QLatin1String("it looks like ") + likeness;
}

bool isHeaderOfSection(std::string_view line) {
    while (!line.empty() && isAsciiSpace(line.back())) line.remove_suffix(1);
    if (!line.ends_with('{')) return false;
    const QString text = QString::fromUtf8(line.data(), static_cast<int>(line.size())).trimmed();
    return classifyLine(text).section != nullptr;
}

bool holdsSection(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        if (isHeaderOfSection(text.substr(0, end))) return true;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return false;
}

std::string beginOf(const vxN::_byteSource& file) {
    std::string text(static_cast<std::size_t>(std::clamp<qint64>(file.byteCount(), 0, mostBytesOfText)), '\0');
    const qint64 count = file.readAt(0, text.data(), static_cast<qint64>(text.size()));
    text.resize(static_cast<std::size_t>(std::max<qint64>(count, 0)));
    return text;
}

}  // namespace

_formOfFile formOf(const vxN::_byteSource& file) {
    const vxN::_archiveKind kind = vxN::archiveKindOf(file);
    if (kind != vxN::_archiveKind::none)
        return {vxN::endsWithTrailer(file, kind) ? _sceneForm::whole : _sceneForm::cut, {}};
    const std::string text = beginOf(file);
    if (holdsSection(text)) return {_sceneForm::whole, {}};
    return {_sceneForm::none, whatIsThere(text)};
}

}  // namespace vxP
