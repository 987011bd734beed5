// The sources of the report page: files of host/report, put into the program when it is built (cmake/vxEmbed.cmake).
#pragma once

#include <string_view>

namespace vxH {

extern const std::string_view reportTemplate;
extern const std::string_view reportStyle;
extern const std::string_view reportScript;

}  // namespace vxH
