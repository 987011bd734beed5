#include "plugin/sceneLine.h"

#include <array>

#include "readers/paramSection.h"

namespace vxP {

namespace {

constexpr QLatin1String frameRangeCommand{"frange"};
constexpr QLatin1String saveVersionName{"_HIP_SAVEVERSION"};
constexpr QLatin1String variableCommand{"set -g "};
constexpr QLatin1String assignment{" = "};
constexpr QLatin1String archiveMagic{"Hou"};  ///< the header of an archive entry stands on its first line
constexpr QLatin1String takeCommand{"take name"};

constexpr QLatin1String outRoot{"out/"};
constexpr QLatin1String objRoot{"obj/"};
constexpr std::array markedRoots{objRoot, QLatin1String{"img/"}, QLatin1String{"stage/"}};

/// A node outside out/ is taken for an output driver by a part of its path.
struct _nodeTypeMark {
    QLatin1String part;
    QLatin1String unless;  ///< a part that rules it out; empty: none
};

constexpr std::array nodeTypeMarks{
    _nodeTypeMark{QLatin1String{"/mantra"}, {}},
    _nodeTypeMark{QLatin1String{"/arnold"}, {}},
    _nodeTypeMark{QLatin1String{"/Redshift_"}, {}},
    _nodeTypeMark{QLatin1String{"/rs_"}, {}},
    _nodeTypeMark{QLatin1String{"/opengl"}, {}},
    _nodeTypeMark{QLatin1String{"/geometry"}, {}},
    _nodeTypeMark{QLatin1String{"/geo"}, {}},
    _nodeTypeMark{QLatin1String{"_geo_"}, {}},
    _nodeTypeMark{QLatin1String{"/comp"}, {}},
    _nodeTypeMark{QLatin1String{"/rop_comp"}, {}},
    _nodeTypeMark{QLatin1String{"/alembic"}, QLatin1String{"/alembicarchive"}},
    _nodeTypeMark{QLatin1String{"/vray"}, {}},
    _nodeTypeMark{QLatin1String{"/usd_rop"}, {}},
    _nodeTypeMark{QLatin1String{"/usdrender_"}, {}},
    _nodeTypeMark{QLatin1String{"/ris"}, {}},
    _nodeTypeMark{QLatin1String{"/filecache"}, {}},
    _nodeTypeMark{QLatin1String{"/hdprman"}, {}},
    _nodeTypeMark{QLatin1String{"/karma"}, QLatin1String{"renderproper"}},
    _nodeTypeMark{QLatin1String{"/rendersettings"}, {}},
};

bool has(const QString& line, QLatin1String part) {
    return line.contains(part);
}

bool hasInAnyCase(const QString& line, QLatin1String part) {
    return line.contains(part, Qt::CaseInsensitive);
}

/// The command, not a parameter of that name: parameters hold a flags group behind a TAB.
bool isFrameRange(const QString& line) {
    const _size end = frameRangeCommand.size();
    return isNamed(line, frameRangeCommand) && line.size() > end && line.at(end).isSpace() &&
           !line.mid(end).startsWith(QLatin1String("\t["));
}

bool isVariable(const QString& line) {
    return hasInAnyCase(line, variableCommand) && has(line, assignment) &&
           (isNamed(line, variableCommand) || isNamed(line, archiveMagic));
}

bool hasNodeTypeMark(const QString& line) {
    for (const auto& mark : nodeTypeMarks)
        if (hasInAnyCase(line, mark.part) && (mark.unless.isEmpty() || !hasInAnyCase(line, mark.unless))) return true;
    return false;
}

bool isOutput(const QString& line) {
    if (has(line, outRoot)) return true;
    for (const QLatin1String root : markedRoots)
        if (hasInAnyCase(line, root)) return hasNodeTypeMark(line);
    return false;
}

bool isWedge(const QString& line) {
    return has(line, QLatin1String("wedge")) &&
           (has(line, outRoot) || (has(line, objRoot) && has(line, QLatin1String("/wedge"))));
}

bool isCamera(const QString& line) {
    return (has(line, QLatin1String("/cam")) || has(line, QLatin1String("stereocam"))) &&
           (has(line, outRoot) || has(line, objRoot));
}

_lineKind outputKind(const QString& line) {
    if (has(line, QLatin1String("/rendersettings"))) return _lineKind::usdRenderSettings;
    if (has(line, QLatin1String("/hdprman"))) return _lineKind::lop;
    return _lineKind::outNode;
}

_lineKind sectionKind(const QString& header) {
    if (isWedge(header)) return _lineKind::wedge;
    if (isCamera(header)) return _lineKind::camera;
    return isOutput(header) ? outputKind(header) : _lineKind::other;
}

bool isSectionHeader(const QString& line) {
    return line.endsWith(QLatin1Char('{')) && has(line, QLatin1String(".parm"));
}

}  // namespace

_sceneLine classifyLine(const QString& line) {
    _sceneLine result;
    if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) return result;
    result.isFrameRange = isFrameRange(line);
    if (hasInAnyCase(line, saveVersionName)) {
        result.kind = _lineKind::saveVersion;
        return result;
    }
    result.isVariable = isVariable(line);
    if (line.startsWith(takeCommand))
        result.kind = _lineKind::take;
    else if (isSectionHeader(line))
        result.kind = sectionKind(line);
    return result;
}

}  // namespace vxP
