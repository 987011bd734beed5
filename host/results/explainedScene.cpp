#include "host/results/explainedScene.h"

#include "host/results/explanationJson.h"
#include "host/results/sceneJson.h"

namespace vxH {

QJsonObject explainedToJson(const _explainedScene& scene) {
    auto object = sceneToJson(scene);
    const auto explanation = explanationToJson(scene.explanation);
    for (auto member = explanation.begin(); member != explanation.end(); ++member)
        object.insert(member.key(), member.value());
    return object;
}

bool isSkippedDriver(const vxE::_explainedSection& section) {
    if (section.outcome != vxE::_outcomeKind::none) return false;
    if (section.reader != vxP::_sectionReader::driver) return section.reader == vxP::_sectionReader::wedge;
    return section.hasFrames || !section.details.isEmpty();
}

}  // namespace vxH
