#include "catalogues/lopList.h"

#include <array>

#include "grammar/imageOutVars.h"
#include "grammar/paramSection.h"
#include "jobs/renderers.h"
#include "scan/scanObserver.h"

namespace vxP {

namespace {

constexpr QLatin1String pictureName{"picture\t"};
constexpr const _renderer& stage = rendererOf(_kind::lop);

QString withRenderer(QStringView base, const QString& renderer) {
    return renderer.isEmpty() ? base.toString() : base.toString() + QLatin1Char('_') + renderer;
}

}  // namespace

_LOPList LOPList;

std::span<const QLatin1String> lopParameters() {
    return {&pictureName, 1};
}

void _LOPNode::setRenderer(const QString& text) {
    const QString examined = foldedForm(text.isEmpty() ? lopName : text);  // the marks are in lower case
    for (const _renderer* const row : stageRenderers) {
        if (!examined.contains(row->stageMark)) continue;
        renderer = row->renderJob.toString();
        return;
    }
}

QString _LOPNode::rendererName_render() const {
    return withRenderer(stage.renderJob, renderer);
}

QString _LOPNode::rendererName_create() const {
    return withRenderer(stage.exportJob, renderer);
}

qint32 _LOPList::findLOPIndex(const QString& name, const bool& create) {
    return nodes.find(name, create);
}

qint32 _LOPList::findLOPIndexByRenderNode(const QString& renderNode) const {
    return nodes.findByDriver(renderNode);
}

void _LOPList::addLOP(_LOPNode& node) {
    _LOPNode& stored = nodes[findLOPIndex(node.lopName, true)];
    keepMemory(bytesOf(node.imageName) - bytesOf(stored.imageName) + bytesOf(stored.renderer));
    stored.lopName = node.lopName;
    stored.imageName = node.imageName;
    stored.imageUsesTake = node.imageUsesTake;
    stored.setRenderer(QString());
}

qint32 _LOPList::addLOPFromOutNode(QString name, const QString& renderNode) {
    const qint32 index = findLOPIndex(withoutNodeExpression(name), true);
    nodes.attach(index, renderNode);
    return index;
}

qint32 loadLOPNode(_dataPARS_LoadSceneFile* /*load*/, QTextStream& stream, QString& line) {
    return readLOPNode({nodePathOf(line, outputRoots, _unendedPath::isEmpty)}, stream, line);
}

qint32 readLOPNode(const _sectionNode& known, QTextStream& stream, QString& line) {
    _LOPNode node;
    node.lopName = known.path;
    tellReader(_sectionReader::lop, node.lopName);
    bool noFrameVariable = false;
    return readSection(
        stream, line,
        [&](const QString& parameter) {
            if (isNamed(parameter, pictureName))
                replaceImageOutVars(parameter, false, node.imageName, node.imageUsesTake, noFrameVariable);
            return _step::next;
        },
        [&] {
            LOPList.addLOP(node);
            return resultSuccess;
        });
}

}  // namespace vxP
