// Job files as XML, of the document type CJSL 1.15. What a command is told of its task are the command tokens that
// OpenCue's documentation lists: #FRAME_START# is the first frame of a chunk, #FRAME_END# the last one that it has.
//
// A command is run by a POSIX shell. A value of the environment loses blanks at its ends and knows no tokens; where
// that matters, the command sets it.
#include <pwd.h>
#include <unistd.h>

#include <QRegularExpression>
#include <QXmlStreamWriter>
#include <algorithm>
#include <optional>

#include "host/engines/engines.h"
#include "host/engines/shellWords.h"
#include "host/engines/taskWords.h"
#include "shared/vxString.h"

namespace vxH {
namespace {

constexpr int leastName = 3;

/// With quotes in the middle of what would be taken for a token: `'#''IFRAME#'`.
QString quotedWithoutTokens(const QString& text) {
    static const QRegularExpression tokenBegin{QStringLiteral("#(?=[A-Z_]+#)")};
    return posixQuoted(text).replace(tokenBegin, QStringLiteral("#''"));
}

// Whose job it is: what no scene says, from the variables that name a shot where this engine runs.

QString variableOr(const char* variable, const QString& fallback) {
    const QString value = qEnvironmentVariable(variable);
    return value.isEmpty() ? fallback : value;
}

QString show() {
    return variableOr("SHOW", QStringLiteral("testing"));
}

QString shot() {
    return variableOr("SHOT", QStringLiteral("default"));
}

QString user() {
    const passwd* self = getpwuid(getuid());
    return variableOr("USER", self ? QString::fromLocal8Bit(self->pw_name) : QString{});
}

/// None where this machine does not know the user.
std::optional<uid_t> uidOf(const QString& name) {
    const passwd* entry = getpwnam(name.toLocal8Bit().constData());
    return entry ? std::optional{entry->pw_uid} : std::nullopt;
}

// What no job file can say

bool isName(const QString& text, vxS::_size leastLength) {
    static const QRegularExpression name{QStringLiteral("\\A[A-Za-z0-9_.-]+\\z")};
    return text.size() >= leastLength && name.match(text).hasMatch();
}

/// Whether a reader of the XML gets the text as it was given: a carriage return would come out as a line feed.
bool isXmlText(const QString& text) {
    return text.isValidUtf16() && std::all_of(text.begin(), text.end(), [](QChar character) {
               const bool isLayout = character == QLatin1Char('\t') || character == QLatin1Char('\n');
               return isLayout || (character >= QLatin1Char(' ') && character.unicode() < 0xFFFE);
           });
}

bool isXmlWord(const _taskWord& word) {
    return std::all_of(word.begin(), word.end(), [](const _wordPiece& piece) { return isXmlText(piece.text); });
}

QString faultOfStep(const _farmStep& step) {
    const bool isXml = isXmlText(step.driver + step.take + step.licence) &&
                       std::all_of(step.command.begin(), step.command.end(), isXmlWord) &&
                       std::all_of(step.environment.begin(), step.environment.end(),
                                   [](const _taskSetting& setting) { return isXmlWord(setting.value); });
    return isXml ? QString{} : QStringLiteral("control characters, which XML cannot hold");
}

QString faultOfSubmission(const _submission&) {
    if (!isName(show(), leastName) || !isName(shot(), leastName))
        return QStringLiteral(
            "names in SHOW and SHOT have three characters or more: letters, digits, \"_\", \".\", \"-\"");
    if (!isName(user(), 1) || user() == QLatin1String{"root"} || uidOf(user()) == 0U)
        return QStringLiteral("root may have no jobs there: USER has to be somebody else");
    return {};
}

// The job file

/// The value, where it is the same for all tasks and stays as it is in an element of its own.
std::optional<QString> elementText(const _taskWord& word) {
    const auto text = plainText(word);
    return text && !text->isEmpty() && *text == text->trimmed() ? text : std::nullopt;
}

/// The step's own, and the names that its layer's was cut from.
std::vector<_taskSetting> environmentOf(const _farmStep& step) {
    auto settings = step.environment;
    settings.push_back({QStringLiteral("VX_JOB_DRIVER"), {{step.driver}}});
    if (!step.take.isEmpty()) settings.push_back({QStringLiteral("VX_JOB_TAKE"), {{step.take}}});
    return settings;
}

QString commandOf(const _farmStep& step, const std::vector<_taskSetting>& environment) {
    const _shellDialect dialect{quotedWithoutTokens, QStringLiteral("#FRAME_START#"), QStringLiteral("#FRAME_END#"),
                                QString::number(step.frames.step)};
    std::vector<_taskSetting> set;
    for (const auto& setting : environment)
        if (!elementText(setting.value)) set.push_back(setting);
    return shellCommand(set, step.command, dialect);
}

QString rangeOf(const _frameRange& frames) {
    const QString first = QString::number(frames.first);
    if (frames.count() == 1) return first;
    const QString range = first + QLatin1Char('-') + QString::number(frames.last);
    return frames.step == 1 ? range : range + QLatin1Char('x') + QString::number(frames.step);
}

void writeEnvironment(QXmlStreamWriter& xml, const std::vector<_taskSetting>& environment) {
    xml.writeStartElement(QStringLiteral("env"));
    for (const auto& setting : environment) {
        const auto value = elementText(setting.value);
        if (!value) continue;
        xml.writeStartElement(QStringLiteral("key"));
        xml.writeAttribute(QStringLiteral("name"), setting.name);
        xml.writeCharacters(*value);
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

/// The elements have their order from the document type.
void writeLayer(QXmlStreamWriter& xml, const _farmStep& step) {
    const auto environment = environmentOf(step);
    const qint64 chunk = std::min(step.framesPerTask, step.frames.count());
    xml.writeStartElement(QStringLiteral("layer"));
    xml.writeAttribute(QStringLiteral("name"), step.name);
    xml.writeAttribute(QStringLiteral("type"), QStringLiteral("Render"));
    xml.writeTextElement(QStringLiteral("cmd"), commandOf(step, environment));
    xml.writeTextElement(QStringLiteral("range"), rangeOf(step.frames));
    xml.writeTextElement(QStringLiteral("chunk"), QString::number(chunk));
    xml.writeTextElement(QStringLiteral("cores"),
                         QString::number(step.cores) + QLatin1String{".0"});  // without a point: hundredths
    xml.writeTextElement(QStringLiteral("threadable"), QLatin1String{step.cores > 1 ? "True" : "False"});
    if (step.memoryMB > 0)
        xml.writeTextElement(QStringLiteral("memory"), QString::number(step.memoryMB) + QLatin1Char('m'));
    if (step.minutes > 0) xml.writeTextElement(QStringLiteral("timeout"), QString::number(step.minutes));
    if (!step.licence.isEmpty()) {
        xml.writeStartElement(QStringLiteral("limits"));
        xml.writeTextElement(QStringLiteral("limit"), step.licence);
        xml.writeEndElement();
    }
    writeEnvironment(xml, environment);
    xml.writeEndElement();
}

void writeWaits(QXmlStreamWriter& xml, const _farmStep& step, const _submission& submission) {
    for (const auto& wait : step.waits) {
        const auto& earlier = submission.steps[static_cast<std::size_t>(wait.step)];
        xml.writeStartElement(QStringLiteral("depend"));
        xml.writeAttribute(QStringLiteral("type"),
                           QLatin1String{wait.isFrameByFrame ? "FRAME_BY_FRAME" : "LAYER_ON_LAYER"});
        xml.writeTextElement(QStringLiteral("depjob"), submission.name);
        xml.writeTextElement(QStringLiteral("deplayer"), step.name);
        xml.writeTextElement(QStringLiteral("onjob"), submission.name);
        xml.writeTextElement(QStringLiteral("onlayer"), earlier.name);
        xml.writeEndElement();
    }
}

void writeJob(QXmlStreamWriter& xml, const _submission& submission) {
    xml.writeStartElement(QStringLiteral("job"));
    xml.writeAttribute(QStringLiteral("name"), submission.name);
    xml.writeStartElement(QStringLiteral("layers"));
    for (const auto& step : submission.steps) writeLayer(xml, step);
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("depends"));
    for (const auto& step : submission.steps) writeWaits(xml, step, submission);
    xml.writeEndElement();
}

QByteArray writeJobFile(const _submission& submission) {
    QByteArray written;
    QXmlStreamWriter xml{&written};
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(2);
    xml.writeStartDocument();
    xml.writeDTD(
        QStringLiteral("<!DOCTYPE spec PUBLIC \"SPI Cue Specification Language\" "
                       "\"http://localhost:8080/spcue/dtd/cjsl-1.15.dtd\">"));
    xml.writeStartElement(QStringLiteral("spec"));
    xml.writeTextElement(QStringLiteral("show"), show());
    xml.writeTextElement(QStringLiteral("shot"), shot());
    xml.writeTextElement(QStringLiteral("user"), user());
    if (const auto uid = uidOf(user())) xml.writeTextElement(QStringLiteral("uid"), QString::number(*uid));
    writeJob(xml, submission);
    xml.writeEndElement();
    xml.writeEndDocument();
    return written;
}

}  // namespace

const _engine opencueEngine{
    .name = QLatin1String{"opencue"},
    .description = QLatin1String{"job file of OpenCue"},
    .fileEnding = QLatin1String{".opencue.xml"},
    .stepNames = {.leastLength = leastName, .mostLength = 128},
    .submissionNames = {.leastLength = leastName, .mostLength = 128},
    .faultOfStep = faultOfStep,
    .faultOfSubmission = faultOfSubmission,
    .write = writeJobFile,
};

}  // namespace vxH
