#include "scene/scene.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <numeric>
#include <utility>
#include <vector>

#include "scan/scanBudget.h"
#include "scene/entryTexts.h"
#include "scene/limits.h"
#include "scene/nameIndex.h"
#include "scene/sceneStore.h"
#include "scene/textTokens.h"

namespace vxN {

namespace {

constexpr qint32 noRank = std::numeric_limits<qint32>::max();
constexpr qint64 bytesAroundKey = 80;  ///< of a map's entry

constexpr auto nameOf = [](const _sceneVariable& variable) { return std::string_view(variable.name); };

bool isNodeName(std::string_view name) {
    return !name.empty() && name != "." && name != "..";
}

/// Fills a store from an archive.
class _sceneReader {
 public:
    explicit _sceneReader(_sceneStore& filled) : store(filled), archive(filled.source) {
        store.nodes.emplace_back();
        store.types.emplace_back();
    }

    void readAll() {
        while (const auto entry = archive.next()) readEntry(*entry);
        store.archiveKind = archive.kind();
        store.archiveEnd = archive.end();
        listChildren();
    }

 private:
    using _handler = void (_sceneReader::*)(qint32 node, const _body& body);

    struct _nodeRule {
        std::string_view kind;
        bool makesNode;  ///< the others come after one that does
        _handler handle;
    };
    static const std::array<_nodeRule, 6> nodeRules;

    void readEntry(const _entry& entry) {
        if (entry.name.starts_with('.')) return readSceneEntry(entry);
        const _entryName name = splitEntryName(entry.name);
        if (name.kind == "networkdotinit") return keepDot(name.path, entry.body);
        const auto rule = std::find_if(nodeRules.begin(), nodeRules.end(),
                                       [&](const _nodeRule& one) { return one.kind == name.kind; });
        if (rule == nodeRules.end()) return;
        const qint32 node = nodeAt(name.path, rule->makesNode);
        if (node < 0) return;
        if (rule->makesNode) store.record(node).isSaved = true;
        (this->*rule->handle)(node, entry.body);
    }

    void readSceneEntry(const _entry& entry) {
        if (entry.name == ".start") store.timeline = parseTimeline(archive.read(entry.body, largestBody));
        if (entry.name == ".variables") readVariables(entry.body);
        if (entry.name == ".contextoptions")
            store.contextOptions = parseContextOptions(archive.read(entry.body, largestBody));
        if (entry.name == ".takes") store.takes = std::make_unique<_takes>(archive.read(entry.body, largestBody));
    }

    void readVariables(const _body& body) {
        store.variables = parseVariables(archive.read(body, largestBody));
        store.variablesByName = indexByName(store.variables, nameOf);
    }

    void keepDot(std::string_view path, const _body& body) {
        const std::size_t cut = path.rfind('/');
        const qint32 network = cut == std::string_view::npos ? 0 : nodeAt(path.substr(0, cut), false);
        if (network < 0) return;
        std::string name(path.substr(cut + 1));
        vxP::keepMemory(bytesAroundKey + static_cast<qint64>(name.capacity()));
        store.dots[{network, std::move(name)}] = body;
    }

    void readType(qint32 node, const _body& body) {
        const std::string text = archive.read(body, largestBody);
        const _nodeInit init = parseNodeInit(text);
        store.record(node).type = typeAt(init.type);
        store.record(node).matchesDefinition = init.matchesDefinition;
    }

    void readOrder(qint32 node, const _body& body) {
        const std::string text = archive.read(body, largestBody);
        std::string_view names = text;
        takeLine(names);  // how many there are
        for (qint32 rank = 0; !names.empty(); ++rank) {
            vxP::spendWork(vxP::childNameCost);
            const qint32 child = store.childOf(node, trimmed(takeLine(names)));
            if (child >= 0) store.record(child).rank = rank;
        }
    }

    template <_nodeEntry Entry>
    void keepEntry(qint32 node, const _body& body) {
        vxP::allowWorkFor(std::min(body.size, largestBody));
        store.record(node).entries[static_cast<std::size_t>(Entry)] = body;
    }

    quint32 typeAt(std::string_view type) {
        const auto known = typeNames.find(type);
        if (known != typeNames.end()) return known->second;
        vxP::keepMemory(bytesAroundKey + static_cast<qint64>(sizeof(std::string) + type.size()));
        const auto position = static_cast<quint32>(store.types.size());
        typeNames.emplace(store.types.emplace_back(type), position);
        return position;
    }

    /// -1: there is no such node and none was made.
    qint32 nodeAt(std::string_view path, bool makesNodes) {
        if (path == pathBefore && nodeBefore >= 0) return nodeBefore;
        qint32 node = 0;
        int depth = 0;
        for (std::string_view left = path; !left.empty() && node >= 0; ++depth) {
            vxP::spendWork(vxP::childNameCost);
            const std::size_t end = std::min(left.find('/'), left.size());
            const std::string_view name = left.substr(0, end);
            left.remove_prefix(std::min(end + 1, left.size()));
            const qint32 parent = node;
            node = depth < deepestNode ? store.childOf(parent, name) : -1;
            if (node < 0 && depth < deepestNode && makesNodes && isNodeName(name)) node = makeNode(parent, name);
        }
        pathBefore = path;
        nodeBefore = node;
        return node;
    }

    qint32 makeNode(qint32 parent, std::string_view name) {
        const auto index = static_cast<qint32>(store.nodes.size());
        _nodeRecord& record = store.nodes.emplace_back();
        record.name = name;
        record.parent = parent;
        record.rank = noRank;
        vxP::keepMemory(bytesAroundKey + static_cast<qint64>(sizeof record + sizeof index + record.name.capacity()));
        store.byName.emplace(std::pair(parent, std::string_view(record.name)), index);
        return index;
    }

    void listChildren() {
        std::vector<qint32>& children = store.children;
        children.resize(store.nodes.size() - 1);
        std::iota(children.begin(), children.end(), 1);
        const auto place = [this](qint32 node) {
            return std::pair(store.record(node).parent, store.record(node).rank);
        };
        std::stable_sort(children.begin(), children.end(), [&](qint32 a, qint32 b) { return place(a) < place(b); });
        for (std::size_t i = children.size(); i-- > 0;) {
            _nodeRecord& parent = store.record(store.record(children[i]).parent);
            parent.firstChild = static_cast<quint32>(i);
            ++parent.childCount;
        }
    }

    _sceneStore& store;
    _archive archive;
    std::map<std::string_view, quint32> typeNames;
    std::string pathBefore;  ///< the entries of a node are next to each other
    qint32 nodeBefore = -1;
};

const std::array<_sceneReader::_nodeRule, 6> _sceneReader::nodeRules{{
    {"init", true, &_sceneReader::readType},
    {"def", true, &_sceneReader::keepEntry<_nodeEntry::definition>},
    {"parm", true, &_sceneReader::keepEntry<_nodeEntry::parameters>},
    {"chn", true, &_sceneReader::keepEntry<_nodeEntry::channels>},
    {"order", false, &_sceneReader::readOrder},
    {"multiparm", false, &_sceneReader::keepEntry<_nodeEntry::multiparm>},
}};

}  // namespace

_scene::_scene(const _byteSource& source) : store(std::make_unique<_sceneStore>(source)) {
    _sceneReader(*store).readAll();
    if (!store->takes) store->takes = std::make_unique<_takes>(std::string());
}

_scene::_scene(_scene&&) noexcept = default;
_scene& _scene::operator=(_scene&&) noexcept = default;
_scene::~_scene() = default;

_archiveKind _scene::archiveKind() const {
    return store->archiveKind;
}

_archiveEnd _scene::archiveEnd() const {
    return store->archiveEnd;
}

_node _scene::root() const {
    return node(0);
}

_node _scene::find(std::string_view path) const {
    return root().find(path);
}

qint32 _scene::nodeCount() const {
    return static_cast<qint32>(store->nodes.size());
}

_node _scene::node(qint32 index) const {
    return index < 0 || index >= nodeCount() ? _node() : _node(*store, index);
}

const _timeline& _scene::timeline() const {
    return store->timeline;
}

std::span<const _sceneVariable> _scene::variables() const {
    return store->variables;
}

std::optional<std::string_view> _scene::variable(std::string_view name) const {
    const _sceneVariable* const found = findLast(store->variables, store->variablesByName, name, nameOf);
    return found == nullptr ? std::nullopt : std::optional<std::string_view>(found->value);
}

std::span<const _contextOption> _scene::contextOptions() const {
    return store->contextOptions;
}

std::string_view _scene::saveVersion() const {
    return variable("_HIP_SAVEVERSION").value_or(std::string_view());
}

const _takes& _scene::takes() const {
    return *store->takes;
}

qint32 _scene::activeTake() const {
    const auto name = variable("ACTIVETAKE");
    return name ? store->takes->find(*name) : -1;
}

void _scene::show(_layer layer) {
    const qint32 take = layer.take;
    const bool isOther = take >= 0 && take < static_cast<qint32>(takes().all().size()) && take != activeTake();
    layer.take = isOther ? take : -1;
    const qint32 takeBefore = store->layer->take;
    store->layer = std::make_shared<const _layer>(std::move(layer));
    store->isFixedRead = false;
    if (store->layer->take == takeBefore) return;
    store->definitions.clear();
    store->parameters.clear();
}

const _layer& _scene::shown() const {
    return *store->layer;
}

bool _scene::isLayerRead() const {
    return store->isFixedRead;
}

}  // namespace vxN
