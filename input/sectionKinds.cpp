#include "input/sectionKinds.h"

#include <algorithm>
#include <array>

#include "catalogues/camList.h"
#include "catalogues/lopList.h"
#include "catalogues/usdRsList.h"
#include "catalogues/wedges.h"
#include "drivers/outNode.h"
#include "drivers/outNodeRules.h"
#include "input/sceneTexts.h"
#include "jobs/renderers.h"

namespace vxP {

namespace {

template <qint32 (*reader)(_dataPARS_LoadSceneFile*, QTextStream&, QString&)>
qint32 readBy(_dataPARS_LoadSceneFile& load, QTextStream& stream, QString& line, _sceneFacts& /*facts*/) {
    return reader(&load, stream, line);
}

template <qint32 (*reader)(const _sectionNode&, QTextStream&, QString&)>
qint32 readNodeBy(_dataPARS_LoadSceneFile& /*load*/, const _sectionNode& known, QTextStream& stream, QString& line,
                  _sceneFacts& /*facts*/) {
    return reader(known, stream, line);
}

qint32 readSettingsNode(_dataPARS_LoadSceneFile& load, const _sectionNode& known, QTextStream& stream, QString& line,
                        _sceneFacts& /*facts*/) {
    return read_USD_RS_Node(&load, known, stream, line);
}

qint32 readDriverNode(_dataPARS_LoadSceneFile& load, const _sectionNode& known, QTextStream& stream, QString& line,
                      _sceneFacts& facts) {
    return readOutNode(&load, known, stream, line, facts.activeTakeUsed, facts.majorVersion, facts.minorText);
}

qint32 readDriver(_dataPARS_LoadSceneFile& load, QTextStream& stream, QString& line, _sceneFacts& facts) {
    return loadOutNode(&load, stream, line, facts.activeTakeUsed, facts.majorVersion, facts.minorText);
}

constexpr std::string_view roots[] = {viewOf(outRoot), viewOf(objRoot)};
constexpr std::span<const std::string_view> outOrObj{roots};
constexpr auto out = outOrObj.first(1);
constexpr auto obj = outOrObj.last(1);
constexpr std::span<const std::string_view> anyOutput{};

constexpr _headerMark wedgeMarks[] = {{"wedge", out}, {"/wedge", obj}};
constexpr _headerMark cameraMarks[] = {{"/cam", outOrObj}, {"stereocam", outOrObj}};
constexpr _headerMark renderSettingsMarks[] = {{renderSettingsNode, anyOutput}};
constexpr _headerMark lopMarks[] = {{prmanNode, anyOutput}};
constexpr _headerMark driverMarks[] = {{{}, anyOutput}};

constexpr std::array kinds{
    // first match wins
    _sectionKind{_sectionReader::wedge, QLatin1String{"wedge"}, wedgeMarks, readBy<loadWedgeNode>,
                 readNodeBy<readWedgeNode>, wedgeParameters},
    _sectionKind{_sectionReader::camera, QLatin1String{"camera"}, cameraMarks, readBy<loadCamNode>,
                 readNodeBy<readCamNode>, cameraParameters},
    _sectionKind{_sectionReader::usdRenderSettings, QLatin1String{"usdRenderSettings"}, renderSettingsMarks,
                 readBy<load_USD_RS_Node>, readSettingsNode, usdRsParameters},
    _sectionKind{_sectionReader::lop, QLatin1String{"lop"}, lopMarks, readBy<loadLOPNode>, readNodeBy<readLOPNode>,
                 lopParameters},
    _sectionKind{_sectionReader::driver, QLatin1String{"driver"}, driverMarks, readDriver, readDriverNode,
                 outNodeParameters},
};

}  // namespace

std::span<const _sectionKind> sectionKinds() {
    return kinds;
}

const _sectionKind& sectionKindOf(_sectionReader reader) {
    return *std::find_if(kinds.begin(), kinds.end(), [reader](const auto& kind) { return kind.reader == reader; });
}

}  // namespace vxP
