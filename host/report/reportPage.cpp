#include "host/report/reportPage.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <array>
#include <string_view>

#include "host/report/reportSources.h"

namespace vxH {
namespace {

struct _part {
    std::string_view mark;
    QByteArray text;
};

struct _escape {
    const char* bytes;
    const char* escaped;
};

/// What could end the data block or a line of a script. In JSON all of it occurs inside texts only.
constexpr _escape escapes[] = {
    {"<", "\\u003c"}, {">", "\\u003e"}, {"&", "\\u0026"}, {"\xE2\x80\xA8", "\\u2028"}, {"\xE2\x80\xA9", "\\u2029"}};

QByteArray dataBlock(const QJsonObject& data) {
    auto json = QJsonDocument(data).toJson(QJsonDocument::Compact);
    for (const auto& escape : escapes) json.replace(escape.bytes, escape.escaped);
    return json;
}

QByteArray bytesOf(std::string_view source) {
    return {source.data(), static_cast<int>(source.size())};
}

/// A source of the policy that allows one inline text.
QByteArray hashOf(const QByteArray& text) {
    return "'sha256-" + QCryptographicHash::hash(text, QCryptographicHash::Sha256).toBase64() + "'";
}

QByteArray policyFor(const QByteArray& style, const QByteArray& script) {
    return "default-src 'none'; script-src " + hashOf(script) + "; style-src " + hashOf(style) +
           "; base-uri 'none'; form-action 'none'; require-trusted-types-for 'script'";
}

/// The template with each part in place of its mark. Goes through it once: a mark inside a part stays.
template <std::size_t Count>
QByteArray filled(std::string_view page, const std::array<_part, Count>& parts) {
    QByteArray text;
    for (const auto& part : parts) {
        const auto position = page.find(part.mark);
        text += bytesOf(page.substr(0, position)) + part.text;
        page.remove_prefix(position + part.mark.size());
    }
    return text + bytesOf(page);
}

}  // namespace

QByteArray reportPage(const QJsonObject& data) {
    const auto style = bytesOf(reportStyle);
    const auto script = bytesOf(reportScript);
    // In the order of the template.
    return filled(reportTemplate, std::array{_part{"{{policy}}", policyFor(style, script)}, _part{"{{style}}", style},
                                             _part{"{{data}}", dataBlock(data)}, _part{"{{script}}", script}});
}

}  // namespace vxH
