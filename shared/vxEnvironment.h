// Named texts and the environment of the process as a list of them.
#pragma once

#include <QList>
#include <QString>

#include "shared/vxExport.h"

namespace vxS {

/// A variable: name and value.
struct _varValue {
    QString name;
    QString value;

    bool operator==(const _varValue& other) const { return name == other.name && value == other.value; }
};

/// Variables in their order; a name may occur more than once.
using _varValList = QList<_varValue>;

/// The variables of the process environment, decoded as UTF-8. An entry without "=" is left out.
/// @param sorted  true: by name; false: in the order of the environment itself
VX_EXPORT _varValList vxGetEnvironmentVariableList(const bool& sorted);

}  // namespace vxS
