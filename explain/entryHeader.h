// The header of one of a node's entries in the scene's archive, told from its line.
#pragma once

#include <cstring>
#include <optional>
#include <string_view>

namespace vxE {

enum class _entryKind { type, channels, parameters };

struct _entryHeader {
    _entryKind kind;
    std::string_view path;  ///< of the node, without "/" in front
    std::string_view type;  ///< of the node; only an entry of that kind tells it
};

/// Tells at little cost: true for every line that ends with a header and for few others.
/// @param line  without white space at its end; of a long one the end is enough
inline bool mayEndWithHeader(std::string_view line) {
    if (line.empty() || line.back() == ')' || line.back() == '"') return false;  // most are of parameters and dialogs
    if (line.back() == '{') return true;
    const void* const space = memrchr(line.data(), ' ', line.size());  // type = ifd
    return space != nullptr && space != line.data() && static_cast<const char*>(space)[-1] == '=';
}

/// @param line  the same
/// @return none where the line ends with no header
std::optional<_entryHeader> entryHeaderOf(std::string_view line);

}  // namespace vxE
