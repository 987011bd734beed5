// One function for each part of the text.
#include "host/text/explanationText.h"

#include <QJsonArray>
#include <QStringList>
#include <algorithm>
#include <array>

#include "host/access/sceneExplanation.h"
#include "host/base/displayText.h"
#include "host/text/jobTable.h"

namespace vxH {
namespace {

constexpr QLatin1String bold{"\x1b[1m"};
constexpr QLatin1String yellow{"\x1b[33m"};
constexpr QLatin1String plain{"\x1b[0m"};

/// Lines of text, and how to set them off.
class _text {
 public:
    explicit _text(const _terminal& outputTerminal) : terminal(outputTerminal) {}

    QStringList lines;

    void heading(const QString& title) {
        lines.append(QString());
        lines.append(set(title, bold));
    }
    void line(const QString& text) { lines.append(QLatin1String("  ") + printable(text)); }
    void marked(const QString& text) { lines.append(set(QLatin1String("  ") + printable(text), yellow)); }

 private:
    QString set(const QString& text, QLatin1String colour) const {
        return terminal.colour ? colour + text + plain : text;
    }

    const _terminal& terminal;
};

QString textOf(const QJsonValue& object, const char* member) {
    return object.toObject()[QLatin1String{member}].toString();
}

int numberOf(const QJsonValue& object, const char* member) {
    return object.toObject()[QLatin1String{member}].toInt();
}

QJsonArray listOf(const QJsonValue& object, const char* member) {
    return object.toObject()[QLatin1String{member}].toArray();
}

QString joined(const QJsonArray& texts) {
    QStringList list;
    for (const auto& text : texts) list.append(text.toString());
    return list.join(QLatin1String(", "));
}

QString usedBy(const QJsonValue& node) {
    const QString drivers = joined(listOf(node, "drivers"));
    return drivers.isEmpty() ? QString() : QLatin1String("  used by ") + drivers;
}

// ---- facts

QString frameRangeLine(const QJsonValue& range) {
    const bool isStored = range.toObject()[QLatin1String{"stored"}].toBool();
    return QStringLiteral("%1-%2%3")
        .arg(numberOf(range, "start"))
        .arg(numberOf(range, "end"))
        .arg(isStored ? QString() : QStringLiteral("  (the scene has none: this is the default)"));
}

QString variableLine(const QJsonValue& variable) {
    const bool isImported = textOf(variable, "from") == QLatin1String("environment");
    return textOf(variable, "name") + QLatin1String(" = ") + textOf(variable, "value") +
           (isImported ? QStringLiteral("  (environment)") : QString());
}

QString cameraLine(const QJsonValue& camera) {
    const int width = numberOf(camera, "width");
    QString line = textOf(camera, "node") + QLatin1String("  ");
    line += width == 0 ? QStringLiteral("no section of it was read")
                       : QStringLiteral("%1x%2").arg(width).arg(numberOf(camera, "height"));
    if (camera.toObject()[QLatin1String{"stereo"}].toBool()) line += QLatin1String(" stereo");
    return line + usedBy(camera);
}

QString lopLine(const QJsonValue& node) {
    QStringList parts{textOf(node, "node"), textOf(node, "renderer"), textOf(node, "image")};
    parts.removeAll(QString());
    return parts.join(QLatin1String("  ")) + usedBy(node);
}

QString settingsLine(const QJsonValue& node) {
    QStringList parts{textOf(node, "node"), textOf(node, "camera"), textOf(node, "image")};
    parts.removeAll(QString());
    return parts.join(QLatin1String("  ")) + usedBy(node);
}

QString wedgeLine(const QJsonValue& wedge) {
    return QStringLiteral("%1  repeats %2, variants: %3")
        .arg(textOf(wedge, "node"), textOf(wedge, "driver"), QString::number(numberOf(wedge, "variants")));
}

struct _factList {
    const char* member;
    QLatin1String title;
    QString (*line)(const QJsonValue&);
};

constexpr std::array factLists{
    _factList{"takes", QLatin1String{"takes"}, [](const QJsonValue& take) { return take.toString(); }},
    _factList{"variables", QLatin1String{"variables"}, variableLine},
    _factList{"cameras", QLatin1String{"cameras"}, cameraLine},
    _factList{"lops", QLatin1String{"LOP nodes"}, lopLine},
    _factList{"usdRenderSettings", QLatin1String{"USD render settings"}, settingsLine},
    _factList{"wedges", QLatin1String{"wedges"}, wedgeLine},
};

void addFacts(const QJsonObject& facts, _text& text) {
    text.heading(QStringLiteral("frames"));
    text.line(frameRangeLine(facts[QLatin1String{"frameRange"}]));
    for (const _factList& part : factLists) {
        const QJsonArray entries = listOf(facts, part.member);
        if (entries.isEmpty()) continue;
        text.heading(part.title);
        for (const auto& entry : entries) text.line(part.line(entry));
    }
    const int left = numberOf(facts, "variableCount") - static_cast<int>(listOf(facts, "variables").size());
    if (left > 0) text.line(QStringLiteral("(variables that are not shown: %1)").arg(left));
}

// ---- sections

/// Widths of the columns in front of the outcome.
struct _widths {
    explicit _widths(const char* memberOfKind) : kindMember(memberOfKind) {}

    const char* kindMember;  ///< "reader", or "type"
    int line = 4;
    int kind = 6;
    int node = 4;

    void fit(const QJsonValue& section) {
        line = std::max(line, static_cast<int>(QString::number(numberOf(section, "line")).size()));
        kind = std::max(kind, columnsOf(printable(textOf(section, kindMember))));
        node = std::max(node, columnsOf(printable(textOf(section, "node"))));
    }
};

QString filledUp(const QString& text, int columns) {
    const QString harmless = printable(text);
    return harmless + QString(std::max(0, columns - columnsOf(harmless)), QLatin1Char(' '));
}

QString byteOf(const QJsonValue& section) {
    return QString::number(section.toObject()[QLatin1String{"byte"}].toDouble(), 'f', 0);
}

QString sectionLine(const QJsonValue& section, const _widths& widths) {
    QString outcome = textOf(section, "text");
    const QJsonArray copies = listOf(section, "copies");
    if (!copies.isEmpty()) outcome += QStringLiteral(" (and copies: %1)").arg(copies.size());
    return QStringLiteral("%1  %2  %3  %4  %5")
        .arg(QString::number(numberOf(section, "line")).rightJustified(widths.line), byteOf(section).rightJustified(10),
             filledUp(textOf(section, widths.kindMember), widths.kind), filledUp(textOf(section, "node"), widths.node),
             outcome);
}

void addSections(const QJsonArray& sections, _text& text) {
    if (sections.isEmpty()) return;
    _widths widths{"reader"};
    for (const auto& section : sections) widths.fit(section);
    text.heading(QStringLiteral("sections: line, byte, reader, node, outcome"));
    for (const auto& section : sections) {
        if (!isSkippedDriver(section)) {
            text.line(sectionLine(section, widths));
            continue;
        }
        text.marked(sectionLine(section, widths));
        const QJsonArray details = listOf(section, "details");
        for (const auto& detail : details) text.line(QString(widths.line + 14, QLatin1Char(' ')) + detail.toString());
    }
}

void addNotRecognised(const QJsonArray& sections, _text& text) {
    if (sections.isEmpty()) return;
    _widths widths{"type"};
    for (const auto& section : sections) widths.fit(section);
    text.heading(QStringLiteral("not recognised, though they look like drivers: line, byte, type, node, reason"));
    for (const auto& section : sections) text.marked(sectionLine(section, widths));
}

void addWarnings(const QJsonArray& warnings, _text& text) {
    if (warnings.isEmpty()) return;
    text.heading(QStringLiteral("warnings"));
    for (const auto& warning : warnings) {
        const QString node = textOf(warning, "node");
        text.marked((node.isEmpty() ? QString() : node + QLatin1String(": ")) + textOf(warning, "text"));
    }
}

}  // namespace

QString explanationText(const QJsonObject& result, const _terminal& terminal) {
    if (!result.contains(factsKey)) return {};
    _text text(terminal);
    text.lines.append(sceneSummary(result));
    addFacts(result[factsKey].toObject(), text);
    addSections(result[sectionsKey].toArray(), text);
    addNotRecognised(result[notRecognisedKey].toArray(), text);
    addWarnings(result[warningsKey].toArray(), text);
    return text.lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

}  // namespace vxH
