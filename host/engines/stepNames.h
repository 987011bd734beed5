// Names of steps and submissions within what an engine takes.
#pragma once

#include <QHash>
#include <QSet>
#include <QString>

#include "host/engines/engine.h"

namespace vxH {

/// The text with "_" for every character that the engine does not take, cut to its length and filled up with "_".
QString allowedName(const QString& text, const _nameRules& rules);

/// Gives names that differ, whatever the case of their letters.
class _uniqueNames {
 public:
    explicit _uniqueNames(const _nameRules& nameRules) : rules(nameRules) {}

    /// An allowed name, with "-2", "-3" ... behind it where it has been given before.
    QString next(const QString& text);

 private:
    const _nameRules& rules;
    QSet<QString> given;          ///< in lower case
    QHash<QString, int> numbers;  ///< the last one behind a name
};

}  // namespace vxH
