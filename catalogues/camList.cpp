#include "catalogues/camList.h"

#include <array>
#include <functional>

#include "grammar/paramSection.h"
#include "scan/scanObserver.h"
#include "shared/vxLatin.h"

namespace vxP {

namespace {

constexpr std::array notACamera{QLatin1String{"xform"}, QLatin1String{"camOrigin"}, QLatin1String{"file"},
                                QLatin1String{"constraints"}};
constexpr std::string_view stereoMark{"stereo"};
constexpr QLatin1String resolutionName{"res\t"};

std::size_t hashOf(const _vxString8_allSize<150>& name) {
    return std::hash<std::string_view>{}(name.view());
}

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

/// First camera of that name, or -1. Its name is not stored a second time, so two names of one hash share a place: all
/// cameras are looked at then.
qint32 _camList::knownIndex(const _vxString8_allSize<150>& name) const {
    const auto found = byNameHash.find(hashOf(name));
    if (found == byNameHash.end()) return -1;
    if (cameras.at(found->second).camName == name) return found->second;
    spendWork(cameraSearchCost, cameras.size());
    for (qint32 index = 0; index < cameras.size(); ++index)
        if (cameras.at(index).camName == name) return index;
    return -1;
}

qint32 _camList::append(const _vxString8_allSize<150>& name) {
    keepMemory(static_cast<qint64>(sizeof(_camNode)) + bytesAroundHash);
    const qint32 index = static_cast<qint32>(cameras.size());
    cameras.append(_camNode());
    cameras[index].camName = name;
    try {
        byNameHash.emplace(hashOf(name), index);  // where the hash is known, the first camera keeps its place
    } catch (...) {
        cameras.removeLast();  // list and index stay the same
        throw;
    }
    return index;
}

qint32 _camList::findCamIndex(const _vxString8_allSize<150>& name) {
    const qint32 known = knownIndex(name);
    return known >= 0 ? known : append(_vxString8_allSize<150>());
}

qint32 _camList::indexOfCamera(const _vxString8_allSize<150>& name) {
    const qint32 known = knownIndex(name);
    return known >= 0 ? known : append(name);
}

qint32 _camList::findCamIndexByRenderNode(const QString& renderNode) const {
    return byDriver.of(renderNode);
}

void _camList::addCam(_camNode& node) {
    for (const QLatin1String mark : notACamera) {
        if (!node.camName.contains(vxS::viewOf(mark))) continue;
        tellOfSection(_remark::notACamera, mark);
        return;
    }
    keepCam(node);
}

void _camList::keepCam(const _camNode& node) {
    _camNode& stored = cameras[indexOfCamera(node.camName)];
    stored.resX = node.resX;
    stored.resY = node.resY;
    stored.isStereo = node.isStereo;
}

void _camList::addCamFromOutNode(_vxString8_allSize<150> name, const QString& renderNode) {
    name = QStringView{withoutNodeExpression(name.toQString())};
    const qint32 index = indexOfCamera(name);
    keepMemory(bytesOfListed(renderNode));
    byDriver.note(renderNode, index);
    cameras[index].renderNodes.append(renderNode);
}

qint32 loadCamNode(_dataPARS_LoadSceneFile* /*load*/, QTextStream& stream, QString& line) {
    return readCamNode({nodePathOf(line, objectRoots, _unendedPath::isEmpty)}, stream, line);
}

qint32 readCamNode(const _sectionNode& known, QTextStream& stream, QString& line) {
    _camNode node;
    node.camName = QStringView{known.path};
    node.isStereo = known.traits == nullptr ? node.camName.contains(stereoMark) : known.traits->isStereo;
    if (scanObserver != nullptr) tellReader(_sectionReader::camera, node.camName.toQString());
    return readSection(
        stream, line,
        [&](const QString& parameter) {
            if (isNamed(parameter, resolutionName)) readResolution(parameter, node);
            return _step::next;
        },
        [&] {
            if (known.traits == nullptr)
                camList.addCam(node);
            else
                camList.keepCam(node);
            return resultSuccess;
        });
}

}  // namespace vxP
