#include "resolve/stageSettings.h"

#include <set>
#include <vector>

#include "resolve/nodeTypes.h"

namespace vxP {

namespace {

using vxN::_node;

constexpr std::string_view lastOfStage{"loppath"};
constexpr std::string_view wantedSettings{"rendersettings"};
constexpr std::string_view placeOfSettings{"primpath"};

std::string textOr(vxV::_evaluator& evaluator, const _node& node, std::string_view parameter) {
    const auto text = evaluator.text(node, parameter);
    return text ? *text : std::string();
}

/// Settings that are there and, where the driver asks for some, those.
bool isMeant(const _node& node, const std::string& wanted, vxV::_evaluator& evaluator) {
    if (!isRenderSettings(node.type()) || node.definition()->isOn(vxN::_flag::bypass).value_or(false)) return false;
    const std::string place = textOr(evaluator, node, placeOfSettings);
    return wanted.empty() || place.empty() || place == wanted;
}

}  // namespace

_stageSettings stageSettingsOf(const _node& driver, vxV::_evaluator& evaluator) {
    const std::string wanted = textOr(evaluator, driver, wantedSettings);
    const std::string last = textOr(evaluator, driver, lastOfStage);
    const _node named = last.empty() ? _node() : driver.find(last);
    std::vector<_node> ahead = named ? std::vector<_node>{named} : driver.inputNodes();
    if (ahead.empty()) return {{}, QStringLiteral("no stage is wired to it")};
    std::set<qint32> known;
    std::vector<_node> found;
    while (!ahead.empty()) {
        const _node node = ahead.back();
        ahead.pop_back();
        if (!known.insert(node.index()).second) continue;
        if (isMeant(node, wanted, evaluator)) found.push_back(node);
        for (const _node& input : node.inputNodes()) ahead.push_back(input);
    }
    if (found.empty()) return {{}, QStringLiteral("no render settings in its stage")};
    if (found.size() > 1) return {{}, QStringLiteral("several render settings in its stage")};
    return {found.front(), {}};
}

}  // namespace vxP
