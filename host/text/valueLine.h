// One value of a parameter in one line.
#pragma once

#include <QString>

namespace vxH {

struct _shownValue {
    QString name;
    QString expression;  ///< empty: none
    QString stored;      ///< empty: nothing was stored
    QString value;
    QString reason;  ///< why there is no value; empty: there is one
};

/// "f1 = 11  <- $FSTART  (stored: 0)"; "n: no value, needs geometry ...  <- npoints(0)  (stored: 7)". What was stored
/// is left out where it is the value.
QString valueLine(const _shownValue& shown);

}  // namespace vxH
