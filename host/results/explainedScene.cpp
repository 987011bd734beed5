#include "host/results/explainedScene.h"

#include "host/results/explanationJson.h"
#include "host/results/sceneJson.h"

namespace vxH {
namespace {

constexpr QLatin1String driverFolder{"/out/"};
constexpr QLatin1String innerNodeCode{"notACamera"};
constexpr QLatin1String noOutputCode{"noOutput"};

/// Removes what was not asked for.
void removeParts(const _explanationParts& parts, QJsonObject& explanation) {
    if (!parts.anySections()) explanation.remove(sectionsKey);
    if (!parts.missing) explanation.remove(notRecognisedKey);
    if (!parts.warnings) explanation.remove(warningsKey);
    if (!parts.facts) explanation.remove(factsKey);
}

}  // namespace

QJsonObject explainedToJson(const _explainedScene& scene) {
    auto object = sceneToJson(scene);
    auto explanation = explanationToJson(scene.explanation);
    removeParts(scene.filter.parts(), explanation);
    if (const auto filter = filterToJson(scene.filter); !filter.isEmpty()) object.insert(filterKey, filter);
    for (auto member = explanation.begin(); member != explanation.end(); ++member)
        object.insert(member.key(), member.value());
    return object;
}

bool isAside(const vxE::_explainedSection& section) {
    if (section.outcome != vxE::_outcomeKind::none) return section.outcome == vxE::_outcomeKind::kept;
    if (section.reader == vxP::_sectionReader::camera) return section.code == innerNodeCode;
    return section.reader == vxP::_sectionReader::driver && section.code == noOutputCode && !section.hasFrames &&
           section.details.isEmpty() && !section.node.startsWith(driverFolder);
}

bool isSkippedDriver(const vxE::_explainedSection& section) {
    return section.outcome == vxE::_outcomeKind::none && !isAside(section);
}

}  // namespace vxH
