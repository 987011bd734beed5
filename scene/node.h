// A node of a scene: a handle, to be copied at will, that is good as long as its scene.
#pragma once

#include <QtGlobal>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "scene/channels.h"
#include "scene/parameters.h"

namespace vxN {

struct _sceneStore;

/// A type's name in its parts: "labs::filecache::2.0" is namespace, name and version; all but the name may be empty.
struct _nodeType {
    std::string_view space;
    std::string_view name;
    std::string_view version;
};
_nodeType splitNodeType(std::string_view type);

/// The flags of nodes, in the words of the scene.
enum class _flag : quint8 {
    lock,
    model,
    templated,
    footprint,
    xray,
    bypass,
    display,
    render,
    highlight,
    unload,
    savedata,
    compress,
    colordefault,
    exposed,
    selectable,
    lowdetail,
    mediumdetail,
    highdetail,
    material,
    debug,
    displaycomment,
};

/// One input of a node as it is stored.
struct _input {
    quint32 index = 0;        ///< on the node
    std::string source;       ///< name of a node or, in brackets, of a dot beside it; empty: not wired
    qint32 subnetInput = -1;  ///< 0 or more: wired to this input of the network around the node
    quint32 output = 0;       ///< of the source

    bool isWired() const { return !source.empty() || subnetInput >= 0; }
};
/// @param source  as it is stored: a name, "(dot)", "(0)", empty
_input makeInput(quint32 index, std::string_view source, quint32 output);

/// What a node's entry ".def" tells.
struct _nodeDefinition {
    quint32 flags = 0;       ///< a bit for each `_flag`
    quint32 knownFlags = 0;  ///< the scene says whether they are on
    std::vector<_input> inputs;
    std::string creator;             ///< what it was made from, "gallery::..."; mostly empty
    std::string expressionLanguage;  ///< "hscript", "python"; of all its expressions that name none

    /// None: the scene does not say.
    std::optional<bool> isOn(_flag flag) const;
    /// @param letter  of the flag in a take: "d", "r", "b"; others change nothing
    void setFlag(std::string_view letter, bool isSet);
    /// What it takes in memory, roughly.
    qint64 bytes() const;
};

/// Texts of a definition, by the rules of `_parameters`.
_nodeDefinition parseNodeDefinition(std::string_view text);

/// A multiparm that follows another node's: "ramp#pos" follows "../../ramp#pos".
struct _multiparmLink {
    std::string parameter;  ///< "#": the instance's number
    std::string source;
};

/// A node. One that does not exist is false; it has no name, no type, no parameters.
///
/// `parameters`, `channels`, `definition` are read from the scene when they are asked for, and a few of them stay in
/// memory; the pointer keeps what it points to alive. They are never null: a node without such an entry has empty ones.
class _node {
 public:
    _node() = default;
    _node(const _sceneStore& ofScene, qint32 atIndex) : scene(&ofScene), position(atIndex) {}

    explicit operator bool() const { return scene != nullptr; }
    friend bool operator==(const _node& a, const _node& b) { return a.scene == b.scene && a.position == b.position; }
    /// Position in the scene's list of nodes.
    qint32 index() const { return position; }

    std::string_view name() const;  ///< "box1"; of the root: empty
    std::string path() const;       ///< "/obj/geo1/box1"; of the root: "/"
    /// Whole name of the type; empty: unknown, as of the nodes within a locked asset.
    std::string_view type() const;
    /// Its contents come from the definition of its type and are not in the scene.
    bool matchesDefinition() const;
    /// False: only its children have entries in the scene.
    bool isSaved() const;
    /// Where the header of its parameters is, in bytes from the scene's beginning; 0: it has none.
    qint64 parametersStart() const;

    _node parent() const;
    /// In the order that the scene gives.
    std::vector<_node> children() const;
    _node child(std::string_view name) const;
    /// The node at a path that begins here: "../box1", ".", "sub/a"; "/obj/geo1" begins at the root.
    _node find(std::string_view path) const;

    std::shared_ptr<const _nodeDefinition> definition() const;
    std::shared_ptr<const _parameters> parameters() const;
    std::shared_ptr<const _channels> channels() const;
    /// Null: there is none of this name.
    std::shared_ptr<const _parameter> parameter(std::string_view name) const;
    std::shared_ptr<const _value> component(std::string_view channel) const;
    std::shared_ptr<const _channel> channel(std::string_view name) const;
    std::vector<_multiparmLink> multiparmLinks() const;

    /// The node that is wired to an input, through dots and out of the networks around it; false where nothing is.
    _node inputNode(quint32 index) const;
    /// Those of all inputs that are wired, in their order.
    std::vector<_node> inputNodes() const;

 private:
    _node at(qint32 index) const;
    _input storedInput(quint32 index) const;
    _input inputOfDot(std::string_view dot) const;

    const _sceneStore* scene = nullptr;
    qint32 position = -1;
};

}  // namespace vxN
