#include "host/results/explainedScene.h"

#include <algorithm>
#include <array>

#include "host/results/explanationJson.h"
#include "host/results/sceneJson.h"
#include "shared/vxLatin.h"

namespace vxH {
namespace {

constexpr QLatin1String driverFolder{"/out/"};
/// Where most nodes that name a file and have no frames read it.
constexpr QLatin1String readersFolder{"/obj/"};

// What may have become of a section, see explain/outcomes.h.
constexpr QLatin1String innerNodeCode{"notACamera"};
constexpr QLatin1String noOutputCode{"noOutput"};
constexpr std::array unusableNameCodes{QLatin1String{"emptyOutput"}, QLatin1String{"defaultName"},
                                       QLatin1String{"expression"}};

constexpr int mostDriversNamed = 3;

/// Removes what was not asked for.
void removeParts(const _explanationParts& parts, QJsonObject& explanation) {
    if (!parts.anySections()) explanation.remove(sectionsKey);
    if (!parts.missing) explanation.remove(notRecognisedKey);
    if (!parts.warnings) explanation.remove(warningsKey);
    if (!parts.facts) explanation.remove(factsKey);
}

QString thatGiveNone(vxS::_size drivers) {
    if (drivers == 0) return QStringLiteral("no output drivers");
    return drivers == 1 ? QStringLiteral("1 output driver gives none: ")
                        : QStringLiteral("%1 output drivers give none: ").arg(drivers);
}

/// Nothing but a part of its path speaks for a driver.
bool isDriverByPathOnly(const vxE::_explainedSection& section) {
    if (section.type == vxS::latin(vxE::fileNodeType)) return true;
    if (section.hasFrames || section.node.startsWith(driverFolder)) return false;
    const bool isReaders = section.node.startsWith(readersFolder);
    if (section.code == noOutputCode) return section.details.isEmpty() || isReaders;
    return isReaders &&
           std::find(unusableNameCodes.begin(), unusableNameCodes.end(), section.code) != unusableNameCodes.end();
}

}  // namespace

QString explainedText(const _explainedScene& scene, bool indented) {
    auto object = jobsApartToJson(scene);
    auto explanation = explanationToJson(scene.explanation);
    removeParts(scene.filter.parts(), explanation);
    if (const auto filter = filterToJson(scene.filter); !filter.isEmpty()) object.insert(filterKey, filter);
    for (auto member = explanation.begin(); member != explanation.end(); ++member)
        object.insert(member.key(), member.value());
    return jsonText(object, scene.jobs, indented);
}

bool isAside(const vxE::_explainedSection& section) {
    if (section.outcome != vxE::_outcomeKind::none) return section.outcome == vxE::_outcomeKind::kept;
    switch (section.reader) {
        case vxP::_sectionReader::camera:
            return section.code == innerNodeCode;
        case vxP::_sectionReader::driver:
            return isDriverByPathOnly(section);
        case vxP::_sectionReader::wedge:
        case vxP::_sectionReader::usdRenderSettings:
        case vxP::_sectionReader::lop:
            break;
    }
    return false;
}

bool isSkippedDriver(const vxE::_explainedSection& section) {
    return section.outcome == vxE::_outcomeKind::none && !isAside(section);
}

QString whyNoJobs(const vxE::_explanation& explanation) {
    QStringList drivers;
    for (const auto& section : explanation.sections)
        if (section.reader != vxP::_sectionReader::wedge && isSkippedDriver(section)) drivers.append(section.node);
    const QString text = QLatin1String("no jobs: ") + thatGiveNone(drivers.size()) +
                         drivers.mid(0, mostDriversNamed).join(QLatin1String(", "));
    const auto more = drivers.size() - mostDriversNamed;
    const auto others = explanation.notRecognised.size();
    return text + (more > 0 ? QStringLiteral(" and %1 more").arg(more) : QString()) +
           (others > 0 ? QStringLiteral("; %1 not recognised").arg(others) : QString());
}

}  // namespace vxH
