// What the definition of a node type says of its parameters.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vxV {

struct _parameterDefinition {
    std::string name;  ///< a "#" stands for the number of an instance
    std::string type;  ///< "float", "toggle", "ordinal", "string" ...
    /// The tokens of its menu in their order; none where there is no menu, or where a script makes it.
    std::vector<std::string> tokens;
    std::vector<std::string> defaults;  ///< of each component; an expression as its text

    bool isMenu() const { return type == "ordinal"; }
    bool isSwitch() const { return type == "toggle"; }
};

/// Reads a dialog script, by words, and never fails: what is no definition of a parameter is passed over, and so is one
/// that only repeats that the type has it.
std::vector<_parameterDefinition> readDialogScript(std::string_view script);

/// The definition of a parameter; of instances by the names of the scene, "ramp2pos" is "ramp#pos". Null: none.
const _parameterDefinition* findDefinition(const std::vector<_parameterDefinition>& definitions,
                                           std::string_view parameter);

}  // namespace vxV
