#include "input/sectionKinds.h"

#include <algorithm>
#include <array>

#include "catalogues/camList.h"
#include "catalogues/lopList.h"
#include "catalogues/usdRsList.h"
#include "catalogues/wedges.h"
#include "drivers/outNode.h"
#include "drivers/outNodeRules.h"

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

constexpr _partSet out = part(outRoot);
constexpr _partSet obj = part(objRoot);
constexpr _partSet anyOutput = 0;

constexpr _headerMark wedgeMarks[] = {{part("wedge"), out}, {part("/wedge"), obj}};
constexpr _headerMark cameraMarks[] = {{part("/cam"), out | obj}, {part("stereocam"), out | obj}};
constexpr _headerMark renderSettingsMarks[] = {{part(renderSettingsNode), anyOutput}};
constexpr _headerMark lopMarks[] = {{part(prmanNode), anyOutput}};
constexpr _headerMark driverMarks[] = {{0, anyOutput}};

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
