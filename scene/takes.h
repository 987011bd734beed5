// The takes of a scene: named sets of values that stand in for those of the nodes.
#pragma once

#include <QtGlobal>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vxN {

/// Before the letter of a flag: ".flags.d", ".flags.r" of the display or render flag. That ".flags.b" is the bypass
/// flag follows from these two: takes can hold it, but none of the scenes that this was learned from does.
constexpr std::string_view flagMark = ".flags.";

/// What a take says of one parameter or flag of a node.
struct _takeOverride {
    std::string_view node;   ///< path, "/obj/geo1"
    std::string_view name;   ///< of the parameter, or of a flag
    std::string_view value;  ///< a block for `_parameters`; "on" or "off" of a flag

    bool isFlag() const { return name.starts_with(flagMark); }
};

struct _take {
    std::string_view name;
    qint32 parent = -1;  ///< position in the list; -1: the topmost
    std::span<const _takeOverride> overrides;
};

/// All takes. All texts and spans in it live as long as it does.
class _takes {
 public:
    /// Reads what there is and never fails. Throws `_budgetExceeded`.
    explicit _takes(std::string text);
    _takes(const _takes&) = delete;
    _takes& operator=(const _takes&) = delete;

    /// A take comes after its parent.
    std::span<const _take> all() const { return takes; }
    /// Position in the list; -1: none.
    qint32 find(std::string_view name) const;
    /// The value of a parameter in a take: its own, else that of the next take above which says something. "Main"
    /// repeats the values of what the others override. Null: that of the node.
    const _takeOverride* overrideIn(qint32 take, std::string_view node, std::string_view name) const;
    /// All that a take says of a node in that way, each parameter or flag once. Throws `_budgetExceeded`.
    std::vector<_takeOverride> overridesOf(qint32 take, std::string_view node) const;
    /// False: the text ended within a take, or was none of this form.
    bool isWhole() const { return whole; }

 private:
    friend class _takeReader;

    std::string source;
    std::vector<_takeOverride> overrides;  ///< of a take: in the order of node and name
    std::vector<_take> takes;
    bool whole = true;
};

}  // namespace vxN
