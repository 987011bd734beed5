#include "resolve/sectionEvaluator.h"

#include <array>

#include "shared/vxEnvironment.h"

namespace vxP {

namespace {

/// Variables of the scene's place, which readers replace themselves.
constexpr std::array placeVariables{"HIP*", "JOB"};

}  // namespace

std::unique_ptr<vxV::_evaluator> sectionEvaluator(const vxN::_scene& scene, const vxN::_byteSource& source,
                                                  const std::string& sceneFile) {
    vxV::_options options;
    options.source = &source;
    options.sceneFile = sceneFile;
    options.keptVariables = vxV::outputVariables();
    options.keptVariables.insert(options.keptVariables.end(), placeVariables.begin(), placeVariables.end());
    for (const vxN::_sceneVariable& variable : scene.variables()) options.keptVariables.push_back(variable.name);
    options.keepsUnsetVariables = true;
    for (const vxS::_varValue& variable : vxS::vxGetEnvironmentVariableList(false))
        options.environment.push_back({variable.name.toStdString(), variable.value.toStdString()});
    return std::make_unique<vxV::_evaluator>(scene, std::move(options));
}

}  // namespace vxP
