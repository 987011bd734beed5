#include "host/engines/bashWords.h"

#include "host/base/displayText.h"
#include "host/base/shellText.h"

namespace vxH {
namespace {

QString variableOf(_taskValue value) {
    switch (value) {
        case _taskValue::none:
            return {};
        case _taskValue::first:
        case _taskValue::frame:
            return QStringLiteral("$FIRST");
        case _taskValue::last:
            return QStringLiteral("$LAST");
        case _taskValue::step:
            return QStringLiteral("$STEP");
    }
    return {};
}

QString bashPiece(const _wordPiece& piece) {
    if (piece.value == _taskValue::none) return shellQuoted(piece.text);
    const QString value = QLatin1Char('"') + variableOf(piece.value) + QLatin1Char('"');
    if (piece.digits == 0) return value;
    return QLatin1String{"\"$(printf %0"} + QString::number(piece.digits) + QLatin1String{"d "} + value +
           QLatin1String{")\""};
}

}  // namespace

QString bashWord(const _taskWord& word) {
    if (word.empty()) return shellQuoted({});
    QString text;
    for (const auto& piece : word) text += bashPiece(piece);
    return text;
}

QString bashCommand(const _farmStep& step) {
    QStringList words{QStringLiteral("env")};
    for (const auto& setting : step.environment) words += setting.name + QLatin1Char('=') + bashWord(setting.value);
    for (const auto& word : step.command) words += bashWord(word);
    return words.join(QLatin1Char(' '));
}

QStringList bashWaits(const _farmStep& step) {
    QStringList waits;
    for (const auto& wait : step.waits)
        waits += (wait.isFrameByFrame ? QStringLiteral("each:%1") : QStringLiteral("all:%1")).arg(wait.step + 1);
    return waits;
}

QByteArray bashSteps(const _submission& submission, const std::function<QStringList(const _farmStep&)>& more) {
    QByteArray text;
    int number = 0;
    for (const auto& step : submission.steps) {
        QStringList words{QStringLiteral("step"), QString::number(++number), step.name};
        for (const qint64 value : {step.frames.first, step.frames.last, step.frames.step, step.framesPerTask})
            words += QString::number(value);
        words += more(step);
        const QStringList lines{QString{}, QLatin1String{"# "} + describedForComment(step),
                                words.join(QLatin1Char(' ')) + QLatin1String{" <<'TASK'"}, bashCommand(step),
                                QStringLiteral("TASK")};
        text += lines.join(QLatin1Char('\n')).toUtf8() + '\n';
    }
    return text;
}

QString describedForComment(const _farmStep& step) {
    const auto& [first, last, by] = step.frames;
    QString text = QStringLiteral("job %1  ").arg(step.job) + printable(step.driver);
    if (!step.take.isEmpty()) text += QLatin1String{", take "} + printable(step.take);
    text += first == last ? QStringLiteral(": frame %1").arg(first)
                          : QStringLiteral(": frames %1 to %2").arg(first).arg(last);
    if (by != 1) text += QStringLiteral(" by %1").arg(by);
    return text + QStringLiteral(", ") + counted(step.taskCount(), "task", "tasks");
}

QString headlineForComment(const _submission& submission) {
    qint64 tasks = 0;
    for (const auto& step : submission.steps) tasks += step.taskCount();
    const auto steps = static_cast<qint64>(submission.steps.size());
    return QStringLiteral("%1: %2, %3, of ")
               .arg(submission.name, counted(steps, "step", "steps"), counted(tasks, "task", "tasks")) +
           printable(submission.scene);
}

}  // namespace vxH
