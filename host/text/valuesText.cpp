#include "host/text/valuesText.h"

#include "host/base/displayText.h"
#include "host/text/valueLine.h"

namespace vxH {
namespace {

/// "t[2]" where the scene does not tell what the component is called.
QString nameOf(const _nodeValue& one) {
    if (!one.channel.isEmpty()) return one.channel;
    return one.parameter + QStringLiteral("[%1]").arg(one.component);
}

QString expressionOf(const _nodeValue& one) {
    if (one.keys > 0) return QStringLiteral("%1 keys").arg(one.keys);
    const bool isPython = one.language == QLatin1String{"python"};
    return isPython ? one.expression + QLatin1String{" (python)"} : one.expression;
}

QString lineOf(const _nodeValue& one) {
    return valueLine({nameOf(one), expressionOf(one), one.cached.value_or(QString{}), one.value, one.reason});
}

}  // namespace

QString valuesText(const _sceneValues& scene, const _terminal& terminal) {
    QString text;
    QString node;
    for (const auto& one : scene.values) {
        if (one.node != node) {
            if (!node.isEmpty()) text += QLatin1Char('\n');
            node = one.node;
            const QString heading = one.type.isEmpty() ? node : node + QLatin1String{"  "} + one.type;
            text += coloured(printable(heading), terminal.colour ? headingColour : QLatin1String{}) + QLatin1Char('\n');
        }
        text += QLatin1String{"  "} + printable(lineOf(one)) + QLatin1Char('\n');
    }
    if (!scene.isWhole && scene.isLoaded())
        text += QStringLiteral("(the file ends early or is damaged: nodes may be missing)\n");
    return text;
}

}  // namespace vxH
