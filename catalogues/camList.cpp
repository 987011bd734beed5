#include "catalogues/camList.h"

#include <array>

#include "catalogues/listIndex.h"
#include "readers/paramSection.h"

namespace vxP {

namespace {

constexpr std::array cameraRoots{QLatin1String{"out/"}, QLatin1String{"obj/"}};
constexpr std::array<std::string_view, 4> notACamera{"xform", "camOrigin", "file", "constraints"};
constexpr std::string_view stereoMark{"stereo"};
constexpr QLatin1String resolutionName{"res\t"};

void readResolution(const QString& line, _camNode& node) {
    const QString value = unquoted(line);
    node.resX = integerOf(firstField(value));
    node.resY = integerOf(textBehind(value, u'\t'));
}

}  // namespace

_camList camList;

std::span<const QLatin1String> cameraParameters() {
    return {&resolutionName, 1};
}

qint32 _camList::findCamIndex(const _vxString8_allSize<150>& name) {
    const qint32 index = indexOfFirst(cameras, [&](const _camNode& camera) { return camera.camName == name; });
    if (index >= 0) return index;
    cameras.append(_camNode());
    return static_cast<qint32>(cameras.size()) - 1;
}

qint32 _camList::findCamIndexByRenderNode(const QString& renderNode) const {
    return indexOfDriver(cameras, renderNode);
}

void _camList::addCam(_camNode& node) {
    for (const std::string_view mark : notACamera)
        if (node.camName.contains(mark)) return;
    _camNode& camera = cameras[findCamIndex(node.camName)];
    camera.camName = node.camName;
    camera.resX = node.resX;
    camera.resY = node.resY;
    camera.isStereo = node.isStereo;
}

void _camList::addCamFromOutNode(_vxString8_allSize<150> name, const QString& renderNode) {
    name = QStringView{withoutNodeExpression(name.toQString())};
    _camNode& camera = cameras[findCamIndex(name)];
    camera.camName = name;
    camera.renderNodes.append(renderNode);
}

qint32 loadCamNode(_dataPARS_LoadSceneFile* /*load*/, QTextStream& stream, QString& line) {
    _camNode node;
    node.camName = QStringView{nodePathOf(line, cameraRoots, _unendedPath::isEmpty)};
    node.isStereo = node.camName.contains(stereoMark);
    return readSection(
        stream, line,
        [&](const QString& parameter) {
            if (isNamed(parameter, resolutionName)) readResolution(parameter, node);
            return _step::next;
        },
        [&] {
            camList.addCam(node);
            return resultSuccess;
        });
}

}  // namespace vxP
