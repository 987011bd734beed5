// What a stored value can be besides the current one.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "evaluate/definitions.h"
#include "evaluate/evaluator.h"

namespace vxV {

/// True where a stored value and a computed one are the same: texts to the byte, numbers but for rounding.
bool isSameValue(std::string_view stored, const _value& computed);

/// Tells values that a channel has before its first evaluation, and values of other places.
class _storedEvidence {
 public:
    _storedEvidence(const vxN::_scene& ofScene, const vxN::_byteSource& source);

    /// 0, the channel's expression, what the parameter had before there was a channel, what its definition gives a new
    /// node, or what most other nodes of the type hold.
    /// Throws `vxP::_budgetExceeded`.
    bool isUntouched(const vxN::_node& node, const vxN::_channel& channel, const vxN::_value& stored);

    /// A text that would be the stored one if the scene lay in some other folder or had another name.
    /// @param frame  at which it is computed
    bool isOfOtherPlace(const vxN::_node& node, std::string_view channel, std::string_view stored, double frame);

 private:
    struct _place {
        const vxN::_parameter* parameter = nullptr;
        std::size_t component = 0;
    };

    static _place placeOf(const vxN::_parameters& parameters, std::string_view channel);
    bool isDefault(const vxN::_node& node, const _place& place, std::string_view stored);
    bool isUsual(const vxN::_node& node, const _place& place, std::string_view stored);
    void listTypes();

    const vxN::_scene& scene;
    _definitions definitions;
    _evaluator elsewhere;  ///< with marks for the scene's folder and name
    std::map<std::string_view, std::vector<qint32>> nodesOfType;
};

/// What a channel hands on unchanged: a variable, or what a plain reference leads to in the end. Channels with the same
/// one have the same value. Empty: the channel computes something.
std::string handedOn(const vxN::_node& node, const vxN::_channel& channel);

}  // namespace vxV
