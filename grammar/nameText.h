// Names while they are put together: bounded, whatever a scene asks to be put into them.
#pragma once

#include <QString>

#include "shared/vxString.h"

namespace vxP {

using vxS::_size;

/// Characters of a name; what is longer is cut. A record holds 1000.
constexpr _size longestName = 16384;

/// Appends a text to a name, as far as there is room.
void appendToName(QString& name, const QString& text);

/// Replaces every `before`, a text that begins with a mark (markedText.h); the name is cut at `longestName`.
/// Throws `_budgetExceeded` when that takes more work than the scene may ask for.
void replaceInName(QString& name, const QString& before, const QString& after, Qt::CaseSensitivity sensitivity);

}  // namespace vxP
