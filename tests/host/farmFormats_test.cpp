// What engines read is parsed back, and its commands are run: every word arrives as it was given.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QXmlStreamReader>

#include "host/engines/engines.h"
#include "tests/host/hostProgram.h"
#include "tests/testText.h"

namespace {

using namespace vxH;
using vxTest::plain;

/// A step that prints its words and the variable TEXT, each with a NUL behind it.
_farmStep printingStep(const _frameRange& frames, qint64 framesPerTask, const QString& text) {
    const _taskWord values{{QStringLiteral("#")},  {{}, _taskValue::frame, 4}, {QStringLiteral(" ")},
                           {{}, _taskValue::last}, {QStringLiteral("{")},      {{}, _taskValue::step}};
    _farmStep step;
    step.name = QStringLiteral("step");
    step.driver = QStringLiteral("/out/a");
    step.frames = frames;
    step.framesPerTask = framesPerTask;
    step.command = {{{QStringLiteral("/bin/sh")}},
                    {{QStringLiteral("-c")}},
                    {{QStringLiteral("printf '%s\\0' \"$@\" \"$TEXT\" \"$RANGE\"")}},
                    {{QStringLiteral("sh")}},
                    {{text}},
                    values,
                    {}};
    step.environment = {{QStringLiteral("TEXT"), {{text}}},
                        {QStringLiteral("RANGE"), {{{}, _taskValue::first}, {text}, {{}, _taskValue::last, 6}}}};
    return step;
}

_submission submissionOf(std::vector<_farmStep> steps) {
    return {QStringLiteral("scene"), QStringLiteral("/a/scene.hip"), std::move(steps)};
}

QJsonObject firstTemplateStep(const _submission& submission) {
    const auto made = QJsonDocument::fromJson(openjdEngine.write(submission)).object();
    return made.value(QLatin1String{"steps"}).toArray().at(0).toObject();
}

/// The elements of a specification, in their order: name and text of each.
std::vector<std::pair<QString, QString>> elementsOf(const QByteArray& written) {
    QXmlStreamReader xml{written};
    std::vector<std::pair<QString, QString>> elements;
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::StartElement) elements.emplace_back(xml.name().toString(), QString{});
        if (token == QXmlStreamReader::StartElement && xml.name() == QLatin1String{"key"})
            elements.back().first = xml.attributes().value(QLatin1String{"name"}).toString();
        if (token == QXmlStreamReader::Characters && !xml.isWhitespace()) elements.back().second += xml.text();
    }
    EXPECT_FALSE(xml.hasError()) << plain(xml.errorString());
    return elements;
}

QString elementOf(const QByteArray& written, const char* name) {
    for (const auto& [element, text] : elementsOf(written))
        if (element == QLatin1String{name}) return text;
    return {};
}

/// What the engines' tasks print that begin with a frame, the last one of theirs being `last`.
QByteArray runTemplate(const _submission& submission, qint64 first) {
    const auto script = firstTemplateStep(submission).value(QLatin1String{"script"}).toObject();
    const auto data = script.value(QLatin1String{"embeddedFiles"}).toArray().at(0).toObject();
    const auto text = data.value(QLatin1String{"data"}).toString();
    return vxTest::run("/bin/sh", {"-c", plain(text), "sh", std::to_string(first)}).out;
}

QByteArray runSpecification(const _submission& submission, qint64 first, qint64 last) {
    const QByteArray written = opencueEngine.write(submission);
    QString command = elementOf(written, "cmd");
    // all tokens there are: what is none must not look like one
    command.replace(QLatin1String{"#FRAME_START#"}, QString::number(first));
    command.replace(QLatin1String{"#FRAME_END#"}, QString::number(last));
    for (const char* token : {"#IFRAME#", "#ZFRAME#", "#FRAME#", "#LAYER#", "#JOB#", "#FRAMESPEC#", "#FRAME_CHUNK#"})
        command.replace(QLatin1String{token}, QLatin1String{"replaced"});
    const QString given = elementOf(written, "TEXT");
    const std::string setting = "TEXT=" + plain(given);
    return vxTest::run("/bin/sh", {"-c", plain(command)}, {setting.c_str()}).out;
}

struct _range {
    const char* what;
    _frameRange frames;
    qint64 framesPerTask;
    const char* firstFrames;  // of a template's parameter
    const char* frameRange;   // of a layer
    const char* chunk;
    const char* lastTask;  // what its words say
};

TEST(FarmFormats, TasksHaveTheFramesOfTheirStep) {
    const _range cases[] = {
        {"one frame", {7, 7, 1}, 1, "7", "7", "1", "#0007 7{1"},
        {"a frame each", {1001, 1100, 1}, 1, "1001-1100:1", "1001-1100", "1", "#1100 1100{1"},
        {"last task is short", {1, 95, 1}, 10, "1-91:10", "1-95", "10", "#0091 95{1"},
        {"every second one", {1, 21, 2}, 4, "1-17:8", "1-21x2", "4", "#0017 21{2"},
        {"all in one task", {1, 10, 1}, 100, "1", "1-10", "10", "#0001 10{1"},
        {"below zero", {-5, 5, 5}, 2, "-5-5:10", "-5-5x5", "2", "#0005 5{5"},
    };
    for (const auto& range : cases) {
        SCOPED_TRACE(range.what);
        const auto submission = submissionOf({printingStep(range.frames, range.framesPerTask, QStringLiteral("a"))});
        const auto& step = submission.steps[0];
        const auto space = firstTemplateStep(submission).value(QLatin1String{"parameterSpace"}).toObject();
        const auto parameters = space.value(QLatin1String{"taskParameterDefinitions"}).toArray();
        EXPECT_EQ(plain(parameters.at(0).toObject().value(QLatin1String{"range"}).toString()), range.firstFrames);
        const QByteArray written = opencueEngine.write(submission);
        EXPECT_EQ(plain(elementOf(written, "range")), range.frameRange);
        EXPECT_EQ(plain(elementOf(written, "chunk")), range.chunk);
        const auto task = framesOfTask(step, step.taskCount() - 1);
        EXPECT_EQ(runTemplate(submission, task.first).split('\0').value(1).toStdString(), range.lastTask);
        EXPECT_EQ(runSpecification(submission, task.first, task.last).split('\0').value(1).toStdString(),
                  range.lastTask);
    }
}

TEST(FarmFormats, TextsArriveAsTheyWereGiven) {
    const char* texts[] = {
        "it's a \"b\"",
        "; touch /tmp/x; #",
        "$(id)`id`$HOME",
        "a\nb\n",
        "]]><cmd>&amp;",
        " ends ",
        "#IFRAME##LAYER#",
        "#FRAME_START#A#JOB#",
        "%s\\n\\",
        "{ {a} }",
        "-n",
        "",
        "*?[a]~!",
        "\xC3\xBC\xE2\x82\xAC\xF0\x9F\x8E\xAC",
        "\ta",
        "<!--x--><![CDATA[",
        "A=b",
    };
    for (const char* given : texts) {
        SCOPED_TRACE(given);
        const QString text = QString::fromUtf8(given);
        auto step = printingStep({1, 15, 1}, 10, text);
        step.driver = step.driver + text;
        const auto submission = submissionOf({step});
        const QByteArray bytes{given};
        const QByteArray expected =
            QByteArrayList{bytes, "#0011 15{1", "", bytes, "11" + bytes + "000015", ""}.join('\0');
        ASSERT_TRUE(openjdEngine.faultOfStep(step).isEmpty());
        ASSERT_TRUE(opencueEngine.faultOfStep(step).isEmpty());
        EXPECT_EQ(runTemplate(submission, 11), expected);
        EXPECT_EQ(runSpecification(submission, 11, 15), expected);
        EXPECT_EQ(plain(firstTemplateStep(submission).value(QLatin1String{"description"}).toString()),
                  plain(step.driver));
        const QByteArray written = opencueEngine.write(submission);
        const QString kept = elementOf(written, "VX_JOB_DRIVER");
        const bool isInCommand = elementOf(written, "cmd").contains(QLatin1String{"VX_JOB_DRIVER='/out/a"});
        EXPECT_TRUE(isInCommand || kept == step.driver);
        EXPECT_EQ(isInCommand, step.driver != step.driver.trimmed());  // an element would lose its blanks
    }
}

struct _refusal {
    const char* what;
    void (*change)(_farmStep& step);
    const char* openJobDescriptionSays;  // begin; empty: it takes the step
    const char* openCueSays;
};

TEST(FarmFormats, RefuseWhatTheyCannotHold) {
    static const _refusal cases[] = {
        {"value of a template", [](_farmStep& step) { step.command[4] = {{QStringLiteral("/a/{{Param.A}}")}}; },
         "\"{{\" or \"}}\"", ""},
        {"its end, in the environment", [](_farmStep& step) { step.environment[0].value = {{QStringLiteral("}}")}}; },
         "\"{{\" or \"}}\"", ""},
        {"control character", [](_farmStep& step) { step.command[4] = {{QStringLiteral("a\x1b")}}; }, "",
         "control characters"},
        {"carriage return", [](_farmStep& step) { step.environment[0].value = {{QStringLiteral("a\rb")}}; }, "",
         "control characters"},
        {"driver with one", [](_farmStep& step) { step.driver += QChar{7}; }, "a driver path", "control characters"},
        {"half a character", [](_farmStep& step) { step.take = QChar{0xD83C}; }, "", "control characters"},
        {"long driver", [](_farmStep& step) { step.driver.fill(QLatin1Char('a'), 2049); }, "a driver path", ""},
        {"licence", [](_farmStep& step) { step.licence = QStringLiteral("my licence"); }, "a licence whose name", ""},
        {"frame of 64 bits", [](_farmStep& step) { step.frames.last = qint64{1} << 31; }, "", "frame numbers"},
    };
    for (const auto& refusal : cases) {
        SCOPED_TRACE(refusal.what);
        auto step = printingStep({1, 10, 1}, 1, QStringLiteral("a"));
        refusal.change(step);
        const auto beginsAs = [](const QString& said, const char* begin) {
            return *begin ? said.startsWith(QLatin1String{begin}) : said.isEmpty();
        };
        EXPECT_TRUE(beginsAs(openjdEngine.faultOfStep(step), refusal.openJobDescriptionSays));
        EXPECT_TRUE(beginsAs(opencueEngine.faultOfStep(step), refusal.openCueSays));
    }
}

TEST(FarmFormats, NoSpecificationIsForRoot) {
    const auto submission = submissionOf({printingStep({1, 1, 1}, 1, QStringLiteral("a"))});
    const QByteArray user = qgetenv("USER");
    struct {
        const char* user;
        const char* uid;  // none: the specification is refused
    } cases[] = {{"root", nullptr}, {"nobody", "65534"}, {"no-user-of-this-machine", ""}, {" artist", nullptr}};
    for (const auto& entry : cases) {
        qputenv("USER", entry.user);
        EXPECT_EQ(opencueEngine.faultOfSubmission(submission).isEmpty(), entry.uid != nullptr) << entry.user;
        if (!entry.uid) continue;
        EXPECT_EQ(plain(elementOf(opencueEngine.write(submission), "uid")), entry.uid);
    }
    qputenv("USER", user);
}

}  // namespace
