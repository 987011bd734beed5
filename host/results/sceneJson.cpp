#include "host/results/sceneJson.h"

#include <QJsonArray>
#include <QJsonDocument>

#include "host/base/displayText.h"
#include "host/results/jobCells.h"
#include "host/results/jobFields.h"
#include "host/results/jsonValues.h"

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
constexpr QLatin1String framesKey{"frames"};
constexpr QLatin1String outputKey{"output"};

/// JSON with `\u` for what could steer a terminal or reorder a line. Outside its texts only line ends are of that kind.
QString withEscapes(const QString& json) {
    return withoutHarmful(json, [](QStringView character) {
        QString escapes;
        if (character.front() == QLatin1Char('\n')) return QStringLiteral("\n");
        for (const QChar unit : character) {
            const int code = unit.unicode();
            escapes += QStringLiteral("\\u%1").arg(code, 4, 16, QLatin1Char('0'));
        }
        return escapes;
    });
}

/// The fields, and what the table makes of them: nobody has to put names and frames together again.
QJsonArray jobsToJson(const _sceneResult& result) {
    QJsonArray jobs;
    for (const _job& job : result.jobs) {
        auto object = jobToJson(job);
        object.insert(framesKey, framesCell(job));
        object.insert(outputKey, outputCell(job, result.scene));
        jobs.append(object);
    }
    return jobs;
}

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
    auto object = headToJson(result);
    object.insert(messageKey, result.message);
    object.insert(jobsKey, jobsToJson(result));
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
    const auto bytes = QJsonDocument(object).toJson(indented ? QJsonDocument::Indented : QJsonDocument::Compact);
    return withEscapes(QString::fromUtf8(bytes).trimmed());
}

}  // namespace vxH
