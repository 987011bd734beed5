#include "host/engines/stepNames.h"

#include <algorithm>

namespace vxH {
namespace {

constexpr QLatin1Char instead{'_'};

bool isAllowed(QChar character, const _nameRules& rules) {
    const auto code = character.unicode();
    return code < 128 && (character.isLetterOrNumber() || rules.marks.contains(character));
}

}  // namespace

QString allowedName(const QString& text, const _nameRules& rules) {
    QString name = text.left(rules.mostLength);
    std::replace_if(
        name.begin(), name.end(), [&](QChar character) { return !isAllowed(character, rules); }, instead);
    return name.leftJustified(rules.leastLength, instead);
}

QString _uniqueNames::next(const QString& text) {
    const QString plain = allowedName(text, rules);
    int& number = numbers.insert(plain, std::max(numbers.value(plain), 1)).value();
    QString name = plain;
    while (given.contains(name.toLower())) {
        const QString behind = QStringLiteral("-%1").arg(++number);
        name = plain.left(rules.mostLength - behind.size()) + behind;
    }
    given.insert(name.toLower());
    return name;
}

}  // namespace vxH
