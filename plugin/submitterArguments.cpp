#include "plugin/submitterArguments.h"

namespace vxP {

QStringList argumentsOf(const _submitterSettings& settings) {
    QStringList arguments;
    if (settings.arguments == nullptr) return arguments;
    for (qint32 i = 1; i < settings.argumentCount; ++i) arguments.append(QString::fromUtf8(settings.arguments[i]));
    return arguments;
}

}  // namespace vxP
