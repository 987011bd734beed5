// Lines of a section that a reader may look at, told from their bytes.
#pragma once

#include <string_view>

namespace vxP {

/// False only for a line that is neither the end of a section nor begins with a parameter that any reader knows.
/// @param line  UTF-8, untrimmed
bool mayMatterToASection(std::string_view line);

}  // namespace vxP
