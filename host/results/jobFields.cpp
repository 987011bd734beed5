#include "host/results/jobFields.h"

#include <algorithm>
#include <cmath>
#include <type_traits>
#include <utility>

#include "host/results/jobCells.h"
#include "host/results/jsonValues.h"

namespace vxH {
namespace {

using _record = vxJ::_JobBasics_largePath;

// Beside the fields.
constexpr QLatin1String waitsForKey{"waitsFor"};
constexpr QLatin1String framesKey{"frames"};
constexpr QLatin1String outputKey{"output"};
constexpr std::size_t mostBeside = 4;  // `resolved` is the last

template <class _value>
bool areEqual(const _value& left, const _value& right) {
    return left == right;
}
/// Frames that are no finite numbers are alike, as they are in JSON.
bool areEqual(double left, double right) {
    return left == right || (!std::isfinite(left) && !std::isfinite(right));
}

// ---- from the record

const vxJ::_JobSettingsScene& partOf(const _record& record, const vxJ::_JobSettingsScene*) {
    return record.sceneSettings;
}
template <class _part>
const _part& partOf(const _record& record, const _part*) {
    return record;
}

template <class _value, class _stored>
_value valueOf(const _stored& stored) {
    if constexpr (std::is_same_v<_value, QString>) {
        return stored.toQString();
    } else {
        return static_cast<_value>(stored);
    }
}

template <class _part, class _stored, class _value>
void copyMember(const _recordSource& source, _stored _part::*member, _value& value) {
    value = valueOf<_value>(partOf(source.record, static_cast<const _part*>(nullptr)).*member);
}

void copyStructureIDs(const _recordSource& source, _job& job) {
    job.structureIDs.assign(std::begin(source.record.structureIDs), std::end(source.record.structureIDs));
}

void copyWaitForPreIDs(const _recordSource& source, _job& job) {
    const auto& record = source.record;
    const int used = std::min<int>(record.waitForPreIDCount, vxJ::waitForPreIDCapacity);
    job.waitForPreIDs.assign(record.waitForPreIDs, record.waitForPreIDs + used);
}

void copyChannels(const _recordSource& source, _job& job) {
    const int end = vxJ::channelsEnd(source.record, source.pages);
    for (int slot = 0; slot < end; ++slot) {
        const auto& channel = source.record.channels[slot];
        if (channel.fileName.isEmpty()) continue;
        job.channels.push_back({slot, channel.fileName.toQString(), channel.extension.toQString()});
    }
}

void copyCustomData(const _recordSource& source, _job& job) {
    vxJ::_varValList list;
    source.record.sceneSettings.customData_All(list);
    for (const auto& entry : list) job.customData.push_back({entry.name, entry.value});
}

// ---- the list

using _copy = void (*)(const _recordSource&, _job&);

/// A field that a function of its own copies.
template <auto Member>
constexpr _jobField row(const char* name, _copy copy) {
    return {QLatin1String{name}, copy, [](const _job& job) { return jsonOf(job.*Member); },
            [](const QJsonValue& value, _job& job) { readJson(value, job.*Member); },
            [](const _job& left, const _job& right) { return areEqual(left.*Member, right.*Member); }};
}

/// A field that is a member of the record.
template <auto Member, auto Stored>
constexpr _jobField row(const char* name) {
    return row<Member>(name, [](const _recordSource& source, _job& job) { copyMember(source, Stored, job.*Member); });
}

using _settings = vxJ::_JobSettingsScene;

constexpr _jobField fields[] = {
    row<&_job::app, &_record::app>("app"),
    row<&_job::appRenderer, &_record::appRenderer>("appRenderer"),
    row<&_job::appRendererVersion, &_record::appRendererVersion>("appRendererVersion"),
    row<&_job::appType, &_record::appType>("appType"),
    row<&_job::appVersionMajor, &_record::appVersionMajor>("appVersionMajor"),
    row<&_job::appVersionMinor, &_record::appVersionMinor>("appVersionMinor"),
    row<&_job::camera, &_record::camera>("camera"),
    row<&_job::channel, &_record::channel>("channel"),
    row<&_job::channels>("channels", copyChannels),
    row<&_job::colorSpace, &_record::colorSpace>("colorSpace"),
    row<&_job::customData>("customData", copyCustomData),
    row<&_job::imageDir, &_record::imageDir>("imageDir"),
    row<&_job::imageExtension, &_record::imageExtension>("imageExtension"),
    row<&_job::imageFileName, &_record::imageFileName>("imageFileName"),
    row<&_job::imageFormatOverride, &_record::imageFormatOverride>("imageFormatOverride"),
    row<&_job::imageHeight, &_record::imageHeight>("imageHeight"),
    row<&_job::imageMulti, &_record::imageMulti>("imageMulti"),
    row<&_job::imagePadding, &_record::imagePadding>("imagePadding"),
    row<&_job::imageSingleOutputFile, &_record::imageSingleOutputFile>("imageSingleOutputFile"),
    row<&_job::imageStereoL, &_record::imageStereoL>("imageStereoL"),
    row<&_job::imageStereoM, &_record::imageStereoM>("imageStereoM"),
    row<&_job::imageStereoR, &_record::imageStereoR>("imageStereoR"),
    row<&_job::imageWidth, &_record::imageWidth>("imageWidth"),
    row<&_job::jobID, &_record::jobID>("jobID"),
    row<&_job::jobKind, &_record::jobKind>("jobKind"),
    row<&_job::layer, &_record::layer>("layer"),
    row<&_job::pnl, &_record::pnl>("pnl"),
    row<&_job::preID, &_record::preID>("preID"),
    row<&_job::requiredLicenses, &_record::requiredLicenses>("requiredLicenses"),
    row<&_job::sceneDatabaseDir, &_record::sceneDatabaseDir>("sceneDatabaseDir"),
    row<&_job::sceneName, &_record::sceneName>("sceneName"),
    row<&_job::sceneOS, &_record::sceneOS>("sceneOS"),
    row<&_job::sceneState, &_record::sceneState>("sceneState"),
    row<&_job::seqEnd, &_settings::seqEnd>("seqEnd"),
    row<&_job::seqFrameSet, &_settings::seqFrameSet>("seqFrameSet"),
    row<&_job::seqStart, &_settings::seqStart>("seqStart"),
    row<&_job::seqStep, &_settings::seqStep>("seqStep"),
    row<&_job::shotgunID, &_record::shotgunID>("shotgunID"),
    row<&_job::structureIDs>("structureIDs", copyStructureIDs),
    row<&_job::waitForPreIDs>("waitForPreIDs", copyWaitForPreIDs),
};

}  // namespace

std::span<const _jobField> jobFields() {
    return fields;
}

_job jobFromRecord(const _recordSource& source) {
    _job job;
    for (const auto& field : fields) field.copyFromRecord(source, job);
    return job;
}

namespace {

using _member = std::pair<QLatin1String, QJsonValue>;

/// Keeps the members in the order of their names.
void insert(std::vector<_member>& members, QLatin1String name, const QJsonValue& value) {
    const auto isBefore = [](QLatin1String one, const _member& member) { return one < member.first; };
    members.insert(std::upper_bound(members.begin(), members.end(), name, isBefore), {name, value});
}

/// All members of a job in the order of their names.
std::vector<_member> membersOf(const _job& job) {
    std::vector<_member> members;
    members.reserve(std::size(fields) + mostBeside);
    for (const auto& field : fields) members.emplace_back(field.name, field.toJson(job));
    QJsonArray waitsFor;
    for (const int index : job.waitsFor) waitsFor.append(index == noJob ? QJsonValue{} : QJsonValue{index + 1});
    insert(members, waitsForKey, waitsFor);
    if (job.resolved) insert(members, resolvedKey, jsonOf(*job.resolved));
    return members;
}

std::vector<_member> printedMembersOf(const _job& job, const QString& scene) {
    auto members = membersOf(job);
    insert(members, framesKey, framesCell(job));
    insert(members, outputKey, outputCell(job, scene));
    return members;
}

QJsonObject objectOf(const std::vector<_member>& members) {
    QJsonObject object;
    for (const auto& [name, value] : members) object.insert(name, value);
    return object;
}

}  // namespace

QJsonValue jsonOf(const _job& job) {
    return objectOf(membersOf(job));
}

QJsonObject printedJson(const _job& job, const QString& scene) {
    return objectOf(printedMembersOf(job, scene));
}

void writeJson(const std::vector<_job>& jobs, const QString& scene, _jsonWriter& writer) {
    writer.beginArray();
    for (const auto& job : jobs) {
        writer.element();
        writer.beginObject();
        for (const auto& [name, value] : printedMembersOf(job, scene)) {
            writer.key(name);
            writer.value(value);
        }
        writer.endObject();
    }
    writer.endArray();
}

void readJson(const QJsonValue& value, _job& job) {
    const auto object = value.toObject();
    for (const auto& field : fields) field.readJson(object[field.name], job);
    const auto waitsFor = object[waitsForKey].toArray();
    for (const auto& number : waitsFor) job.waitsFor.push_back(number.toInt(0) - 1);  // 0: noJob
}

QString _job::customText(QLatin1String name) const {
    const auto isNamed = [&](const _namedText& entry) { return entry.name == name; };
    const auto found = std::find_if(customData.begin(), customData.end(), isNamed);
    return found == customData.end() ? QString() : found->value;
}

}  // namespace vxH
