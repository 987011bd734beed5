// The definitions of node types and of added parameters that a scene carries.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "evaluate/dialogScript.h"
#include "scene/scene.h"

namespace vxV {

/// A library: "INDX", then 4-byte big-endian numbers: 0, the length of a label, the label, a count, and so many rows of
/// a name's length, the name, offset, length and time. Offsets count from the end of the rows.
struct _librarySection {
    std::string_view name;  ///< part of the library
    std::string_view content;
};
/// The sections of a library; those that reach over its end are left out.
std::vector<_librarySection> readLibrary(std::string_view library);

/// Finds definitions when they are asked for. They cover added parameters, and the assets of the scene with those that
/// come with Houdini; types that are built in are in no scene.
class _definitions {
 public:
    /// @param source  of the scene; has to outlive it
    explicit _definitions(const vxN::_byteSource& ofScene) : source(ofScene) {}

    /// A parameter's definition; null: the scene has none. Good until the next call.
    /// Throws `vxP::_budgetExceeded`.
    const _parameterDefinition* find(const vxN::_node& node, std::string_view parameter);

 private:
    using _script = std::vector<_parameterDefinition>;

    void listEntries();
    const _script& addedTo(const vxN::_node& node);
    const _script& ofType(std::string_view type);

    const vxN::_byteSource& source;
    bool isListed = false;
    std::map<std::string, vxN::_body, std::less<>> added;  ///< by the path of the node, without its first slash
    std::string library;
    std::multimap<std::string, std::string_view, std::less<>> scripts;  ///< by type
    std::map<std::string, _script, std::less<>> read;                   ///< by path or type
};

}  // namespace vxV
