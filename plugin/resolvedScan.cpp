#include "plugin/resolvedScan.h"

#include <cmath>
#include <map>

#include "catalogues/wedges.h"
#include "drivers/outNode.h"
#include "input/sceneLine.h"
#include "plugin/driverLayers.h"
#include "plugin/sceneScan.h"
#include "resolve/frameGuard.h"
#include "resolve/renderOrder.h"
#include "resolve/resolvedSection.h"
#include "resolve/sectionEvaluator.h"
#include "scan/scanBudget.h"
#include "scan/scanState.h"
#include "shared/vxLatin.h"

namespace vxP {

namespace {

using vxS::textOfUtf8;

constexpr std::string_view takeOfDriver{"take"};
constexpr std::string_view anyTake{"_current_"};
constexpr std::string_view driverOfWedge{"driver"};
constexpr std::string_view variantsOfWedge{"wrange"};
constexpr std::string_view oneVariant{"single"};
constexpr std::string_view variantOfWedge{"wedgenum"};
constexpr std::string_view randomSwitch{"random"};
constexpr std::string_view randomVariants{"numrandom"};
constexpr double mostVariants = 1e9;  ///< far more than there are records

/// What the scene says as a whole, as the plain scan would meet it.
QString linesOfScene(const vxN::_scene& scene) {
    QString lines;
    if (const auto& range = scene.timeline().frameRange)
        lines += QStringLiteral("frange %1 %2\n").arg(std::llround(range->first)).arg(std::llround(range->last));
    for (const vxN::_sceneVariable& variable : scene.variables()) {
        if (!variable.isGlobal) continue;
        QString value = textOfUtf8(variable.value);
        value.replace(QLatin1Char('\n'), QLatin1Char(' '));
        lines += QStringLiteral("set -g %1 = '%2'\n").arg(textOfUtf8(variable.name), value);
    }
    for (const vxN::_take& take : scene.takes().all())
        lines += QStringLiteral("take name %1\n").arg(textOfUtf8(take.name));
    return lines;
}

/// The kind of section that a node has, by its type; by its path where the scene does not hold its type.
const _sectionKind* kindOf(const vxN::_node& node, const _nodeType* type) {
    if (type != nullptr && type->reader == _sectionReader::driver && outputOf(node, *type) == nullptr) return nullptr;
    if (type != nullptr) return &sectionKindOf(type->reader);
    if (!node.type().empty()) return nullptr;
    const QString header = textOfUtf8(node.path()).mid(1) + QLatin1String(".parm{");
    return classifyLine(header).section;
}

bool isDriver(const vxN::_node& node) {
    const _nodeType* const type = nodeTypeOf(node.type());
    return type != nullptr && type->reader == _sectionReader::driver && outputOf(node, *type) != nullptr;
}

/// A damaged scene may have lost a node's parameters, and with them what would be read.
bool hasSection(const vxN::_node& node) {
    return node.isSaved() && (node.parametersStart() > 0 || !node.parameters()->all().empty());
}

_remark remarkOf(_idle idle) {
    switch (idle) {
        case _idle::bypassed:
            return _remark::bypassed;
        case _idle::loadsFromDisk:
            return _remark::loadsFromDisk;
        case _idle::savedByHand:
        case _idle::no:
            break;
    }
    return _remark::savedByHand;
}

class _resolvedScan {
 public:
    _resolvedScan(_dataPARS_LoadSceneFile& hostsLoad, const _sceneFile& source, _sceneFacts& sceneFacts,
                  _resolvedDrivers& driversOfScene)
        : load(hostsLoad),
          facts(sceneFacts),
          drivers(driversOfScene),
          scene(source),
          evaluator(sectionEvaluator(scene, source, load.sceneFileName->toQString().toStdString())),
          sections(*evaluator),
          order(scene, *evaluator),
          layers(computed, sections, [this](qint32 node) { return jobsBefore(order.before(node, hasJobs)); }) {}

    qint32 run();

 private:
    /// A node that matters, and how its section is read.
    struct _section {
        const vxN::_node& node;
        const _nodeType* type;  ///< null: not known
        const _sectionKind& kind;
        QString path;

        const _nodeTraits* traits() const { return type == nullptr ? nullptr : &type->traits; }
    };

    qint32 readFacts();
    qint32 readNode(const vxN::_node& node, const _nodeType* type);
    qint32 readLines(const _section& section, QString lines);
    qint32 readSection(const _section& section);
    qint32 readDriver(const _section& section);
    qint32 readWedge(const _section& section);
    qint32 readWedgeOf(const _section& section, qint32 driver, qint32 group);
    std::optional<qint32> onlyVariant(const vxN::_node& wedge, qint32 variants);
    void readRandom(const vxN::_node& node, _wedgeNode& wedge);
    std::optional<qint32> ownTake(const vxN::_node& node);
    std::vector<qint32> jobsBefore(const _nodesBefore& before);

    _dataPARS_LoadSceneFile& load;
    _sceneFacts& facts;
    _resolvedDrivers& drivers;
    vxN::_scene scene;
    std::unique_ptr<vxV::_evaluator> evaluator;
    _sectionResolver sections;
    _renderOrder order;
    const _computedScene computed{scene, *evaluator, order};
    _driverLayers layers;
    std::map<qint32, qint32> lastJobs;  ///< of drivers, by node
    const std::function<bool(qint32)> hasJobs = [this](qint32 node) { return lastJobs.count(node) > 0; };
};

qint32 _resolvedScan::readFacts() {
    QString lines = linesOfScene(scene);
    QTextStream stream(&lines, QIODevice::ReadOnly);
    const qint32 result = scanStream(load, stream, facts, [](bool) {});
    hVariables.orderByLength();  // jobs of takes are named at the end of the load, by the same rule
    return result;
}

qint32 _resolvedScan::readLines(const _section& section, QString lines) {
    QTextStream stream(&lines, QIODevice::ReadOnly);
    QString line;
    return section.kind.readNode(load, {section.path, section.traits()}, stream, line, facts);
}

/// The take that a driver asks for, in the scene's list; none: any.
std::optional<qint32> _resolvedScan::ownTake(const vxN::_node& node) {
    if (node.parameter(takeOfDriver) == nullptr) return {};
    const auto name = evaluator->text(node, takeOfDriver);
    return name && !name->empty() && *name != anyTake ? std::optional(scene.takes().find(*name)) : std::nullopt;
}

std::vector<qint32> _resolvedScan::jobsBefore(const _nodesBefore& before) {
    std::vector<qint32> jobs;
    jobs.reserve(before.nodes.size());
    for (const qint32 driver : before.nodes) jobs.push_back(lastJobs[driver]);
    std::sort(jobs.begin(), jobs.end());
    return jobs;
}

qint32 _resolvedScan::readDriver(const _section& section) {
    if (load.jobArray->count > mostJobsBefore) return readLines(section, {});
    _resolvedDriver driver{section.path, section.traits(), section.node.index(), ownTake(section.node)};
    driver.firstJob = load.jobArray->count;
    _idle idle = _idle::no;
    {
        const _shownLayer shown(computed, {driver.ownTake.value_or(-1), {}});
        idle = sections.idleness(section.node, section.type);
        if (idle == _idle::no) driver.lines = sections.linesOf(section.node, section.kind, section.type);
    }
    if (driver.lines) {
        keepMemory(bytesOf(*driver.lines));
        const qint32 result = readLines(section, *driver.lines);
        if (result != resultSuccess) return result;
        for (qint32 i = driver.firstJob; i < load.jobArray->count; ++i) removeFrameGuards(*load.jobArray->at(i));
    } else {
        tellReader(section.kind.reader, section.path);
        tellOfSection(remarkOf(idle));
    }
    driver.jobCount = load.jobArray->count - driver.firstJob;
    const _nodesBefore before = order.before(driver.node, hasJobs);
    driver.before = jobsBefore(before);
    driver.hasChoices = before.isChosen;
    if (!driver.ownTake) layers.readTakes(driver, facts.takes.names);
    if (driver.jobCount > 0) lastJobs[driver.node] = load.jobArray->count - 1;
    if (driver.jobCount > 0)
        drivers.withJobs.push_back(std::move(driver));
    else if (!driver.inLayers.empty())
        drivers.ofTakes.push_back(std::move(driver));
    return resultSuccess;
}

/// The one variant that a wedge is set to; none: it renders all, or the number cannot be told.
std::optional<qint32> _resolvedScan::onlyVariant(const vxN::_node& wedge, qint32 variants) {
    const auto range = wedge.parameter(variantsOfWedge);
    if (range == nullptr || range->values.empty() || range->values.front().text != oneVariant) return {};
    const auto number = evaluator->number(wedge, variantOfWedge);
    const bool isVariant = number && *number >= 0 && *number < variants;
    return isVariant ? std::optional(static_cast<qint32>(*number)) : std::nullopt;
}

/// Random variants are as many as a parameter of their own says: the steps do not count. None where it cannot be told.
void _resolvedScan::readRandom(const vxN::_node& node, _wedgeNode& wedge) {
    const bool hasSwitch = node.parameter(randomSwitch) != nullptr;
    const auto isOn = hasSwitch ? sections.isOn(node, randomSwitch) : std::optional(false);
    wedge.isRandom = isOn.value_or(true);
    if (!wedge.isRandom) return;
    const auto number = evaluator->number(node, randomVariants);
    const bool isKnown = isOn && number && *number >= 0;
    wedge.totalCache = isKnown ? static_cast<qint32>(std::min(*number, mostVariants)) : 0;
    tellOfSection(_remark::wedgeIsRandom, isKnown ? QString::number(wedge.totalCache) : QString());
}

/// @param driver  that it repeats
/// @param group   of its entries
qint32 _resolvedScan::readWedgeOf(const _section& section, qint32 driver, qint32 group) {
    const auto known = wedges.size();
    const _given given{driverOfWedge, textOfUtf8(scene.node(driver).path())};
    const qint32 result = readLines(section, sections.linesOf(section.node, section.kind, section.type, given));
    if (wedges.size() == known) return result;
    const auto entry = static_cast<int>(known);
    wedges[entry].group = group;
    readRandom(section.node, wedges[entry]);
    wedges[entry].onlyVariant = onlyVariant(section.node, wedges[entry].totalWedges());
    layers.addWedge(entry, section.node.index(), driver);
    return result;
}

/// A wedge repeats each of the drivers that are wired to it.
qint32 _resolvedScan::readWedge(const _section& section) {
    const auto repeated = order.repeatedBy(section.node, hasJobs);
    const auto group = static_cast<qint32>(wedges.size());
    for (const qint32 driver : repeated) {
        const qint32 result = readWedgeOf(section, driver, group);
        if (result != resultSuccess) return result;
    }
    if (!repeated.empty()) return resultSuccess;
    const auto idle = order.repeatedBy(section.node, [this](qint32 node) { return isDriver(scene.node(node)); });
    const auto name = evaluator->text(section.node, driverOfWedge);
    if (idle.empty() && !(name && name->empty()))
        return readLines(section, sections.linesOf(section.node, section.kind, section.type));
    tellReader(section.kind.reader, section.path);
    if (idle.empty())
        tellOfSection(_remark::wedgeLeadsNowhere);
    else
        tellOfSection(_remark::wedgeOfIdleDriver, textOfUtf8(scene.node(idle.front()).path()));
    return resultSuccess;
}

qint32 _resolvedScan::readSection(const _section& section) {
    switch (section.kind.reader) {
        case _sectionReader::driver:
            return readDriver(section);
        case _sectionReader::wedge:
            return readWedge(section);
        case _sectionReader::camera:
        case _sectionReader::usdRenderSettings:
        case _sectionReader::lop:
            break;
    }
    return readLines(section, sections.linesOf(section.node, section.kind, section.type));
}

qint32 _resolvedScan::readNode(const vxN::_node& node, const _nodeType* type) {
    const _sectionKind* const kind = hasSection(node) ? kindOf(node, type) : nullptr;
    if (kind == nullptr) return resultSuccess;
    spendWork(sectionCost);
    if (scanObserver != nullptr) scanObserver->sectionBegins(node.parametersStart(), load.jobArray->count);
    const qint32 result = readSection({node, type, *kind, textOfUtf8(node.path())});
    if (scanObserver != nullptr) scanObserver->sectionEnds(load.jobArray->count);
    return result;
}

qint32 _resolvedScan::run() {
    if (const qint32 read = readFacts(); read != resultSuccess) return read;
    layers.findTakes(facts.takes.names);
    for (qint32 index = 0; index < scene.nodeCount(); ++index) {
        if (order.isHandedOut(index)) continue;
        const _nodeType* const type = nodeTypeOf(scene.node(index).type());
        const bool hasOrder =
            type != nullptr && (type->reader == _sectionReader::driver || type->reader == _sectionReader::wedge);
        for (const qint32 next : hasOrder ? order.upTo(index) : std::vector<qint32>{index}) {
            const vxN::_node node = scene.node(next);
            const qint32 read = readNode(node, nodeTypeOf(node.type()));
            if (read != resultSuccess) return read;
        }
    }
    layers.finish(drivers);
    return resultSuccess;
}

}  // namespace

qint32 scanResolved(_dataPARS_LoadSceneFile& load, const _sceneFile& source, _sceneFacts& facts,
                    _resolvedDrivers& drivers) {
    allowWorkFor(source.byteCount());
    return _resolvedScan(load, source, facts, drivers).run();
}

}  // namespace vxP
