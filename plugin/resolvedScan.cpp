#include "plugin/resolvedScan.h"

#include <cmath>

#include "input/sceneLine.h"
#include "plugin/sceneScan.h"
#include "resolve/resolvedSection.h"
#include "resolve/sectionEvaluator.h"
#include "scan/scanBudget.h"

namespace vxP {

namespace {

QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<_size>(text.size()));
}

/// What the scene says as a whole, as the plain scan would meet it.
QString linesOfScene(const vxN::_scene& scene) {
    QString lines;
    if (const auto& range = scene.timeline().frameRange)
        lines += QStringLiteral("frange %1 %2\n").arg(std::llround(range->first)).arg(std::llround(range->last));
    for (const vxN::_sceneVariable& variable : scene.variables()) {
        if (!variable.isGlobal) continue;
        QString value = qt(variable.value);
        value.replace(QLatin1Char('\n'), QLatin1Char(' '));
        lines += QStringLiteral("set -g %1 = '%2'\n").arg(qt(variable.name), value);
    }
    for (const vxN::_take& take : scene.takes().all()) lines += QStringLiteral("take name %1\n").arg(qt(take.name));
    return lines;
}

/// The kind of section that a node has, by its type; by its path where the scene does not hold its type.
const _sectionKind* kindOf(const vxN::_node& node, const _nodeType* type) {
    if (type != nullptr && type->reader == _sectionReader::driver && !namesAnOutput(node, *type)) return nullptr;
    if (type != nullptr) return &sectionKindOf(type->reader);
    if (!node.type().empty()) return nullptr;
    const QString header = qt(node.path()).mid(1) + QLatin1String(".parm{");
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

class _resolvedScan {
 public:
    _resolvedScan(_dataPARS_LoadSceneFile& hostsLoad, const _sceneFile& source, _sceneFacts& sceneFacts)
        : load(hostsLoad), facts(sceneFacts), scene(source), sceneSource(source) {}

    qint32 run();

 private:
    qint32 readFacts();
    qint32 readNode(const vxN::_node& node, _sectionResolver& sections);

    _dataPARS_LoadSceneFile& load;
    _sceneFacts& facts;
    vxN::_scene scene;
    const vxN::_byteSource& sceneSource;
};

qint32 _resolvedScan::readFacts() {
    QString lines = linesOfScene(scene);
    QTextStream stream(&lines, QIODevice::ReadOnly);
    return scanStream(load, stream, facts, [](bool) {});
}

qint32 _resolvedScan::readNode(const vxN::_node& node, _sectionResolver& sections) {
    const _nodeType* const type = nodeTypeOf(node.type());
    const _sectionKind* const kind = hasSection(node) ? kindOf(node, type) : nullptr;
    if (kind == nullptr) return resultSuccess;
    spendWork(sectionCost);
    const bool isDriver = kind->reader == _sectionReader::driver;
    const QString path = qt(node.path());
    if (scanObserver != nullptr) scanObserver->sectionBegins(node.parametersStart(), load.jobArray->count);
    const _idle idle = isDriver ? sections.idleness(node, type) : _idle::no;
    qint32 result = resultSuccess;
    if (idle == _idle::no) {
        QString lines = sections.linesOf(node, *kind, type);
        QTextStream stream(&lines, QIODevice::ReadOnly);
        QString line;
        result = kind->readNode(load, {path, type == nullptr ? nullptr : &type->traits}, stream, line, facts);
    } else {
        tellReader(kind->reader, path);
        tellOfSection(remarkOf(idle));
    }
    if (scanObserver != nullptr) scanObserver->sectionEnds(load.jobArray->count);
    return result;
}

qint32 _resolvedScan::run() {
    if (const qint32 read = readFacts(); read != resultSuccess) return read;
    const auto evaluator = sectionEvaluator(scene, sceneSource, load.sceneFileName->toQString().toStdString());
    _sectionResolver sections(*evaluator);
    for (qint32 index = 0; index < scene.nodeCount(); ++index) {
        const qint32 read = readNode(scene.node(index), sections);
        if (read != resultSuccess) return read;
    }
    return resultSuccess;
}

}  // namespace

qint32 scanResolved(_dataPARS_LoadSceneFile& load, const _sceneFile& source, _sceneFacts& facts) {
    allowWorkFor(source.byteCount());
    return _resolvedScan(load, source, facts).run();
}

}  // namespace vxP
