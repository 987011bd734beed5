#include "host/access/sceneCheck.h"

#include <ctime>

#include "evaluate/storedCheck.h"
#include "host/access/openScene.h"
#include "host/access/valueTexts.h"
#include "shared/vxLatin.h"

namespace vxH {
namespace {

using vxS::textOfUtf8;

/// Milliseconds of processor time that the values of all channels take, each asked for once.
double timeOfValues(const vxN::_scene& scene, const vxN::_byteSource& source) {
    const std::clock_t begin = std::clock();
    vxV::_options options;
    options.source = &source;
    vxV::_evaluator evaluator(scene, options);
    for (qint32 index = 0; index < scene.nodeCount(); ++index) {
        const vxN::_node node = scene.node(index);
        const auto channels = node.channels();
        for (const vxN::_channel& channel : channels->all()) evaluator.channelValue(node, channel.name);
    }
    return 1000.0 * double(std::clock() - begin) / CLOCKS_PER_SEC;
}

_checkedValue checkedValue(const vxV::_checkedChannel& one) {
    return {textOfUtf8(one.node.path()),
            textOfUtf8(one.channel),
            textOfUtf8(one.expression),
            textOfUtf8(one.stored),
            one.computed ? textOf(*one.computed) : QString{},
            one.computed ? QString{} : vxV::sentenceOf(one.computed.why()),
            vxV::nameOf(one.verdict)};
}

_checkCounts countsOf(const vxV::_storedCounts& stored) {
    _checkCounts counts;
    counts.pairs = stored.pairs;
    counts.evaluated = stored.evaluated();
    counts.judged = stored.judged();
    counts.agree = stored.of(vxV::_verdict::agrees);
    for (std::size_t place = 0; place < vxV::verdictCount; ++place)
        counts.verdicts.push_back({vxV::nameOf(static_cast<vxV::_verdict>(place)), stored.verdicts[place]});
    for (const auto& [reason, count] : stored.reasons) counts.reasons.push_back({vxV::wordsOf(reason).code, count});
    return counts;
}

}  // namespace

_sceneCheck checkOf(const QString& scene, bool onlyDiffering) {
    _sceneCheck check;
    withScene(scene, check, [&](const vxN::_scene& opened, const vxP::_sceneFile& source) {
        const double milliseconds = timeOfValues(opened, source);
        const auto keep = [&](const vxV::_checkedChannel& one) {
            if (!onlyDiffering || one.verdict == vxV::_verdict::differs) check.channels.push_back(checkedValue(one));
        };
        check.counts = countsOf(vxV::checkStoredValues(opened, source, keep));
        check.counts.milliseconds = milliseconds;
    });
    return check;
}

}  // namespace vxH
