#include "bench/plainScan.h"

#include <QFile>
#include <QTextStream>
#include <array>

#include "bench/plainReader.h"
#include "catalogues/camList.h"
#include "plugin/sceneScan.h"
#include "scan/scanState.h"

namespace vxBench {

namespace {

constexpr std::array markedRoots{QLatin1String{"obj/"}, QLatin1String{"img/"}, QLatin1String{"stage/"}};
constexpr std::array typeMarks{
    QLatin1String{"/mantra"},        QLatin1String{"/arnold"},     QLatin1String{"/Redshift_"},
    QLatin1String{"/rs_"},           QLatin1String{"/opengl"},     QLatin1String{"/geometry"},
    QLatin1String{"/geo"},           QLatin1String{"_geo_"},       QLatin1String{"/comp"},
    QLatin1String{"/rop_comp"},      QLatin1String{"/alembic"},    QLatin1String{"/vray"},
    QLatin1String{"/usd_rop"},       QLatin1String{"/usdrender_"}, QLatin1String{"/ris"},
    QLatin1String{"/filecache"},     QLatin1String{"/hdprman"},    QLatin1String{"/karma"},
    QLatin1String{"/rendersettings"}};

bool hasAny(const QString& line, const auto& parts) {
    for (const QLatin1String part : parts)
        if (line.contains(part, Qt::CaseInsensitive)) return true;
    return false;
}

bool isHeader(const QString& line) {
    return line.endsWith(QLatin1Char('{')) && line.contains(QLatin1String(".parm"));
}

bool isDriver(const QString& line) {
    return line.contains(QLatin1String("out/")) || (hasAny(line, markedRoots) && hasAny(line, typeMarks));
}

void keepVariable(const QString& line) {
    const auto equals = line.indexOf(QLatin1String(" = "));
    vxP::hVariables.append(line.mid(7, equals - 7), line.mid(equals + 4).chopped(1));
}

}  // namespace

qint64 plainScan(vxP::_dataPARS_LoadSceneFile& load, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return -1;
    QTextStream stream(&file);
    vxP::importSceneFolder(*load.sceneFileName);
    qint64 lines = 0;
    while (!stream.atEnd()) {
        QString line = stream.readLine().trimmed();
        ++lines;
        if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
        if (line.startsWith(QLatin1String("frange"), Qt::CaseInsensitive)) continue;
        if (line.contains(QLatin1String("_HIP_SAVEVERSION"), Qt::CaseInsensitive)) continue;
        if (line.contains(QLatin1String("set -g "), Qt::CaseInsensitive) && line.contains(QLatin1String(" = "))) {
            keepVariable(line);
        } else if (line.startsWith(QLatin1String("take name"))) {
            continue;
        } else if (isHeader(line) && line.contains(QLatin1String("/cam"))) {
            vxP::loadCamNode(&load, stream, line);
        } else if (isHeader(line) && isDriver(line)) {
            plainDriver(load, stream, line);
        }
    }
    return lines;
}

}  // namespace vxBench
