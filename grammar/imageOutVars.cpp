#include "grammar/imageOutVars.h"

#include <array>

#include "grammar/markedText.h"
#include "grammar/nameText.h"
#include "grammar/paramSection.h"
#include "scan/scanBudget.h"
#include "scan/scanObserver.h"

namespace vxP {

namespace {

/// A frame variable as scenes write it: the text before its digit.
struct _frameVariable {
    QLatin1String name;
    QLatin1String fraction;         ///< the variant with fraction ...
    QLatin1String fractionAsPlain;  ///< ... which is written with one digit
};

constexpr std::array frameVariables{
    // in this order; only the first one that occurs is converted
    _frameVariable{QLatin1String{"$F"}, QLatin1String{"$FF"}, QLatin1String{"$F1"}},
    _frameVariable{QLatin1String{"${F"}, QLatin1String{"${FF}"}, QLatin1String{"${F1}"}},
};

constexpr QLatin1String takeVariable{"$ACTIVETAKE"};
constexpr QLatin1String takePlaceholder{"<Channel>"};
constexpr std::array takeTexts{takeVariable, QLatin1String{"`chsop(\"take\")`"},
                               QLatin1String{"`chsop(\\\"take\\\")`"}};
constexpr std::array unusableMarks{QLatin1String{"chs("}, QLatin1String{"testfile.exr"}};

QString fileNameOf(const QString& line) {
    const QString value = outerParenthesised(line);
    const bool quoted = value.startsWith(QLatin1Char('"')) && value.endsWith(QLatin1Char('"'));
    return quoted ? withoutOuterQuotes(value).trimmed() : value;
}

void writeFractionsAsPlain(QString& name) {
    for (const auto& variable : frameVariables) {
        if (!holds(name, variable.fraction, Qt::CaseInsensitive)) continue;
        name.replace(variable.fraction, variable.fractionAsPlain);
        return;
    }
}

bool convertFirstFrameVariable(QString& name) {
    for (const auto& variable : frameVariables)
        if (convertFrameVariable(name, variable.name)) return true;
    return false;
}

void convertTake(QString& name, bool& activeTakeUsed) {
    if (!activeTakeUsed) activeTakeUsed = holds(name, takeVariable, Qt::CaseInsensitive);
    for (const QLatin1String text : takeTexts)
        if (holds(name, text, Qt::CaseInsensitive)) name.replace(text, takePlaceholder, Qt::CaseInsensitive);
}

bool isFileName(const QString& name, const QString& line) {
    for (const QLatin1String mark : unusableMarks) {
        if (!name.contains(mark)) continue;
        tell(_remark::nameUnusable, line, mark);
        return false;
    }
    tell(name.isEmpty() ? _remark::nameEmpty : _remark::nameTaken, line);
    return !name.isEmpty();
}

}  // namespace

bool convertFrameVariable(QString& name, QLatin1String variable) {
    const _size start = placeOf(name, variable, 0, Qt::CaseInsensitive);
    if (start < 0) return false;
    const _size digit = start + variable.size();
    const bool hasWidth = digit < name.size() && name.at(digit).isDigit();
    name.insert(hasWidth ? digit + 1 : digit, QLatin1Char('d'));
    name.replace(start, variable.size(), QLatin1String("%"));
    return true;
}

bool replaceImageOutVars(QString line, const bool& prepend, QString& out, bool& activeTakeUsed, bool& noFrameVariable) {
    const QString channelReference = QLatin1String("[ ") + parameterName(line);
    QString name = fileNameOf(line);
    spendWork(outputNameCost, name.size());
    writeFractionsAsPlain(name);
    noFrameVariable = !convertFirstFrameVariable(name);
    name.remove(QLatin1Char('{')).remove(QLatin1Char('}'));
    convertTake(name, activeTakeUsed);
    if (holds(name, QStringView(channelReference))) {
        if (!out.isEmpty()) {  // a name read before takes precedence over one driven by a channel
            tell(_remark::nameComesSecond, line);
            return false;
        }
        name = withoutAll(name, QStringView(channelReference)).remove(QLatin1Char(']')).trimmed();
    }
    if (!isFileName(name, line)) return false;
    if (prepend) spendWork(prefixedNameCost, out.size());
    out = (prepend ? name + out : name).left(longestName);
    return true;
}

}  // namespace vxP
