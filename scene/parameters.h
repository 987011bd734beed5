// The parameters of a node as the scene stores them: an entry ".parm", or the block of a take.
#pragma once

#include <QtGlobal>
#include <deque>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vxN {

/// One component of a parameter.
struct _value {
    std::string_view text;     ///< literal, or cached where a channel drives it; without quotes and escapes
    std::string_view channel;  ///< what drives it, "f1"; empty: the text is literal
    bool isQuoted = false;     ///< in the scene
    bool isOverride = false;   ///< of a layer (scene/layer.h): no channel drives it but the one that it names
    bool isRandom = false;     ///< of a layer: another number stands in that nobody can tell; the text is the scene's

    bool isDriven() const { return !channel.empty(); }
};

/// A parameter with its values: none for buttons and folders, one for each component else.
struct _parameter {
    std::string_view name;
    quint32 locks = 0;  ///< a bit for each component
    std::span<const _value> values;
};

/// The name of a component as expressions use it: "f2" of "f". The scene tells it of components that a channel drives
/// and of those beside them, and the only component has the parameter's. Empty: it does not tell.
/// @param place  of the component, below their number
std::string componentName(const _parameter& parameter, std::size_t place);

/// The parameters of one node. All texts and spans in it live as long as it does.
class _parameters {
 public:
    /// Reads by tokens and never fails: what is no parameter is passed over.
    /// @param overrides  blocks of a take: what they hold replaces the node's own
    explicit _parameters(std::string text, std::span<const std::string_view> overrides = {});
    _parameters(const _parameters&) = delete;
    _parameters& operator=(const _parameters&) = delete;

    /// In the order of the scene.
    std::span<const _parameter> all() const { return parameters; }
    /// The parameter of exactly this name, the last one if there are several; null: none.
    const _parameter* find(std::string_view name) const;
    /// The component that a channel of this name drives or would drive: "f1" of "f", "tx" of "t", "scale" itself. Of
    /// literal components the scene does not tell the name; they are found by the usual endings (x y z w, r g b a,
    /// u v w, 1 2 3 ..., min max). Null: none.
    const _value* component(std::string_view channel) const;
    /// False: there was more than fits, or the block ended within a parameter.
    bool isWhole() const { return whole; }
    /// What it takes in memory, roughly.
    qint64 bytes() const;

 private:
    friend class _parameterReader;

    const _value* letteredComponent(std::string_view channel) const;
    const _value* numberedComponent(std::string_view channel) const;

    std::string source;
    std::deque<std::string> made;  ///< texts that are not in the source as they are
    std::vector<_value> values;
    std::vector<_parameter> parameters;
    std::vector<quint32> byName;     ///< positions of parameters
    std::vector<quint32> byChannel;  ///< positions of driven values
    bool whole = true;
};

}  // namespace vxN
