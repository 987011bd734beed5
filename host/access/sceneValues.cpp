// Chooses the nodes, then computes one value after the other.
#include "host/access/sceneValues.h"

#include <fnmatch.h>

#include <algorithm>
#include <tuple>

#include "evaluate/evaluator.h"
#include "host/access/openScene.h"
#include "host/access/valueTexts.h"
#include "host/base/resultCodes.h"
#include "jobs/VX_DataTypes_plugin.h"
#include "resolve/nodeTypes.h"
#include "scan/scanBudget.h"
#include "shared/vxEnvironment.h"
#include "shared/vxLatin.h"

namespace vxH {
namespace {

using vxS::textOfUtf8;

constexpr qint64 mostBytesOfValues = qint64{256} * 1024 * 1024;

vxV::_options optionsFor(const QString& scene, const vxN::_byteSource& source, std::optional<double> frame) {
    vxV::_options options;
    options.source = &source;
    options.frame = frame;
    options.sceneFile = scene.toStdString();
    for (const auto& variable : vxS::vxGetEnvironmentVariableList(false))
        options.environment.push_back({variable.name.toStdString(), variable.value.toStdString()});
    return options;
}

// ---- nodes

struct _pathedNode {
    std::string path;
    vxN::_node node;
};

bool fits(const std::string& pattern, const _pathedNode& one) {
    if (pattern.find('/') == std::string::npos)
        return fnmatch(pattern.c_str(), std::string(one.node.name()).c_str(), 0) == 0;
    const std::string whole = pattern.front() == '/' ? pattern : '/' + pattern;
    return one.path == whole || fnmatch(whole.c_str(), one.path.c_str(), FNM_PATHNAME) == 0;
}

bool isDriver(const vxN::_node& node) {
    const auto* const type = vxP::nodeTypeOf(node.type());
    return type != nullptr && type->reader == vxP::_sectionReader::driver && vxP::outputOf(node, *type) != nullptr;
}

std::vector<_pathedNode> allNodes(const vxN::_scene& scene) {
    std::vector<_pathedNode> nodes;
    for (qint32 index = 0; index < scene.nodeCount(); ++index) {
        const vxN::_node node = scene.node(index);
        nodes.push_back({node.path(), node});
        vxP::keepMemory(static_cast<qint64>(sizeof(_pathedNode)) + static_cast<qint64>(nodes.back().path.capacity()));
    }
    std::sort(nodes.begin(), nodes.end(), [](const auto& a, const auto& b) { return a.path < b.path; });
    return nodes;
}

/// The patterns' nodes by path. @param[out] missed  the first pattern that none fits
std::vector<_pathedNode> wantedNodes(const vxN::_scene& scene, const _wantedValues& wanted, std::string& missed) {
    std::vector<_pathedNode> nodes = allNodes(scene);
    std::vector<bool> found(wanted.nodes.size(), false);
    const auto isUnwanted = [&](const _pathedNode& one) {
        bool isNamed = wanted.nodes.empty();
        for (std::size_t i = 0; i < found.size(); ++i) {
            if (!fits(wanted.nodes[i], one)) continue;
            found[i] = true;
            isNamed = true;
        }
        return !isNamed || (wanted.onlyDrivers && !isDriver(one.node));
    };
    nodes.erase(std::remove_if(nodes.begin(), nodes.end(), isUnwanted), nodes.end());
    const auto miss = std::find(found.begin(), found.end(), false);
    if (miss != found.end()) missed = wanted.nodes[static_cast<std::size_t>(miss - found.begin())];
    return nodes;
}

// ---- values

class _valueReader {
 public:
    _valueReader(_sceneValues& values, vxV::_evaluator& withEvaluator, bool onlyComputed)
        : into(values), evaluator(withEvaluator), leavesLiterals(onlyComputed) {}

    /// @return false when there is no room for more
    bool read(const _pathedNode& one) {
        node = one.node;
        const QString path = textOfUtf8(one.path);
        const QString type = textOfUtf8(node.type());
        const auto first = static_cast<std::ptrdiff_t>(into.values.size());
        const auto parameters = node.parameters();
        for (const vxN::_parameter& parameter : parameters->all()) {
            for (std::size_t place = 0; place < parameter.values.size(); ++place) {
                _nodeValue row;
                row.node = path;
                row.type = type;
                describe(parameter, place, row);
                if (!keep(row)) return false;
            }
        }
        std::stable_sort(into.values.begin() + first, into.values.end(),
                         [](const auto& a, const auto& b) { return keyOf(a) < keyOf(b); });
        return true;
    }

 private:
    static std::tuple<QString, int> keyOf(const _nodeValue& row) {
        return {row.channel.isEmpty() ? row.parameter : row.channel, row.component};
    }

    bool keep(const _nodeValue& row) {
        if (leavesLiterals && !row.isComputed()) return true;
        bytes += static_cast<qint64>(sizeof row) + vxP::bytesOf(row.parameter) + vxP::bytesOf(row.channel) +
                 vxP::bytesOf(row.expression) + vxP::bytesOf(row.cached.value_or(QString{})) + vxP::bytesOf(row.value) +
                 vxP::bytesOf(row.reason);
        if (bytes > mostBytesOfValues) return false;
        into.values.push_back(row);
        return true;
    }

    void describe(const vxN::_parameter& parameter, std::size_t place, _nodeValue& row) {
        const vxN::_value& stored = parameter.values[place];
        row.parameter = textOfUtf8(parameter.name);
        row.channel = textOfUtf8(vxN::componentName(parameter, place));
        row.component = static_cast<int>(place) + 1;
        if (stored.isDriven()) {
            describeChannel(stored, row);
        } else if (stored.text.find_first_of("$`") == std::string_view::npos) {
            row.value = textOfUtf8(stored.text);
        } else {
            row.expression = textOfUtf8(stored.text);
            tell(vxV::asValue(evaluator.expand(node, stored.text)), row);
        }
    }

    void describeChannel(const vxN::_value& stored, _nodeValue& row) {
        row.cached = textOfUtf8(stored.text);
        if (const auto channel = node.channel(stored.channel); channel != nullptr && !channel->segments.empty()) {
            const vxN::_segment& segment = channel->segments.front();
            row.expression = textOfUtf8(segment.expression);
            row.language = textOfUtf8(vxV::languageOf(node, segment));
            if (!channel->isExpression()) row.keys = static_cast<int>(channel->segments.size());
        }
        const bool isText = stored.isQuoted;  // also of menus and toggles, which are their words
        tell(isText ? vxV::asValue(evaluator.text(node, stored.channel)) : evaluator.channelValue(node, stored.channel),
             row);
    }

    static void tell(const vxV::_valueOutcome& outcome, _nodeValue& row) {
        if (outcome) {
            row.value = textOf(*outcome);
        } else {
            row.reason = vxV::sentenceOf(outcome.why());
            row.code = vxV::wordsOf(outcome.why().reason).code;
        }
    }

    _sceneValues& into;
    vxV::_evaluator& evaluator;
    bool leavesLiterals;
    vxN::_node node;
    qint64 bytes = 0;
};

}  // namespace

_sceneValues valuesOf(const QString& scene, const _wantedValues& wanted) {
    _sceneValues result;
    withScene(scene, result, [&](const vxN::_scene& opened, const vxP::_sceneFile& source) {
        vxV::_evaluator evaluator(opened, optionsFor(scene, source, wanted.frame));
        result.frame = evaluator.frame();
        std::string missed;
        const auto nodes = wantedNodes(opened, wanted, missed);
        if (!missed.empty())
            static_cast<_sceneHead&>(result) =
                failedHead(scene, hostNotInScene, QStringLiteral("there is no node ") + QString::fromStdString(missed));
        _valueReader reader(result, evaluator, wanted.onlyComputed);
        const bool hasAll = std::all_of(nodes.begin(), nodes.end(), [&](const auto& one) { return reader.read(one); });
        if (!hasAll)
            static_cast<_sceneHead&>(result) =
                failedHead(scene, vxP::resultException, QStringLiteral("has too many values at once: name some nodes"));
        result.isWhole = opened.archiveEnd() == vxN::_archiveEnd::complete;
    });
    return result;
}

}  // namespace vxH
