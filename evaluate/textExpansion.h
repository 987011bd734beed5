// Texts in which variables and expressions in back-quotes are replaced.
#pragma once

#include <functional>
#include <string_view>

#include "evaluate/value.h"

namespace vxV {

/// A variable as a text uses it.
struct _variableUse {
    std::string_view name;     ///< "F4" of "${F4}"
    std::string_view written;  ///< all of it, "${F4}", "$HIPNAME:r"
    char part = 0;             ///< what is behind a colon: r without extension, h folder, t file, e extension; 0: all
};

/// What stands for the parts of a text.
struct _textSources {
    std::function<_textOutcome(const _variableUse& use)> variable;
    std::function<_textOutcome(std::string_view expression)> expression;
};

/// The text with its variables and expressions replaced. A backslash in front of "$" or "`" takes their meaning and
/// goes; any other one stays. A "$" without a name stays, and the last back-quote may be missing.
_textOutcome expandText(std::string_view text, const _textSources& sources);

/// A part of a file name.
/// @param part  of `_variableUse`
std::string partOfName(const std::string& name, char part);

}  // namespace vxV
