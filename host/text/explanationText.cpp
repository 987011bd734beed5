#include "host/text/explanationText.h"

#include <QStringList>
#include <algorithm>

#include "explain/readerWords.h"
#include "host/base/displayText.h"
#include "host/text/jobTable.h"
#include "host/text/resolvingText.h"
#include "host/text/valueLine.h"

namespace vxH {
namespace {

constexpr QLatin1String markedColour{"\x1b[33m"};

/// Lines of text, and how to set them off.
class _text {
 public:
    explicit _text(const _terminal& outputTerminal) : terminal(outputTerminal) {}

    QStringList lines;

    void heading(const QString& title) {
        lines.append(QString());
        lines.append(inColour(title, headingColour));
    }
    void line(const QString& text) { lines.append(QLatin1String("  ") + printable(text)); }
    void marked(const QString& text) { lines.append(inColour(QLatin1String("  ") + printable(text), markedColour)); }

 private:
    QString inColour(const QString& text, QLatin1String colour) const {
        return coloured(text, terminal.colour ? colour : QLatin1String{});
    }

    const _terminal& terminal;
};

QString joined(const QStringList& texts) {
    return texts.join(QLatin1String(", "));
}

/// Two blanks between the texts that are there.
QString spaced(QStringList texts) {
    texts.removeAll(QString());
    return texts.join(QLatin1String("  "));
}

QString usedBy(const QStringList& drivers) {
    return drivers.isEmpty() ? QString() : QLatin1String("  used by ") + joined(drivers);
}

// ---- facts

QString frameRangeLine(const vxE::_explainedFacts& facts) {
    return QStringLiteral("%1-%2%3")
        .arg(facts.firstFrame)
        .arg(facts.lastFrame)
        .arg(facts.isFrameRangeStored ? QString() : QStringLiteral("  (the scene has none: this is the default)"));
}

QString lineOf(const QString& take) {
    return take;
}

QString lineOf(const vxE::_variableFact& variable) {
    return variable.name + QLatin1String(" = ") + variable.value +
           (variable.isImported ? QStringLiteral("  (environment)") : QString());
}

QString lineOf(const vxE::_cameraFact& camera) {
    QString line = camera.node + QLatin1String("  ");
    line += camera.width == 0 ? QStringLiteral("no section of it was read")
                              : QStringLiteral("%1x%2").arg(camera.width).arg(camera.height);
    if (camera.isStereo) line += QLatin1String(" stereo");
    return line + usedBy(camera.drivers);
}

QString lineOf(const vxE::_lopFact& node) {
    return spaced({node.node, node.renderer, node.image}) + usedBy(node.drivers);
}

QString lineOf(const vxE::_usdRenderSettingsFact& settings) {
    return spaced({settings.node, settings.camera, settings.image}) + usedBy(settings.drivers);
}

QString lineOf(const vxE::_wedgeFact& wedge) {
    return QStringLiteral("%1  repeats %2, variants: %3")
        .arg(wedge.node, wedge.driver, QString::number(wedge.variants));
}

template <class _list>
void addList(QLatin1String title, const _list& entries, _text& text) {
    if (entries.isEmpty()) return;
    text.heading(title);
    for (const auto& entry : entries) text.line(lineOf(entry));
}

void addFacts(const vxE::_explainedFacts& facts, _text& text) {
    text.heading(QStringLiteral("frames"));
    text.line(frameRangeLine(facts));
    addList(QLatin1String{"takes"}, facts.takes, text);
    addList(QLatin1String{"variables"}, facts.variables, text);
    addList(QLatin1String{"cameras"}, facts.cameras, text);
    addList(QLatin1String{"LOP nodes"}, facts.lops, text);
    addList(QLatin1String{"USD render settings"}, facts.usdRenderSettings, text);
    addList(QLatin1String{"wedges"}, facts.wedges, text);
    const auto left = facts.variableCount - facts.variables.size();
    if (left > 0) text.line(QStringLiteral("(variables that are not shown: %1)").arg(left));
}

// ---- sections

/// A row of the tables of sections.
struct _sectionRow {
    qint64 line;
    qint64 byte;
    QString kind;  // the reader, or the node's type
    QString node;
    QString outcome;
};

QList<_sectionRow> rowsOf(const QList<vxE::_explainedSection>& sections) {
    QList<_sectionRow> rows;
    for (const auto& section : sections) {
        const QString copies =
            section.copies.isEmpty() ? QString() : QStringLiteral(" (and copies: %1)").arg(section.copies.size());
        rows.append(
            {section.line, section.byte, vxE::wordsOf(section.reader).name, section.node, section.text + copies});
    }
    return rows;
}

QList<_sectionRow> rowsOf(const QList<vxE::_unrecognisedSection>& sections) {
    QList<_sectionRow> rows;
    for (const auto& section : sections)
        rows.append({section.line, section.byte, section.type, section.node, section.text});
    return rows;
}

QString filledUp(const QString& text, int columns) {
    const QString harmless = printable(text);
    return harmless + QString(std::max(0, columns - columnsOf(harmless)), QLatin1Char(' '));
}

/// Widths of the columns before the outcome.
struct _widths {
    explicit _widths(const QList<_sectionRow>& rows) {
        for (const auto& row : rows) {
            line = std::max(line, static_cast<int>(QString::number(row.line).size()));
            kind = std::max(kind, columnsOf(printable(row.kind)));
            node = std::max(node, columnsOf(printable(row.node)));
        }
    }

    QString lineOf(const _sectionRow& row) const {
        return QStringLiteral("%1  %2  %3  %4  %5")
            .arg(QString::number(row.line).rightJustified(line), QString::number(row.byte).rightJustified(10),
                 filledUp(row.kind, kind), filledUp(row.node, node), row.outcome);
    }

    int line = 4;
    int kind = 6;
    int node = 4;
};

/// A value with its node where that is another one than the section's.
QString resolvedLine(const vxE::_explainedSection& section, const vxP::_resolvedValue& value) {
    const QString name = value.node == section.node ? value.parameter : value.node + QLatin1Char('/') + value.parameter;
    return valueLine({name, value.expression, value.stored, value.value, value.reason});
}

void addSections(const QList<vxE::_explainedSection>& sections, _text& text) {
    if (sections.isEmpty()) return;
    const auto rows = rowsOf(sections);
    const _widths widths{rows};
    text.heading(QStringLiteral("sections: line, byte, reader, node, outcome"));
    auto row = rows.begin();
    for (const auto& section : sections) {
        const QString line = widths.lineOf(*row++);
        const QString indent(widths.line + 14, QLatin1Char(' '));
        if (isSkippedDriver(section)) {
            text.marked(line);
            for (const auto& detail : section.details) text.line(indent + detail);
        } else {
            text.line(line);
        }
        for (const auto& value : section.resolved) text.line(indent + resolvedLine(section, value));
    }
}

void addNotRecognised(const QList<vxE::_unrecognisedSection>& sections, _text& text) {
    if (sections.isEmpty()) return;
    const auto rows = rowsOf(sections);
    const _widths widths{rows};
    text.heading(QStringLiteral("not recognised, though they look like drivers: line, byte, type, node, reason"));
    for (const auto& row : rows) text.marked(widths.lineOf(row));
}

void addWarnings(const QList<vxE::_warning>& warnings, _text& text) {
    if (warnings.isEmpty()) return;
    text.heading(QStringLiteral("warnings"));
    for (const auto& warning : warnings)
        text.marked((warning.node.isEmpty() ? QString() : warning.node + QLatin1String(": ")) + warning.text);
}

}  // namespace

QString explanationText(const _explainedScene& scene, const _terminal& terminal) {
    const auto& explanation = scene.explanation;
    if (!explanation.isSceneRead) return {};
    _text text(terminal);
    text.lines.append(sceneSummary(scene));
    addFacts(explanation.facts, text);
    addSections(explanation.sections, text);
    addNotRecognised(explanation.notRecognised, text);
    addWarnings(explanation.warnings, text);
    return text.lines.join(QLatin1Char('\n')) + QLatin1Char('\n') + resolvingText(scene);
}

}  // namespace vxH
