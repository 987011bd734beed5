#include "host/text/valueLine.h"

namespace vxH {

QString valueLine(const _shownValue& shown) {
    QString line = shown.name;
    line += shown.reason.isEmpty() ? QLatin1String{" = "} + shown.value : QLatin1String{": no value, "} + shown.reason;
    if (const QString expression = shown.expression.simplified(); !expression.isEmpty())
        line += QLatin1String{"  <- "} + expression;
    if (!shown.stored.isEmpty() && shown.stored != shown.value)
        line += QLatin1String{"  (stored: "} + shown.stored + QLatin1Char(')');
    return line;
}

}  // namespace vxH
