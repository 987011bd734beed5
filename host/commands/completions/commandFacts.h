// What a shell has to know of a command of vxscene to complete it, read from the program's own command line.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace vxC {

/// What a shell offers as a value.
enum class _values { none, words, files, folders, scenes };

/// An option, or an argument without a name.
struct _argument {
    std::vector<std::string> names;  ///< "-h", "--help"; none: an argument
    std::string description;
    std::string label;  ///< as the help shows the value: "FILE", "table|json"; empty: a flag
    _values values = _values::none;
    std::vector<std::string> words;  ///< with `_values::words`
    bool repeats = false;
};

struct _commandFacts {
    std::string name;  ///< empty: the program itself
    std::string description;
    std::vector<_argument> options;
    std::vector<_argument> arguments;
};

/// Extensions of scene files, without the point.
inline constexpr std::array sceneExtensions{"hip", "hipnc", "hiplc"};

/// The program itself, then its commands.
/// @throw std::runtime_error  for a value whose name in the help says nothing about what to offer
std::vector<_commandFacts> commandFacts();

}  // namespace vxC
