// A scene file opened as a tree of nodes, with a budget of its own.
#pragma once

#include <functional>

#include "host/results/sceneResult.h"
#include "input/sceneFile.h"
#include "scene/scene.h"

namespace vxH {

/// Does the work on the scene. Nothing is thrown: a scene that cannot be opened, is none or asks for more work or
/// memory than it may is told in the head, which is that of a loaded scene else.
/// @param scene  absolute path
/// @param work  may tell a failure in the head
void withScene(const QString& scene, _sceneHead& head,
               const std::function<void(const vxN::_scene&, const vxP::_sceneFile&)>& work);

}  // namespace vxH
