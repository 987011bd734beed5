#include "catalogues/usdRsList.h"

#include <array>

#include "grammar/houdiniVariables.h"
#include "grammar/imageOutVars.h"
#include "grammar/paramRules.h"
#include "grammar/paramSection.h"
#include "jobs/renderers.h"
#include "scan/scanObserver.h"

namespace vxP {

namespace {

// ---- one handler a parameter

QString valueOf(const QString& line) {
    return withoutChannelReference(unquoted(line), parameterName(line));
}

void readCamera(_USD_RendersettingNode& node, const QString& line) {
    const QString camera = valueOf(line);
    if (!hasExpression(camera)) node.cameraName = camera;
}

/// Both control parameters share one flag, and the later line counts; no job depends on it.
void readControl(_USD_RendersettingNode& node, const QString& line) {
    node.archiveControlSet = valueOf(line).contains(QLatin1String("set"));
}

void readEnable(_USD_RendersettingNode& node, const QString& line) {
    node.archiveEnabled = valueOf(line).contains(QLatin1String("on"));
}

void readFileName(_USD_RendersettingNode& node, const QString& line) {
    bool noFrameVariable = false;
    replaceImageOutVars(line, false, node.imageName, node.imageUsesTake, noFrameVariable);
}

struct _settingsRule {
    QLatin1String name;  ///< line prefix, letter case ignored; TAB ends a whole name
    void (*handle)(_USD_RendersettingNode&, const QString& line);
};

constexpr std::array settingsRules{
    // first match wins: a name comes before those that it begins with
    _settingsRule{QLatin1String{"camera\t"}, readCamera},
    _settingsRule{QLatin1String{"xn__redshiftglobalRS_archive_enable_control"}, readControl},
    _settingsRule{QLatin1String{"xn__redshiftglobalRS_archive_enable"}, readEnable},
    _settingsRule{QLatin1String{"xn__redshiftglobalRS_archive_fileName_control"}, readControl},
    _settingsRule{QLatin1String{"xn__redshiftglobalRS_archive_fileName"}, readFileName},
};

constexpr auto settingsNames = ruleNames(settingsRules);

void applySettingsRules(_USD_RendersettingNode& node, const QString& line) {
    for (const auto& rule : settingsRules)
        if (isNamed(line, rule.name)) return rule.handle(node, line);
}

// ---- the jobs of the settings' driver

/// The node's own name; the whole path when its only "/" is the first character.
QString objectName(const QString& path) {
    const _size slash = path.lastIndexOf(QLatin1Char('/'));
    return slash > 0 ? path.mid(slash + 1) : path;
}

void writeArchiveInstead(const _USD_RendersettingNode& node, const _vxString<500>& sceneFile,
                         vxJ::_JobBasics_largePath& job) {
    job.imageFileName = node.imageName;
    job.imageDir.clear();
    job.imageExtension.clear();
    const QString object = objectName(node.lopName);
    for (const QStringView variable : {QStringView(u"$OS"), QStringView(u"${OS}")})
        job.imageFileName.replaceCaseSen(variable, object);
    job.imageFileName = replaceHoudiniVariables(job.imageFileName.toQString(), &job, hVariables, sceneFile);
    job.splitImageFileInto_DirFileExt(true);
}

qint32 updateJobs(const _USD_RendersettingNode& node, const QString& driver, _dataPARS_LoadSceneFile& load) {
    for (qint32 i = 0; i < load.jobArray->count; ++i) {
        vxJ::_JobBasics_largePath* const job = load.jobArray->at(i);
        if (job == nullptr) return resultNoMoreJobs;
        if (job->app == appNameHoudini && job->layer == QStringView(driver))
            writeArchiveInstead(node, *load.sceneFileName, *job);
    }
    return resultSuccess;
}

/// No reader attaches drivers to settings, so this changes no job: hosts match jobs by their output, which stays the
/// driver's own.
qint32 closeSection(_USD_RendersettingNode& node, _dataPARS_LoadSceneFile& load) {
    const qint32 index = USD_RSList.add(node);
    const QStringList drivers = USD_RSList.entries().at(index).renderNodes;
    return drivers.isEmpty() ? qint32{resultSuccess} : updateJobs(node, drivers.first(), load);
}

}  // namespace

_USD_RSList USD_RSList;

std::span<const QLatin1String> usdRsParameters() {
    return settingsNames;
}

qint32 _USD_RSList::findIndex(const QString& name, const bool& create) {
    return settings.find(name, create);
}

qint32 _USD_RSList::findIndexByROP(const QString& renderNode) const {
    return settings.findByDriver(renderNode);
}

qint32 _USD_RSList::addFromROP(QString name, const QString& renderNode) {
    const qint32 index = findIndex(withoutNodeExpression(name), true);
    settings.attach(index, renderNode);
    return index;
}

qint32 _USD_RSList::add(_USD_RendersettingNode& node) {
    const qint32 index = findIndex(node.lopName, true);
    _USD_RendersettingNode& stored = settings[index];
    keepMemory(bytesOf(node.cameraName) + bytesOf(node.imageName) - bytesOf(stored.cameraName) -
               bytesOf(stored.imageName));
    stored.lopName = node.lopName;
    stored.cameraName = node.cameraName;
    stored.archiveEnabled = node.archiveEnabled;
    stored.imageName = node.imageName;
    return index;
}

qint32 load_USD_RS_Node(_dataPARS_LoadSceneFile* load, QTextStream& stream, QString& line) {
    return read_USD_RS_Node(load, {nodePathOf(line, outputRoots, _unendedPath::isEmpty)}, stream, line);
}

qint32 read_USD_RS_Node(_dataPARS_LoadSceneFile* load, const _sectionNode& known, QTextStream& stream, QString& line) {
    _USD_RendersettingNode node;
    node.lopName = known.path;
    tellReader(_sectionReader::usdRenderSettings, node.lopName);
    return readSection(
        stream, line,
        [&](const QString& parameter) {
            applySettingsRules(node, parameter);
            return _step::next;
        },
        [&] { return closeSection(node, *load); });
}

}  // namespace vxP
