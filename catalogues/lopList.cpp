#include "catalogues/lopList.h"

#include <array>

#include "grammar/imageOutVars.h"
#include "grammar/paramSection.h"
#include "scan/scanObserver.h"

namespace vxP {

namespace {

constexpr std::array lopRoots{QLatin1String{"out/"}, QLatin1String{"stage/"}, QLatin1String{"img/"},
                              QLatin1String{"obj/"}};
constexpr QLatin1String pictureName{"picture\t"};

/// A renderer is known by a part of a node path or of a delegate's name.
struct _rendererMark {
    QLatin1String part;
    QLatin1String renderer;
};

constexpr std::array rendererMarks{
    // first match wins
    _rendererMark{QLatin1String{"karma"}, QLatin1String{"karma"}},
    _rendererMark{QLatin1String{"hdprman"}, QLatin1String{"prman"}},
    _rendererMark{QLatin1String{"vray"}, QLatin1String{"vray"}},
    _rendererMark{QLatin1String{"redshift"}, QLatin1String{"redshift"}},
    _rendererMark{QLatin1String{"arnold"}, QLatin1String{"arnold"}},
};

QString withRenderer(QLatin1String base, const QString& renderer) {
    return renderer.isEmpty() ? QString(base) : base + QLatin1Char('_') + renderer;
}

}  // namespace

_LOPList LOPList;

std::span<const QLatin1String> lopParameters() {
    return {&pictureName, 1};
}

void _LOPNode::setRenderer(const QString& text) {
    const QString& examined = text.isEmpty() ? lopName : text;
    for (const auto& mark : rendererMarks) {
        if (!examined.contains(mark.part, Qt::CaseInsensitive)) continue;
        renderer = mark.renderer;
        return;
    }
}

QString _LOPNode::rendererName_render() const {
    return withRenderer(QLatin1String("usd"), renderer);
}

QString _LOPNode::rendererName_create() const {
    return withRenderer(QLatin1String("createUSD"), renderer);
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
    _LOPNode node;
    node.lopName = nodePathOf(line, lopRoots, _unendedPath::isEmpty);
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
