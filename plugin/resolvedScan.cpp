#include "plugin/resolvedScan.h"

#include <cmath>
#include <map>

#include "drivers/outNode.h"
#include "input/sceneLine.h"
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

/// Shows the scene as one of its takes has it, for as long as it lives.
class _shownTake {
 public:
    _shownTake(vxN::_scene& ofScene, vxV::_evaluator& ofValues, qint32 take)
        : scene(ofScene), values(ofValues), before(scene.shownTake()) {
        show(take);
    }
    _shownTake(const _shownTake&) = delete;
    _shownTake& operator=(const _shownTake&) = delete;
    ~_shownTake() { show(before); }

 private:
    void show(qint32 take) {
        const qint32 shown = scene.shownTake();
        scene.showTake(take);
        if (scene.shownTake() != shown) values.forgetValues();
    }

    vxN::_scene& scene;
    vxV::_evaluator& values;
    const qint32 before;
};

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
          order(scene, *evaluator) {}

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

    struct _otherTake {
        qint32 index;  ///< in the scene
        qint32 place;  ///< in the facts
    };

    qint32 readFacts();
    void findTakes();
    qint32 readNode(const vxN::_node& node, const _nodeType* type);
    qint32 readLines(const _section& section, QString lines);
    qint32 readSection(const _section& section);
    qint32 readDriver(const _section& section);
    qint32 readWedge(const _section& section);
    std::optional<QString> ownTake(const vxN::_node& node);
    void readTakes(const _section& section, const std::optional<QString>& lines, _resolvedDriver& driver);
    std::vector<qint32> jobsBefore(qint32 node);

    _dataPARS_LoadSceneFile& load;
    _sceneFacts& facts;
    _resolvedDrivers& drivers;
    vxN::_scene scene;
    std::unique_ptr<vxV::_evaluator> evaluator;
    _sectionResolver sections;
    _renderOrder order;
    std::vector<_otherTake> otherTakes;  ///< that change anything in the scene as it was saved
    std::map<qint32, qint32> lastJobs;   ///< of drivers, by node
    const std::function<bool(qint32)> hasJobs = [this](qint32 node) { return lastJobs.count(node) > 0; };
};

qint32 _resolvedScan::readFacts() {
    QString lines = linesOfScene(scene);
    QTextStream stream(&lines, QIODevice::ReadOnly);
    const qint32 result = scanStream(load, stream, facts, [](bool) {});
    hVariables.orderByLength();  // jobs of takes are named at the end of the load, by the same rule
    return result;
}

void _resolvedScan::findTakes() {
    std::map<QString, qint32> places;
    for (const QString& name : facts.takes.names) places.emplace(name, static_cast<qint32>(places.size()));
    const auto takes = scene.takes().all();
    const qint32 active = scene.activeTake();
    std::vector<bool> isOther(takes.size());
    for (std::size_t i = 0; i < takes.size(); ++i) {
        const auto index = static_cast<qint32>(i);
        const qint32 parent = takes[i].parent;
        const bool isParentOther = parent >= 0 && isOther[static_cast<std::size_t>(parent)];
        isOther[i] = index != active && (isParentOther || !takes[i].overrides.empty());
        const auto place = places.find(textOfUtf8(takes[i].name));
        if (place == places.end()) continue;
        if (isOther[i]) otherTakes.push_back({index, place->second});
        places.erase(place);  // of two takes of a name the first one counts
    }
}

qint32 _resolvedScan::readLines(const _section& section, QString lines) {
    QTextStream stream(&lines, QIODevice::ReadOnly);
    QString line;
    return section.kind.readNode(load, {section.path, section.traits()}, stream, line, facts);
}

/// The take that a driver asks for; none: any.
std::optional<QString> _resolvedScan::ownTake(const vxN::_node& node) {
    if (node.parameter(takeOfDriver) == nullptr) return {};
    const auto name = evaluator->text(node, takeOfDriver);
    return name && !name->empty() && *name != anyTake ? std::optional<QString>(textOfUtf8(*name)) : std::nullopt;
}

/// @param lines  of the driver as the scene was saved; none: it writes nothing then
void _resolvedScan::readTakes(const _section& section, const std::optional<QString>& lines, _resolvedDriver& driver) {
    for (const _otherTake& take : otherTakes) {
        spendWork(shownTakeCost);
        const _shownTake shown(scene, *evaluator, take.index);
        std::optional<QString> taken;
        if (sections.idleness(section.node, section.type) == _idle::no) {
            const _unobserved silence;
            taken = sections.linesOf(section.node, section.kind, section.type);
        }
        if (taken == lines) continue;
        if (!taken) tellOfSection(_remark::offInTake, facts.takes.names.at(take.place));
        keepMemory(bytesOf(taken.value_or(QString())) + static_cast<qint64>(sizeof(_takeSection)));
        driver.takes.push_back({take.place, taken.has_value(), taken.value_or(QString())});
    }
}

std::vector<qint32> _resolvedScan::jobsBefore(qint32 node) {
    std::vector<qint32> jobs;
    for (const qint32 driver : order.before(node, hasJobs)) jobs.push_back(lastJobs[driver]);
    std::sort(jobs.begin(), jobs.end());
    return jobs;
}

qint32 _resolvedScan::readDriver(const _section& section) {
    if (load.jobArray->count > mostJobsBefore) return readLines(section, {});
    const auto own = ownTake(section.node);
    std::optional<QString> lines;
    _idle idle = _idle::no;
    {
        const _shownTake shown(scene, *evaluator, own ? scene.takes().find(own->toStdString()) : -1);
        idle = sections.idleness(section.node, section.type);
        if (idle == _idle::no) lines = sections.linesOf(section.node, section.kind, section.type);
    }
    _resolvedDriver driver{section.path, section.traits(), load.jobArray->count, 0, {}, {}};
    if (lines) {
        const qint32 result = readLines(section, *lines);
        if (result != resultSuccess) return result;
        for (qint32 i = driver.firstJob; i < load.jobArray->count; ++i) removeFrameGuards(*load.jobArray->at(i));
    } else {
        tellReader(section.kind.reader, section.path);
        tellOfSection(remarkOf(idle));
    }
    driver.jobCount = load.jobArray->count - driver.firstJob;
    driver.before = jobsBefore(section.node.index());
    if (!own) readTakes(section, lines, driver);
    if (driver.jobCount > 0) lastJobs[section.node.index()] = load.jobArray->count - 1;
    if (driver.jobCount > 0)
        drivers.withJobs.push_back(std::move(driver));
    else if (!driver.takes.empty())
        drivers.ofTakes.push_back(std::move(driver));
    return resultSuccess;
}

/// A wedge repeats each of the drivers that are wired to it.
qint32 _resolvedScan::readWedge(const _section& section) {
    const auto repeated = order.repeatedBy(section.node, hasJobs);
    if (repeated.empty()) return readLines(section, sections.linesOf(section.node, section.kind, section.type));
    for (const qint32 driver : repeated) {
        const _given given{driverOfWedge, textOfUtf8(scene.node(driver).path())};
        const qint32 result = readLines(section, sections.linesOf(section.node, section.kind, section.type, given));
        if (result != resultSuccess) return result;
    }
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
    findTakes();
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
    return resultSuccess;
}

}  // namespace

qint32 scanResolved(_dataPARS_LoadSceneFile& load, const _sceneFile& source, _sceneFacts& facts,
                    _resolvedDrivers& drivers) {
    allowWorkFor(source.byteCount());
    return _resolvedScan(load, source, facts, drivers).run();
}

}  // namespace vxP
