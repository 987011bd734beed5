#include "host/results/explainedScene.h"

#include "host/results/explanationJson.h"
#include "host/results/sceneJson.h"
#include "shared/vxLatin.h"

namespace vxH {
namespace {

constexpr int mostDriversNamed = 3;

/// Where most nodes that name a file and have no frames read it.
constexpr QLatin1String readersRoot{"/obj/"};

QString thatGiveNone(vxS::_size drivers) {
    if (drivers == 0) return QStringLiteral("no output drivers");
    return drivers == 1 ? QStringLiteral("1 output driver gives none: ")
                        : QStringLiteral("%1 output drivers give none: ").arg(drivers);
}

}  // namespace

QJsonObject explainedToJson(const _explainedScene& scene) {
    auto object = sceneToJson(scene);
    const auto explanation = explanationToJson(scene.explanation);
    for (auto member = explanation.begin(); member != explanation.end(); ++member)
        object.insert(member.key(), member.value());
    return object;
}

QString whyNoJobs(const vxE::_explanation& explanation) {
    QStringList drivers;
    for (const auto& section : explanation.sections)
        if (section.reader != vxP::_sectionReader::wedge && isSkippedDriver(section)) drivers.append(section.node);
    const QString text = QLatin1String("no jobs: ") + thatGiveNone(drivers.size()) +
                         drivers.mid(0, mostDriversNamed).join(QLatin1String(", "));
    const auto more = drivers.size() - mostDriversNamed;
    return more > 0 ? text + QStringLiteral(" and %1 more").arg(more) : text;
}

bool isSkippedDriver(const vxE::_explainedSection& section) {
    if (section.outcome != vxE::_outcomeKind::none) return false;
    switch (section.reader) {
        case vxP::_sectionReader::driver:
            return section.type != vxS::latin(vxE::fileNodeType) &&
                   (section.hasFrames || (!section.details.isEmpty() && !section.node.startsWith(readersRoot)));
        case vxP::_sectionReader::wedge:
            return true;
        case vxP::_sectionReader::camera:
            return section.code == vxE::takenForCamera;
        case vxP::_sectionReader::usdRenderSettings:
        case vxP::_sectionReader::lop:
            break;
    }
    return false;
}

}  // namespace vxH
