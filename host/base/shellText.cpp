#include "host/base/shellText.h"

#include <algorithm>

#include "host/base/displayText.h"

namespace vxH {
namespace {

constexpr QLatin1String plainMarks{"/._-+=:,@%^"};

bool isPlain(QChar character) {
    return character.isLetterOrNumber() || plainMarks.contains(character);
}

/// With the bytes of every character that is not plain as numbers.
QString inNumbers(const QString& text) {
    QString quoted{QLatin1String{"$'"}};
    for (const char byte : text.toUtf8()) {
        const auto code = static_cast<unsigned char>(byte);
        const bool shows = code < 128 && isPlain(QLatin1Char{byte});
        quoted += shows ? QString{QLatin1Char{byte}} : QStringLiteral("\\x%1").arg(code, 2, 16, QLatin1Char('0'));
    }
    return quoted + QLatin1Char('\'');
}

}  // namespace

QString shellQuoted(const QString& text) {
    if (!text.isEmpty() && text == printable(text) && std::all_of(text.begin(), text.end(), isPlain)) return text;
    if (text != printable(text)) return inNumbers(text);
    QString inner = text;
    inner.replace(QLatin1Char('\''), QLatin1String{"'\\''"});
    return QLatin1Char('\'') + inner + QLatin1Char('\'');
}

}  // namespace vxH
