// Texts of a resolved section: what Houdini alone can compute is computed, what the readers know stays for them.
#pragma once

#include <memory>
#include <string>

#include "evaluate/evaluator.h"

namespace vxP {

/// What sections are resolved with.
/// @param source     of the scene; has to outlive the evaluator
/// @param sceneFile  path of the scene, UTF-8
std::unique_ptr<vxV::_evaluator> sectionEvaluator(const vxN::_scene& scene, const vxN::_byteSource& source,
                                                  const std::string& sceneFile);

/// A text of a node with its expressions computed. Variables of frame, take, pass and variant, those of the scene, and
/// those that nothing sets, stay as they are written. An expression whose text is the frame's number at every frame
/// becomes a frame variable; one that depends on the frame in another way is unknown (`_reason::uncertain`).
vxV::_textOutcome outputText(vxV::_evaluator& evaluator, const vxN::_node& node, std::string_view text);

}  // namespace vxP
