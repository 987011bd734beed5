// Computes what Houdini alone can compute in a section, and leaves what the readers know to them.
#pragma once

#include <memory>
#include <string>

#include "evaluate/evaluator.h"

namespace vxP {

/// What sections are resolved with: variables of frame, take, pass and variant, those of the scene and its place, and
/// those that nothing sets, stay as they are written.
/// @param source     of the scene; has to outlive the evaluator
/// @param sceneFile  path of the scene, UTF-8
std::unique_ptr<vxV::_evaluator> sectionEvaluator(const vxN::_scene& scene, const vxN::_byteSource& source,
                                                  const std::string& sceneFile);

}  // namespace vxP
