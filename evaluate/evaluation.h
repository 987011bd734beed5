// The work of an evaluator: what is being computed, and what has been.
#pragma once

#include <map>
#include <optional>
#include <tuple>
#include <unordered_map>

#include "evaluate/evaluator.h"
#include "evaluate/menus.h"
#include "evaluate/surroundings.h"
#include "evaluate/syntax.h"
#include "evaluate/textExpansion.h"

namespace vxV {

/// Bytes of results, and of expressions with their trees, that are kept; all are forgotten beyond.
constexpr std::size_t mostKeptResults = std::size_t{16} << 20;
constexpr std::size_t mostKeptExpressions = std::size_t{2} << 20;

class _evaluation {
 public:
    _evaluation(const vxN::_scene& ofScene, _options with);

    _numberOutcome number(const vxN::_node& node, std::string_view channel, double frame);
    _textOutcome text(const vxN::_node& node, std::string_view parameter, double frame);
    _valueOutcome channelValue(const vxN::_node& node, std::string_view channel, double frame);
    _textOutcome expand(const vxN::_node& node, std::string_view text, double frame);

    /// A variable in a number or a text, not one that is kept.
    _valueOutcome variable(const vxN::_node& node, std::string_view name, double frame);

    /// What it is outside of all that sets it: loops, renders, nodes that give those before them another value.
    _valueOutcome contextOption(std::string_view name);

    /// Runs something from the outside: with all steps at its disposal.
    template <typename Work>
    auto begin(_dependence* dependence, Work work) {
        effort = {};
        current = {};
        forgetTooMuch();
        auto result = work();
        if (dependence != nullptr) *dependence = current;
        return result;
    }

    void forgetValues();

    const vxN::_scene& scene;
    _options options;
    _clock clock;
    _effort effort;
    _dependence current;

 private:
    enum class _asked : quint8 { value, text };
    using _key = std::tuple<qint32, _asked, double, std::string>;
    struct _known {
        std::optional<_valueOutcome> outcome;  ///< none: it is being computed
        _dependence dependence;
    };

    template <typename Work>
    _valueOutcome remembered(_key key, Work work);
    void forgetTooMuch();
    _valueOutcome computeChannel(const vxN::_node& node, const vxN::_channel& channel, double frame);
    _valueOutcome computeText(const vxN::_node& node, std::string_view parameter, double frame);
    _valueOutcome computeExpression(const vxN::_node& node, std::string_view expression, double frame);
    _valueOutcome computePython(const vxN::_node& node, std::string_view script, double frame);
    _outcome<_tree> treeOf(std::string_view expression);
    _textOutcome variableText(const vxN::_node& node, const _variableUse& use, double frame);
    bool isKept(std::string_view name) const;
    std::optional<std::string> placeVariable(std::string_view name) const;
    std::optional<_valueOutcome> timeVariable(std::string_view name, double frame);
    std::optional<std::string> givenVariable(std::string_view name) const;

    _menus menus;
    std::map<_key, _known> results;
    std::size_t resultBytes = 0;
    std::unordered_map<std::string, _outcome<_tree>> trees;
    std::size_t treeBytes = 0;
};

}  // namespace vxV
