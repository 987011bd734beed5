// A glance at what resolving a scene would change, while it is loaded as it stands.
#pragma once

#include <chrono>
#include <optional>

#include "host/access/sceneExplanation.h"
#include "host/base/childProcess.h"
#include "host/commands/sceneOptions.h"

namespace vxH {

/// A second load in a process of its own, as what a load gathers stays in its process. It says nothing on the error
/// stream, and what takes too long or fails is as if nobody had looked.
class _resolvingLook {
 public:
    /// Begins the load; do so before the scene is loaded in this process.
    /// @param scene  absolute path
    /// @param timeout  of the scene as a whole; 0: none
    _resolvingLook(const _sceneLoader& loader, const QString& scene, const _submitterArguments& arguments,
                   std::chrono::milliseconds timeout);

    /// How the jobs differ. Waits for the load; call it once.
    /// @param plain  the scene as it stands
    std::optional<_whenResolved> compareWith(const _sceneResult& plain);

 private:
    _child child;
};

/// Explains a scene, and where it is the only one that was asked for and is not resolved anyway, looks at what
/// resolving would change: over many scenes the second load would double the time.
_explainedScene explainAndLook(const QString& scene, const _submitterArguments& arguments,
                               const _sceneOptions& options);

}  // namespace vxH
