#include "bench/plainReader.h"

#include "catalogues/camList.h"
#include "drivers/outNodeRules.h"
#include "grammar/imageOutVars.h"
#include "jobs/renderers.h"
#include "scan/scanState.h"

namespace vxBench {

namespace {

constexpr QLatin1String image{"vm_picture\t"};
constexpr QLatin1String camera{"camera\t"};

void replaceBoth(QString& text, const QString& name, const QString& value) {
    for (const QString& form : {QLatin1Char('$') + name, QLatin1String("${") + name + QLatin1Char('}')}) {
        text.replace(form + QLatin1String(":r"), value, Qt::CaseInsensitive);
        text.replace(form, value, Qt::CaseInsensitive);
    }
}

QString withVariables(QString text, const QString& driver) {
    replaceBoth(text, QStringLiteral("HIPNAME"), QStringLiteral("scene"));
    replaceBoth(text, QStringLiteral("HIP"), vxP::DatabaseDir);
    for (const auto& variable : vxP::hVariables.toList()) replaceBoth(text, variable.name, variable.value);
    replaceBoth(text, QStringLiteral("OS"), driver);
    return text;
}

qint32 addJob(vxP::_dataPARS_LoadSceneFile& load, const QString& path, const QString& name) {
    if (name.isEmpty()) return vxP::resultSuccess;
    vxJ::_JobBasics_largePath* job = nullptr;
    if (!load.jobArray->getNewJob(job)) return vxP::resultNoMoreJobs;
    job->app = vxP::appNameHoudini;
    job->sceneDatabaseDir = vxP::DatabaseDir;
    job->layer = path;
    job->sceneSettings.customDataSet_Str(vxJ::CUSTOMSubmitterPluginVersion, vxJ::vxVersion);
    job->imageFileName = withVariables(name, path.mid(path.lastIndexOf(QLatin1Char('/')) + 1));
    job->splitImageFileInto_DirFileExt(true);
    return vxP::resultSuccess;
}

}  // namespace

qint32 plainDriver(vxP::_dataPARS_LoadSceneFile& load, QTextStream& stream, QString& line) {
    const QString path = vxP::nodePathOf(line, std::array{QLatin1String{"out/"}}, vxP::_unendedPath::isWhole);
    QString name;
    bool takeUsed = false;
    bool noFrame = false;
    while (!stream.atEnd()) {
        line = stream.readLine().trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
        if (line.startsWith(QLatin1Char('}'))) return addJob(load, path, name);
        for (const QLatin1String parameter : vxP::outNodeParameters()) {
            if (!line.startsWith(parameter, Qt::CaseInsensitive)) continue;
            if (parameter == image) vxP::replaceImageOutVars(line, false, name, takeUsed, noFrame);
            if (parameter == camera)
                vxP::camList.addCamFromOutNode(vxP::_vxString8_allSize<150>(QStringView{vxP::unquoted(line)}), path);
            break;
        }
    }
    return vxP::resultSuccess;
}

}  // namespace vxBench
