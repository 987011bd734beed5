// What an expression of a node sees of its scene.
#pragma once

#include "evaluate/evaluation.h"
#include "evaluate/surroundings.h"

namespace vxV {

class _nodeSurroundings : public _surroundings {
 public:
    _nodeSurroundings(_evaluation& ofEvaluation, const vxN::_node& ofNode, double atFrame)
        : evaluation(ofEvaluation), node(ofNode), frame(atFrame) {}

    _effort& effort() override { return evaluation.effort; }
    _valueOutcome variable(std::string_view name) override;
    _valueOutcome contextOption(std::string_view name) override { return evaluation.contextOption(name); }
    _textOutcome expanded(const std::string& text) override;
    _numberOutcome channel(const std::string& reference) override;
    _numberOutcome channelAt(const std::string& reference, double atFrame) override;
    _textOutcome parameterText(const std::string& reference) override;
    _textOutcome rawParameterText(const std::string& reference) override;
    _textOutcome nodeOfParameter(const std::string& reference) override;
    _outcome<bool> hasParameter(const std::string& reference) override;
    _textOutcome nodePath(const std::string& path) override;
    _textOutcome nodePathNearby(const std::string& path) override;
    _textOutcome nodeType(const std::string& path) override;
    _outcome<bool> hasNode(const std::string& path) override;
    _textOutcome inputPath(const std::string& path, int input) override;
    _outcome<int> inputCount(const std::string& path) override;
    _textOutcome creatorPath(const std::string& path) override;
    void noteStamp() override { evaluation.current.stamp = true; }

 private:
    _evaluation& evaluation;
    vxN::_node node;
    double frame;
};

}  // namespace vxV
