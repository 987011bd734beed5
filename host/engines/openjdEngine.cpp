// Templates as JSON. What they may hold: https://github.com/OpenJobDescription/openjd-specifications, "Template
// Schemas" of 2023-09; each step of the farm is one of the template, and its tasks are the values of one parameter.
//
// Texts of the scene stand in descriptions, which nothing reads, and in the script of a step, quoted for the shell. An
// engine looks for values in that script too: a text that holds their braces is refused.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <algorithm>

#include "host/engines/engines.h"
#include "host/engines/shellWords.h"

namespace vxH {
namespace {

constexpr QLatin1String frameParameter{"Frame"};
constexpr QLatin1String scriptFile{"Run"};
constexpr int mostDescription = 2048;  ///< characters
constexpr int mostLicence = 64;

// What no template can say

bool isRefusedControl(QChar character) {
    constexpr QLatin1String allowed{"\t\n\r"};
    return character.category() == QChar::Other_Control && !allowed.contains(character);
}

bool isDescription(const QString& text) {
    return text.size() <= mostDescription && std::none_of(text.begin(), text.end(), isRefusedControl);
}

bool holdsBraces(const _taskWord& word) {
    return std::any_of(word.begin(), word.end(), [](const _wordPiece& piece) {
        return piece.text.contains(QLatin1String{"{{"}) || piece.text.contains(QLatin1String{"}}"});
    });
}

bool isLicenceName(const QString& name) {
    static const QRegularExpression identifier{QStringLiteral("\\A[A-Za-z_][A-Za-z0-9_]*\\z")};
    return name.size() <= mostLicence && identifier.match(name).hasMatch();
}

QString stepDescription(const _farmStep& step) {
    return step.take.isEmpty() ? step.driver : step.driver + QLatin1String{"\ntake "} + step.take;
}

QString faultOfStep(const _farmStep& step) {
    const bool hasBraces = std::any_of(step.command.begin(), step.command.end(), holdsBraces) ||
                           std::any_of(step.environment.begin(), step.environment.end(),
                                       [](const _taskSetting& setting) { return holdsBraces(setting.value); });
    if (hasBraces) return QStringLiteral("\"{{\" or \"}}\" in its command or environment");
    if (!isDescription(stepDescription(step)))
        return QStringLiteral("a driver path of more than 2048 characters, or with control characters");
    if (!step.licence.isEmpty() && !isLicenceName(step.licence))
        return QStringLiteral("a licence whose name has other characters than letters, digits and \"_\", or over 64");
    return {};
}

QString faultOfSubmission(const _submission& submission) {
    if (isDescription(submission.scene)) return {};
    return QStringLiteral("a scene path of more than 2048 characters, or with control characters");
}

// Steps

/// "1001-1091:10": the first frame of each task.
QString firstFrames(const _farmStep& step) {
    const qint64 stride = step.frames.step * step.framesPerTask;
    const qint64 last = framesOfTask(step, step.taskCount() - 1).first;
    QString range = QString::number(step.frames.first);
    if (last != step.frames.first) range += QLatin1Char('-') + QString::number(last);
    if (last != step.frames.first && stride != 1) range += QLatin1Char(':') + QString::number(stride);
    return range;
}

QJsonObject parameterSpace(const _farmStep& step) {
    const QJsonObject parameter{
        {QStringLiteral("name"), frameParameter},
        {QStringLiteral("type"), QStringLiteral("INT")},
        {QStringLiteral("range"), firstFrames(step)},
    };
    return {{QStringLiteral("taskParameterDefinitions"), QJsonArray{parameter}}};
}

/// Runs one task: its argument is the first frame.
QString taskScript(const _farmStep& step) {
    const _shellDialect dialect{posixQuoted, QStringLiteral("\"$FIRST\""), QStringLiteral("\"$LAST\""),
                                QString::number(step.frames.step)};
    QString lines = QStringLiteral("FIRST=$1\nLAST=$1\n");
    if (step.framesPerTask > 1)
        lines = QStringLiteral("FIRST=$1\nLAST=$((FIRST + %1))\n[ \"$LAST\" -le %2 ] || LAST=%2\n")
                    .arg((step.framesPerTask - 1) * step.frames.step)
                    .arg(step.frames.last);
    return lines + QLatin1String{"exec "} + shellCommand(step.environment, step.command, dialect) + QLatin1Char('\n');
}

QJsonObject stepScript(const _farmStep& step) {
    const auto valueOf = [](QLatin1String kind, QLatin1String name) {
        return QString{QLatin1String{"{{Task."} + kind + QLatin1Char('.') + name + QLatin1String{"}}"}};
    };
    QJsonObject onRun{
        {QStringLiteral("command"), QStringLiteral("/bin/sh")},
        {QStringLiteral("args"),
         QJsonArray{valueOf(QLatin1String{"File"}, scriptFile), valueOf(QLatin1String{"Param"}, frameParameter)}},
    };
    if (step.minutes > 0) onRun.insert(QStringLiteral("timeout"), qint64{step.minutes} * 60);
    const QJsonObject file{
        {QStringLiteral("name"), scriptFile},
        {QStringLiteral("type"), QStringLiteral("TEXT")},
        {QStringLiteral("data"), taskScript(step)},
    };
    return {
        {QStringLiteral("actions"), QJsonObject{{QStringLiteral("onRun"), onRun}}},
        {QStringLiteral("embeddedFiles"), QJsonArray{file}},
    };
}

QJsonObject hostRequirements(const _farmStep& step) {
    QJsonArray amounts;
    const auto need = [&amounts](const QString& name, qint64 least) {
        amounts += QJsonObject{{QStringLiteral("name"), name}, {QStringLiteral("min"), least}};
    };
    need(QStringLiteral("amount.worker.vcpu"), step.cores);
    if (step.memoryMB > 0) need(QStringLiteral("amount.worker.memory"), step.memoryMB);
    if (!step.licence.isEmpty()) need(QLatin1String{"amount.license."} + step.licence, 1);
    return {{QStringLiteral("amounts"), amounts}};
}

QJsonObject stepTemplate(const _farmStep& step, const _submission& submission) {
    QJsonObject made{
        {QStringLiteral("name"), step.name},
        {QStringLiteral("description"), stepDescription(step)},
        {QStringLiteral("parameterSpace"), parameterSpace(step)},
        {QStringLiteral("script"), stepScript(step)},
        {QStringLiteral("hostRequirements"), hostRequirements(step)},
    };
    QJsonArray dependencies;
    for (const auto& wait : step.waits) {
        const auto& earlier = submission.steps[static_cast<std::size_t>(wait.step)];
        dependencies += QJsonObject{{QStringLiteral("dependsOn"), earlier.name}};
    }
    if (!dependencies.isEmpty()) made.insert(QStringLiteral("dependencies"), dependencies);
    return made;
}

/// Step by step: all of them at once as JSON values take twice the memory of the text.
QByteArray writeTemplate(const _submission& submission) {
    const QJsonObject head{
        {QStringLiteral("specificationVersion"), QStringLiteral("jobtemplate-2023-09")},
        {QStringLiteral("name"), submission.name},
        {QStringLiteral("description"), submission.scene},
    };
    QByteArray text = QJsonDocument{head}.toJson();
    text.chop(3);  // line end, brace, line end
    QByteArray between = ",\n    \"steps\": [\n";
    for (const auto& step : submission.steps) {
        text += between + QJsonDocument{stepTemplate(step, submission)}.toJson();
        text.chop(1);
        between = ",\n";
    }
    return text + "\n    ]\n}\n";
}

}  // namespace

const _engine openjdEngine{
    .name = QLatin1String{"openjd"},
    .description = QLatin1String{"job template of Open Job Description"},
    .fileEnding = QLatin1String{".openjd.json"},
    .stepNames = {.mostLength = 64},
    .submissionNames = {.mostLength = 128},
    .faultOfStep = faultOfStep,
    .faultOfSubmission = faultOfSubmission,
    .write = writeTemplate,
};

}  // namespace vxH
