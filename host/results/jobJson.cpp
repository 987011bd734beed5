// The fields in record order, each with the way it is read.
#include "host/results/jobJson.h"

#include <QJsonArray>
#include <algorithm>

namespace vxH {
namespace {

using _job = vxJ::_JobBasics_largePath;

struct _jobField {
    QLatin1String name;
    QJsonValue (*read)(const _job&);
};

template <auto Field>
QJsonValue text(const _job& job) {
    return (job.*Field).toQString();
}

template <auto Field>
QJsonValue number(const _job& job) {
    return static_cast<int>(job.*Field);
}

template <auto Field>
QJsonValue truth(const _job& job) {
    return job.*Field;
}

template <auto Field>
QJsonValue sceneText(const _job& job) {
    return (job.sceneSettings.*Field).toQString();
}

template <auto Field>
QJsonValue sceneNumber(const _job& job) {
    return static_cast<double>(job.sceneSettings.*Field);
}

QJsonValue structureIDs(const _job& job) {
    QJsonArray words;
    for (const quint16 word : job.structureIDs) words.append(word);
    return words;
}

QJsonValue waitForPreIDs(const _job& job) {
    QJsonArray numbers;
    const int used = std::min<int>(job.waitForPreIDCount, vxJ::waitForPreIDCapacity);
    for (int i = 0; i < used; ++i) numbers.append(job.waitForPreIDs[i]);
    return numbers;
}

QJsonValue jobID(const _job& job) {
    return QString::number(job.jobID);
}

QJsonValue channels(const _job& job) {
    QJsonArray used;
    for (int slot = 0; slot < vxJ::channelCapacity; ++slot) {
        const auto& channel = job.channels[slot];
        if (channel.fileName.isEmpty()) continue;
        used.append(QJsonObject{{QLatin1String{"slot"}, slot},
                                {QLatin1String{"name"}, channel.fileName.toQString()},
                                {QLatin1String{"extension"}, channel.extension.toQString()}});
    }
    return used;
}

QJsonValue customData(const _job& job) {
    vxJ::_varValList list;
    job.sceneSettings.customData_All(list);
    QJsonArray entries;
    for (const auto& entry : list) {
        entries.append(QJsonObject{{QLatin1String{"name"}, entry.name}, {QLatin1String{"value"}, entry.value}});
    }
    return entries;
}

constexpr _jobField jobFields[] = {
    {QLatin1String{"structureIDs"}, structureIDs},
    {QLatin1String{"jobKind"}, number<&_job::jobKind>},
    {QLatin1String{"sceneOS"}, number<&_job::sceneOS>},
    {QLatin1String{"appVersionMajor"}, number<&_job::appVersionMajor>},
    {QLatin1String{"app"}, text<&_job::app>},
    {QLatin1String{"appRenderer"}, text<&_job::appRenderer>},
    {QLatin1String{"appType"}, text<&_job::appType>},
    {QLatin1String{"appRendererVersion"}, text<&_job::appRendererVersion>},
    {QLatin1String{"appVersionMinor"}, text<&_job::appVersionMinor>},
    {QLatin1String{"camera"}, text<&_job::camera>},
    {QLatin1String{"layer"}, text<&_job::layer>},
    {QLatin1String{"channel"}, text<&_job::channel>},
    {QLatin1String{"sceneState"}, text<&_job::sceneState>},
    {QLatin1String{"colorSpace"}, text<&_job::colorSpace>},
    {QLatin1String{"requiredLicenses"}, text<&_job::requiredLicenses>},
    {QLatin1String{"imageWidth"}, number<&_job::imageWidth>},
    {QLatin1String{"imageHeight"}, number<&_job::imageHeight>},
    {QLatin1String{"imageSingleOutputFile"}, truth<&_job::imageSingleOutputFile>},
    {QLatin1String{"imageFormatOverride"}, text<&_job::imageFormatOverride>},
    {QLatin1String{"imageMulti"}, number<&_job::imageMulti>},
    {QLatin1String{"imageStereoL"}, text<&_job::imageStereoL>},
    {QLatin1String{"imageStereoM"}, text<&_job::imageStereoM>},
    {QLatin1String{"imageStereoR"}, text<&_job::imageStereoR>},
    {QLatin1String{"shotgunID"}, text<&_job::shotgunID>},
    {QLatin1String{"pnl"}, number<&_job::pnl>},
    {QLatin1String{"imagePadding"}, number<&_job::imagePadding>},
    {QLatin1String{"preID"}, number<&_job::preID>},
    {QLatin1String{"waitForPreIDs"}, waitForPreIDs},
    {QLatin1String{"jobID"}, jobID},
    {QLatin1String{"sceneName"}, text<&_job::sceneName>},
    {QLatin1String{"sceneDatabaseDir"}, text<&_job::sceneDatabaseDir>},
    {QLatin1String{"imageDir"}, text<&_job::imageDir>},
    {QLatin1String{"imageFileName"}, text<&_job::imageFileName>},
    {QLatin1String{"imageExtension"}, text<&_job::imageExtension>},
    {QLatin1String{"channels"}, channels},
    {QLatin1String{"seqStart"}, sceneNumber<&vxJ::_JobSettingsScene::seqStart>},
    {QLatin1String{"seqEnd"}, sceneNumber<&vxJ::_JobSettingsScene::seqEnd>},
    {QLatin1String{"seqFrameSet"}, sceneText<&vxJ::_JobSettingsScene::seqFrameSet>},
    {QLatin1String{"seqStep"}, sceneNumber<&vxJ::_JobSettingsScene::seqStep>},
    {QLatin1String{"customData"}, customData},
};

}  // namespace

QJsonObject jobToJson(const _job& job) {
    QJsonObject object;
    for (const auto& field : jobFields) object.insert(field.name, field.read(job));
    return object;
}

}  // namespace vxH
