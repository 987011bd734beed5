// What an expression sees of the scene around it.
#pragma once

#include <string_view>

#include "evaluate/value.h"

namespace vxV {

/// Steps that one evaluation may take, and how deep it may go, channels that refer to each other included. Bounds the
/// stack and the time of any expression.
struct _effort {
    int depth = 0;
    int steps = 0;
    bool isCut = false;  ///< a bound or a cycle ended something: what is unknown for that may be known from elsewhere
};
constexpr int deepestEvaluation = 500;
constexpr int mostSteps = 200'000;
/// Longest text that an expression may make, in bytes.
constexpr int longestText = 65536;

/// The node to which an expression belongs, and the time. References (`../box1/tx`) and paths (`../box1`) count from
/// that node.
class _surroundings {
 public:
    virtual ~_surroundings() = default;

    virtual _effort& effort() = 0;

    /// A variable, without the "$".
    virtual _valueOutcome variable(std::string_view name) = 0;
    /// An option of the context in which nodes cook, without the "@".
    virtual _valueOutcome contextOption(std::string_view name) = 0;
    /// A text with its variables replaced.
    virtual _textOutcome expanded(const std::string& text) = 0;

    /// A channel's number.
    virtual _numberOutcome channel(const std::string& reference) = 0;
    /// At another frame.
    virtual _numberOutcome channelAt(const std::string& reference, double frame) = 0;
    /// A parameter's text, expanded from the node that owns it.
    virtual _textOutcome parameterText(const std::string& reference) = 0;
    /// As it is stored.
    virtual _textOutcome rawParameterText(const std::string& reference) = 0;
    /// Path of the node that a parameter names; empty where it names none.
    virtual _textOutcome nodeOfParameter(const std::string& reference) = 0;
    virtual _outcome<bool> hasParameter(const std::string& reference) = 0;

    /// Full path of a node that there is.
    virtual _textOutcome nodePath(const std::string& path) = 0;
    /// The same; a plain name may also mean a node beside the expression's own, itself included.
    virtual _textOutcome nodePathNearby(const std::string& path) = 0;
    /// Name of its type, without namespace and version: `uncertain` where it has them.
    virtual _textOutcome nodeType(const std::string& path) = 0;
    virtual _outcome<bool> hasNode(const std::string& path) = 0;
    /// Full path of the node that is wired to an input, from 0; empty where none is.
    virtual _textOutcome inputPath(const std::string& path, int input) = 0;
    virtual _outcome<int> inputCount(const std::string& path) = 0;
    virtual _textOutcome creatorPath(const std::string& path) = 0;

    /// The value belongs to no copying, whose stamped values are not in the scene.
    virtual void noteStamp() = 0;
};

}  // namespace vxV
