// The small entries of a scene, each read in one go. What they do not say stays empty.
#pragma once

#include <string_view>
#include <vector>

#include "scene/scene.h"

namespace vxN {

/// ".init"
struct _nodeInit {
    std::string_view type;
    bool matchesDefinition = false;
};
_nodeInit parseNodeInit(std::string_view text);

/// ".multiparm"
std::vector<_multiparmLink> parseMultiparmLinks(std::string_view text);
/// ".networkdotinit": what is wired to a dot.
_input parseDotInput(std::string_view text);

/// ".start"
_timeline parseTimeline(std::string_view text);
/// ".variables". Throws `_budgetExceeded`.
std::vector<_sceneVariable> parseVariables(std::string_view text);
/// ".contextoptions", a list in JSON; of values other than numbers and texts nothing. Throws `_budgetExceeded`.
std::vector<_contextOption> parseContextOptions(const std::string& text);

}  // namespace vxN
