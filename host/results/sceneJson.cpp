#include "host/results/sceneJson.h"

#include "host/results/jobFields.h"
#include "host/results/jsonValues.h"
#include "host/results/jsonWriter.h"

namespace vxH {
namespace {

constexpr QLatin1String formatVersionKey{"formatVersion"};
constexpr int formatVersion = 1;  // docs/schema/README.md says what raises it

constexpr QLatin1String sceneKey{"scene"};
constexpr QLatin1String codeKey{"code"};
constexpr QLatin1String errorKey{"error"};
constexpr QLatin1String completeKey{"complete"};
constexpr QLatin1String messageKey{"message"};
constexpr QLatin1String jobsKey{"jobs"};
constexpr QLatin1String jobKey{"job"};
constexpr QLatin1String layerKey{"layer"};
constexpr QLatin1String variablesKey{"variables"};

}  // namespace

// Lists of them find these by the type.
static QJsonValue jsonOf(const _jobVariables& job) {
    return QJsonObject{{jobKey, job.number}, {layerKey, job.driver}, {variablesKey, jsonOf(job.variables)}};
}

static void readJson(const QJsonValue& value, _jobVariables& job) {
    const auto object = value.toObject();
    job.number = object[jobKey].toInt();
    job.driver = object[layerKey].toString();
    readJson(object[variablesKey], job.variables);
}

QJsonObject headToJson(const _sceneHead& head) {
    QJsonObject object{{sceneKey, head.scene}, {codeKey, head.code}};
    if (!head.isLoaded()) object.insert(errorKey, head.error);
    if (head.isComplete) object.insert(completeKey, *head.isComplete);
    return object;
}

_sceneHead headFromJson(const QJsonObject& object) {
    _sceneHead head{object[sceneKey].toString(), object[codeKey].toInt(), object[errorKey].toString(),
                    object[messageKey].toString()};
    if (object.contains(completeKey)) head.isComplete = object[completeKey].toBool();
    return head;
}

QJsonObject sceneToJson(const _sceneResult& result) {
    auto object = jobsApartToJson(result);
    object.insert(jobsKey, jsonOf(result.jobs));
    return object;
}

QJsonObject jobsApartToJson(const _sceneResult& result) {
    auto object = headToJson(result);
    object.insert(messageKey, result.message);
    return object;
}

_sceneResult sceneFromJson(const QJsonObject& object) {
    _sceneResult result{headFromJson(object), {}, {}};
    readJson(object[jobsKey], result.jobs);
    return result;
}

QJsonObject variablesToJson(const _sceneVariables& result) {
    auto object = headToJson(result);
    object.insert(jobsKey, jsonOf(result.jobs));
    return object;
}

_sceneVariables variablesFromJson(const QJsonObject& object) {
    _sceneVariables result{headFromJson(object), {}};
    readJson(object[jobsKey], result.jobs);
    return result;
}

QString jsonText(QJsonObject object, bool indented) {
    object.insert(formatVersionKey, formatVersion);
    _jsonWriter writer{indented};
    writer.value(object);
    return QString::fromUtf8(writer.text());
}

QString jsonText(QJsonObject object, const std::vector<_job>& jobs, bool indented) {
    object.insert(formatVersionKey, formatVersion);
    object.insert(jobsKey, QJsonValue{});  // for its place
    _jsonWriter writer{indented};
    writer.beginObject();
    for (auto member = object.begin(); member != object.end(); ++member) {
        writer.key(member.key());
        if (member.key() == jobsKey)
            writeJson(jobs, object[sceneKey].toString(), writer);
        else
            writer.value(member.value());
    }
    writer.endObject();
    return QString::fromUtf8(writer.text());
}

}  // namespace vxH
