// A plug-in whose behaviour is chosen by the scene's file name. It reads no file.
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <stdexcept>

#include "jobs/VX_DataTypes_plugin.h"
#include "shared/vxExport.h"
#include "shared/vxPath.h"

namespace {

using _load = vxP::_dataPARS_LoadSceneFile;

int loadsSoFar = 0;  // module state, as the real plug-in has

vxJ::_JobBasics_largePath& addJob(const _load& load) {
    vxJ::_JobBasics_largePath* job = nullptr;
    if (!load.jobArray->getNewJob(job)) throw std::bad_alloc{};
    job->preID = static_cast<quint8>(load.jobArray->count);
    job->layer = u"out/mantra1";
    job->app = u"Houdini";
    job->appVersionMajor = 19;
    job->appVersionMinor = std::string_view{"5.640"};
    return *job;
}

void setFrames(vxJ::_JobBasics_largePath& job, double first, double last, quint16 step) {
    job.sceneSettings.seqStart = first;
    job.sceneSettings.seqEnd = last;
    job.sceneSettings.seqStep = step;
}

void setOutput(vxJ::_JobBasics_largePath& job, QStringView folder, QStringView file, QStringView extension) {
    job.imageDir = folder;
    job.imageFileName = file;
    job.imageExtension = extension;
}

void fillManyFields(vxJ::_JobBasics_largePath& job) {
    job.appRenderer = u"renderer";
    job.camera = u"camera";
    job.channel = u"channel";
    job.imageWidth = 65535;
    job.imageHeight = 2;
    job.imageMulti = -5;
    job.addWaitForPreID(1);
    job.addWaitForPreID(200);
    job.jobID = std::numeric_limits<quint64>::max();
    job.sceneDatabaseDir = u"/db";
    setOutput(job, u"<Database>/img/", u"name.", u".exr");
    job.channels[3].fileName = u"/img/depth.";
    job.channels[3].extension = u".tif";
    setFrames(job, -1.5, 2, 3);
    job.sceneSettings.seqFrameSet = std::string_view{"1,5,7"};
    job.sceneSettings.customDataSet_Str(QStringLiteral("HoudiniJob"), QStringLiteral("/job"));
}

qint32 exportPair(const _load& load) {
    load.jobArray->message = u" \"AllowLocalSceneCopy=0~0\"";
    auto& exporting = addJob(load);
    exporting.appRenderer = u"createIFD";
    setFrames(exporting, 1001, 1100, 2);
    setOutput(exporting, u"<SceneFolder>../ifd/", u"shot.", u".ifd");
    fillManyFields(addJob(load));
    return vxP::resultSuccess;
}

/// Escape sequences, line ends, a NUL, text direction, halves of surrogate pairs, wide characters.
qint32 hostileTexts(const _load& load) {
    auto& job = addJob(load);
    job.layer = QStringView{
        u"out/\x1b[31mred\x9b"
        u"1m\r\n\t\0end\x202e",
        23};
    constexpr char16_t halves[] = {u'c', 0xD800, u'a', 0xDC00, u'm', 0xDBFF};
    job.camera = QStringView{halves, 6};
    job.channel = u"夜景夜景";
    setFrames(job, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1);
    return vxP::resultSuccess;
}

qint32 jobThenNoMore(const _load& load) {
    addJob(load);
    ++load.jobArray->count;  // as after an allocation that failed
    return vxP::resultNoMoreJobs;
}

/// What the plug-in was handed, and how many loads this process has seen; prints a line of its own as well.
qint32 tellLoad(const _load& load) {
    std::printf("printed by the plug-in\n");
    QString told = QString::number(++loadsSoFar) + QLatin1Char('|') + load.sceneFileName->toQString();
    for (int i = 1; i < load.settings->argumentCount; ++i)
        told += QLatin1Char('|') + QString::fromUtf8(load.settings->arguments[i]);
    load.jobArray->message = told;
    return vxP::resultSuccess;
}

qint32 dieBySignal(const _load&) {
    std::signal(SIGSEGV, SIG_DFL);  // a sanitizer handles it otherwise
    std::raise(SIGSEGV);
    return vxP::resultSuccess;
}

/// More than a pipe takes.
qint32 manyJobs(const _load& load) {
    for (int i = 0; i < 100; ++i) fillManyFields(addJob(load));
    return vxP::resultSuccess;
}

qint32 hang(const _load&) {
    for (;;) pause();
}

struct _behaviour {
    QLatin1String sceneName;
    qint32 (*load)(const _load&);
};

constexpr _behaviour behaviours[] = {
    {QLatin1String{"noJobs"}, [](const _load&) -> qint32 { return vxP::resultSuccess; }},
    {QLatin1String{"exportPair"}, exportPair},
    {QLatin1String{"hostileTexts"}, hostileTexts},
    {QLatin1String{"tellLoad"}, tellLoad},
    {QLatin1String{"cannotOpen"}, [](const _load&) -> qint32 { return vxP::resultCannotOpen; }},
    {QLatin1String{"noUsableOutput"}, [](const _load&) -> qint32 { return vxP::resultNoUsableOutput; }},
    {QLatin1String{"jobThenNoMore"}, jobThenNoMore},
    {QLatin1String{"manyJobs"}, manyJobs},
    {QLatin1String{"hangs"}, hang},
    {QLatin1String{"strangeCode"}, [](const _load&) -> qint32 { return 42; }},
    {QLatin1String{"segmentationFault"}, dieBySignal},
    {QLatin1String{"aborts"}, [](const _load&) -> qint32 { std::abort(); }},
    {QLatin1String{"exits"}, [](const _load&) -> qint32 { std::exit(0); }},
    {QLatin1String{"throws"}, [](const _load&) -> qint32 { throw std::runtime_error{"thrown"}; }},
};

}  // namespace

extern "C" VX_EXPORT quint8 pInfo(vxP::_dataPARS_PluginInfo* info);
extern "C" VX_EXPORT qint32 pLoadSceneFile(_load* load);

quint8 pInfo(vxP::_dataPARS_PluginInfo* info) {
    const bool versionsMatch = info->structureVersion == vxP::pluginStructureVersion;
    info->appName = u"Fake\x1b[1m";
    info->fileFilter = u"*.fake;";
    return versionsMatch ? 1 : 5;
}

qint32 pLoadSceneFile(_load* load) {
    const auto name = vxS::vxGetFileNameBase(load->sceneFileName->toQString(), QLatin1Char('/'));
    for (const auto& behaviour : behaviours) {
        if (name == behaviour.sceneName) return behaviour.load(*load);
    }
    return vxP::resultCannotOpen;
}
