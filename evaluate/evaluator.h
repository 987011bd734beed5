// Values of a scene's parameters, computed from its expressions.
//
//     vxV::_evaluator evaluator(scene, {.source = &source, .sceneFile = "/shots/a.hip"});
//     const vxV::_textOutcome file = evaluator.text(driver, "sopoutput");
//     if (file) ...                                        // *file
//     else vxV::wordsOf(file.why().reason).text ...        // why().culprit
//
// What a running Houdini alone can tell is never guessed: it has a reason instead of a value.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "evaluate/timeVariables.h"
#include "evaluate/value.h"
#include "scene/scene.h"

namespace vxV {

struct _variable {
    std::string name;
    std::string value;
};

/// What a scene is evaluated with.
struct _options {
    /// Of the scene, has to outlive the evaluator: its definitions tell the order of menus. Null: only that of menus
    /// which every scene shares is known.
    const vxN::_byteSource* source = nullptr;
    std::optional<double> frame;  ///< none: the scene's current one
    /// Where the scene file lies: gives $HIP, $HIPNAME and $HIPFILE, which are unknown else.
    std::string sceneFile;
    bool storedPlace = false;  ///< take these three as they were when the scene was saved
    std::vector<_variable> environment;
    /// Variables that texts keep as they are written; one that ends with "*" means all that begin like it. Digits
    /// behind a name are its padding: "F" keeps $F4 too. A function that measures a text measures what is kept.
    std::vector<std::string> keptVariables;
    bool keepsUnsetVariables = false;  ///< texts keep those, too, that neither the scene nor the environment sets
};

/// Variables that a file name keeps for the renderer, the frame, the take and the variant.
std::vector<std::string> outputVariables();

/// What a value holds for only.
struct _dependence {
    bool time = false;   ///< this frame
    bool stamp = false;  ///< outside of a copying that stamps values

    _dependence& operator|=(const _dependence& other) {
        time |= other.time;
        stamp |= other.stamp;
        return *this;
    }
};

/// The language of a segment's expression, "hscript" or "python": its own, else its node's.
std::string languageOf(const vxN::_node& node, const vxN::_segment& segment);

/// Evaluates parameters of one scene. Each channel is computed once for each frame that is asked for.
/// All functions throw `vxP::_budgetExceeded` where a budget is counted, and nothing else.
class _evaluator {
 public:
    /// @param scene  has to outlive it
    explicit _evaluator(const vxN::_scene& scene, _options options = {});
    ~_evaluator();
    _evaluator(const _evaluator&) = delete;
    _evaluator& operator=(const _evaluator&) = delete;

    /// The frame at which values are asked for; 1 where neither the options nor the scene tell one.
    double frame() const;
    void setFrame(double frame);
    /// What the scene says of its nodes has changed: another take is shown.
    void forgetValues();

    /// A component's number: of the channel that drives it, or literal.
    /// @param channel  name of the component: "tx" of "t", "f1" of "f"
    _numberOutcome number(const vxN::_node& node, std::string_view channel, _dependence* dependence = nullptr);
    /// A parameter's text, with variables and expressions in it replaced.
    _textOutcome text(const vxN::_node& node, std::string_view parameter, _dependence* dependence = nullptr);
    /// The same for a text that is not in the scene.
    _textOutcome expand(const vxN::_node& node, std::string_view text, _dependence* dependence = nullptr);
    /// What the keys or the expression of a channel give.
    _valueOutcome channelValue(const vxN::_node& node, std::string_view channel, _dependence* dependence = nullptr);

 private:
    std::unique_ptr<class _evaluation> evaluation;
};

}  // namespace vxV
