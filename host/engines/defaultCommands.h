// The program's own table of commands.
#pragma once

#include <string_view>

namespace vxH {

/// The text of commands.toml.
extern const std::string_view defaultCommands;

}  // namespace vxH
