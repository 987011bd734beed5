#include "jobs/jobVariables.h"

#include <array>

#include "shared/vxPath.h"

namespace vxJ {

namespace {

/// Names of the operating systems by their number in the record; other numbers have none.
constexpr std::array sceneOSNames{QLatin1String{""}, QLatin1String{"windows"}, QLatin1String{"linux"},
                                  QLatin1String{"macos"}};

template <quint16 Capacity>
QString valueText(const _vxString<Capacity>& text) {
    return text.toQString();
}

template <quint16 Capacity>
QString valueText(const _vxString8_allSize<Capacity>& text) {
    return text.toQString();
}

QString valueText(double frame) {
    return QString::number(frame, 'g', 15);
}

QString valueText(int number) {
    return QString::number(number);
}

QChar separatorOf(const QString& path) {
    return path.contains(QLatin1Char('/')) ? QLatin1Char('/') : QLatin1Char('\\');
}

QString folderOf(const QString& path) {
    return vxS::vxGetDirName(path, separatorOf(path));
}

QString baseNameOf(const QString& path) {
    return vxS::vxGetFileNameBase(path, separatorOf(path));
}

QString sceneOSName(quint8 number) {
    return number < sceneOSNames.size() ? QString(sceneOSNames[number]) : QString();
}

QString pnlText(quint8 character) {
    return QString(QChar(char16_t{character == 0 ? quint8{' '} : character}));
}

/// A variable of a job: its name, and where its value comes from.
template <class Job>
struct _jobVariable {
    QLatin1String name;
    QString (*value)(const Job& job);
};

#define VX_FIELD(name, field)                                                    \
    _jobVariable<Job> {                                                          \
        QLatin1String{name}, [](const Job& job) { return valueText(job.field); } \
    }
#define VX_VALUE(name, expression)                                     \
    _jobVariable<Job> {                                                \
        QLatin1String{name}, [](const Job& job) { return expression; } \
    }

template <class Job>
constexpr std::array variablesOf{
    VX_FIELD("sceneOS", sceneOS),
    VX_VALUE("sceneOSstr", sceneOSName(job.sceneOS)),
    VX_FIELD("AppVer", appVersionMajor),
    VX_FIELD("App", app),
    VX_FIELD("AppRenderer", appRenderer),
    VX_VALUE("AppType", job.appType.toQString().toLower()),
    VX_FIELD("AppRendererVersion", appRendererVersion),
    VX_FIELD("vxJobRendererVersion", appRendererVersion),
    VX_FIELD("AppVerMinor", appVersionMinor),
    VX_FIELD("Camera", camera),
    VX_FIELD("Layer", layer),
    VX_FIELD("Pass", layer),
    VX_FIELD("Channel", channel),
    VX_FIELD("AOVChannel", channel),
    VX_FIELD("AOV", channel),
    VX_FIELD("State", sceneState),
    VX_FIELD("SceneState", sceneState),
    VX_FIELD("ColorSpace", colorSpace),
    VX_FIELD("renderLicenses", requiredLicenses),
    VX_FIELD("requiredLicenses", requiredLicenses),
    VX_FIELD("ImageWidth", imageWidth),
    VX_FIELD("Width", imageWidth),
    VX_FIELD("ImageHeight", imageHeight),
    VX_FIELD("Height", imageHeight),
    VX_FIELD("ImageSingleOutputFile", imageSingleOutputFile),
    VX_FIELD("ImageFormatOverride", imageFormatOverride),
    VX_FIELD("OverrideImageFormat", imageFormatOverride),
    VX_FIELD("TotalTiles", imageMulti),
    VX_FIELD("ImageMulti", imageMulti),
    VX_FIELD("ImageStereoL", imageStereoL),
    VX_FIELD("ImageStereoM", imageStereoM),
    VX_FIELD("ImageStereoR", imageStereoR),
    VX_FIELD("ShotgunID", shotgunID),
    VX_FIELD("ShutgunID", shotgunID),  // hosts fill it into commands under this name too
    VX_VALUE("PNL", pnlText(job.pnl)),
    VX_FIELD("Padding", imagePadding),
    VX_VALUE("SceneFolder", folderOf(job.sceneName.toQString())),
    VX_VALUE("SceneFileNameBase", baseNameOf(job.sceneName.toQString())),
    VX_FIELD("<FN>", sceneName),
    VX_FIELD("Database", sceneDatabaseDir),
    VX_FIELD("SceneDatabaseDir", sceneDatabaseDir),
    VX_FIELD("DatabaseName", sceneDatabaseDir),
    VX_FIELD("ImageDir", imageDir),
    VX_FIELD("MainImageDir", imageDir),
    VX_FIELD("MainImageExtension", imageExtension),
    VX_FIELD("TotalStart", sceneSettings.seqStart),
    VX_FIELD("TotalSeqStart", sceneSettings.seqStart),
    VX_FIELD("TotalEnd", sceneSettings.seqEnd),
    VX_FIELD("TotalSeqEnd", sceneSettings.seqEnd),
    VX_FIELD("SeqFrameSet", sceneSettings.seqFrameSet),
    VX_FIELD("FrameSet", sceneSettings.seqFrameSet),
    VX_FIELD("TotalStep", sceneSettings.seqStep),
    VX_FIELD("TotalSeqStep", sceneSettings.seqStep),
    VX_VALUE("AdditionalCommandlineParam", job.sceneSettings.customData_Str(CUSTOMAdditionalCommandlineFlags)),
};

#undef VX_FIELD
#undef VX_VALUE

const vxS::_varValue* findVariable(const _varValList& variables, QStringView name) {
    for (const vxS::_varValue& variable : variables)
        if (name == variable.name) return &variable;
    return nullptr;
}

}  // namespace

template <class Job>
_varValList jobVariables(const Job& job) {
    _varValList list;
    for (const auto& variable : variablesOf<Job>) list.append({QString(variable.name), variable.value(job)});
    return list;
}

template _varValList jobVariables(const _JobBasics&);
template _varValList jobVariables(const _JobBasics_largePath&);

QString withSquareBracketVariables(const QString& text, const _varValList& variables) {
    QString result;
    _size done = 0;
    for (_size open = text.indexOf(u'['); open >= 0; open = text.indexOf(u'[', open + 1)) {
        const _size close = text.indexOf(u']', open);
        if (close < 0) break;
        const auto* const variable = findVariable(variables, QStringView(text).mid(open + 1, close - open - 1));
        if (variable == nullptr) continue;
        result += text.mid(done, open - done) + variable->value;
        done = close + 1;
        open = close;
    }
    return result + text.mid(done);
}

void _JobBasics::exportJobVarList_Basic(_varValList& list) const {
    list = jobVariables(*this);
}

void _JobBasics_largePath::replaceSquareBracketVariables() {
    const auto isWanted = [](const _vxString<1000>& text) { return text.contains(u"[") && text.contains(u"]"); };
    const _varValList variables = jobVariables(*this);
    const auto replaceIn = [&](_vxString<1000>& text) {
        if (isWanted(text)) text = QStringView(withSquareBracketVariables(text.toQString(), variables));
    };
    replaceIn(imageFileName);
    replaceIn(imageDir);
    for (_channelSlot& slot : channels) replaceIn(slot.fileName);
}

QString _JobBasics::getSceneDisplayName() const {
    return baseNameOf(sceneName.toQString());
}

}  // namespace vxJ
