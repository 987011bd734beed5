// Texts as a scene holds them.
#pragma once

#include <string>
#include <string_view>

namespace vxFuzz {

inline std::string quoted(std::string_view text) {
    std::string written = "\"";
    for (const char letter : text) {
        if (letter == '"' || letter == '\\') written += '\\';
        written += letter;
    }
    return written + '"';
}

}  // namespace vxFuzz
