#include "host/engines/jobTexts.h"

#include <algorithm>
#include <array>

#include "host/results/jobCells.h"
#include "jobs/VX_DataTypes_jobs_defines.h"
#include "jobs/jobVariables.h"

namespace vxH {
namespace {

constexpr QLatin1String variantName{"Variant"};
constexpr QLatin1String channelMark{"<Channel>"};

/// In front of an extension; without the number for a job that writes one file.
QString frameMarkOf(const _job& job) {
    return job.imageSingleOutputFile ? QString{} : QStringLiteral("<FN%1>").arg(job.imagePadding);
}

QString withTake(QString path, const _job& job) {
    return job.channel.isEmpty() ? path : path.replace(channelMark, job.channel);
}

QString sceneFileOf(const _job& job, const QString& scene) {
    return withTake(writtenOut(job.sceneName, job, scene), job);
}

QString outputOf(const _job& job, const QString& scene) {
    const QString folder = writtenOut(job.imageDir, job, scene);
    return withTake(folder + job.imageFileName + frameMarkOf(job) + job.imageExtension, job);
}

struct _textRow {
    QLatin1String name;
    QString (*text)(const _job& job, const QString& scene);
};
constexpr std::array texts{
    _textRow{QLatin1String{"Driver"}, [](const _job& job, const QString&) { return job.layer; }},
    _textRow{QLatin1String{"Take"}, [](const _job& job, const QString&) { return job.channel; }},
    _textRow{QLatin1String{"Wedge"}, [](const _job& job, const QString&) { return job.customText(vxJ::CUSTOMWedge); }},
    _textRow{QLatin1String{"SceneFile"}, sceneFileOf},
    _textRow{QLatin1String{"Output"}, outputOf},
};

const _textRow* rowOf(const QString& name) {
    const auto* const found =
        std::find_if(texts.begin(), texts.end(), [&](const auto& row) { return row.name == name; });
    return found == texts.end() ? nullptr : found;
}

const vxS::_varValue* variableIn(const vxJ::_varValList& list, const QString& name) {
    const auto found = std::find_if(list.begin(), list.end(), [&](const auto& one) { return one.name == name; });
    return found == list.end() ? nullptr : &*found;
}

}  // namespace

bool isJobText(const QString& name) {
    static const auto variables = vxJ::jobVariables(vxJ::_JobBasics{});
    return name == variantName || rowOf(name) != nullptr || variableIn(variables, name) != nullptr;
}

_jobTexts::_jobTexts(const _job& jobOfTexts, const QString& scenePath, std::optional<int> variantOfJob,
                     const vxJ::_JobBasics_largePath& jobsRecord)
    : job(jobOfTexts), scene(scenePath), variant(variantOfJob), record(jobsRecord) {
}

QString _jobTexts::of(const QString& name) const {
    if (const auto* const row = rowOf(name); row != nullptr) return row->text(job, scene);
    if (name == variantName) return variant ? QString::number(*variant) : QString{};
    if (variables.isEmpty()) variables = vxJ::jobVariables(record);
    const auto* const variable = variableIn(variables, name);
    return variable == nullptr ? QString{} : variable->value;
}

}  // namespace vxH
