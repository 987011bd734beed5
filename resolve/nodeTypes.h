// What a node is to a render farm, told by its type.
#pragma once

#include <array>
#include <string_view>

#include "grammar/paramSection.h"
#include "scan/scanObserver.h"
#include "scene/node.h"

namespace vxP {

/// When a driver writes what it names.
enum class _writes : quint8 {
    always,
    unlessLoading,  ///< a cache: not while it loads from disk
    never,          ///< it names a file, but writes it only when somebody saves it by hand
};

/// A parameter that names what a driver writes, and the one as which its reader gets it.
struct _outputParameter {
    std::string_view name{};
    std::string_view readAs{};  ///< empty: by its own name
};

struct _nodeType {
    std::string_view space{};                   ///< of names: "labs"; empty: Houdini's own
    std::string_view name{};                    ///< without namespace and version; a "*" at its end matches anything
    _sectionReader reader{};                    ///< who takes its section
    std::array<_outputParameter, 5> outputs{};  ///< of a driver; the first one that a node has is what it writes
    std::string_view stageFile{};               ///< names a second file, of the stage that is rendered
    _writes writes = _writes::always;
    _nodeTraits traits{};
    bool rendersSettings = false;  ///< without an output of its own it writes what the settings of its stage name
};

/// What a render of a stage exports for itself: a file in a temporary folder, which is removed behind it.
constexpr std::string_view temporaryExport{"__render__.usd"};

/// The row of a type; null: a node of that type is nothing that a farm has to know.
/// @param type  whole name: "labs::filecache::2.0"
const _nodeType* nodeTypeOf(std::string_view type);

/// What tells the file that a driver writes. Null: nothing does, as nodes of several networks share the names of their
/// types, and only some of them are drivers.
const _outputParameter* outputOf(const vxN::_node& node, const _nodeType& type);

/// True for the types of nodes that hold the settings of a stage's render.
bool isRenderSettings(std::string_view type);

}  // namespace vxP
