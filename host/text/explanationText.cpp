#include "host/text/explanationText.h"

#include <QHash>
#include <QStringList>
#include <algorithm>
#include <array>

#include "host/base/displayText.h"
#include "host/text/jobTable.h"
#include "host/text/resolvingText.h"
#include "host/text/valueLine.h"

namespace vxH {
namespace {

constexpr int indent = 2;
constexpr int hangingIndent = 4;
constexpr int leastOutcome = 30;  ///< columns beside the node; with fewer the outcome has lines of its own

QString blanks(int count) {
    return QString(count, QLatin1Char(' '));
}

/// Lines of text that fit the terminal, and how to set them off.
class _text {
 public:
    explicit _text(const _terminal& outputTerminal) : terminal(outputTerminal) {}

    QStringList lines;

    int width() const { return terminal.width; }
    void heading(const QString& title) {
        lines.append(QString());
        add(title, headingColour, indent);
    }
    void line(const QString& text, int hanging = hangingIndent) { add(blanks(indent) + text, {}, hanging); }
    void marked(const QString& text, int hanging = hangingIndent) { add(blanks(indent) + text, markedColour, hanging); }

 private:
    void add(const QString& text, QLatin1String colour, int hanging) {
        const auto parts = wrapped(printable(text), terminal.width, hanging);
        for (const auto& part : parts) lines.append(coloured(part, terminal.colour ? colour : QLatin1String{}));
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
    QString line;
    QString kind;  // the reader, or the node's type
    QString node;
    QString outcome;
    QStringList details;
};

/// A value with its node where that is another one than the section's.
QString resolvedLine(const vxE::_explainedSection& section, const vxP::_resolvedValue& value) {
    const QString name = value.node == section.node ? value.parameter : value.node + QLatin1Char('/') + value.parameter;
    return valueLine({name, value.expression, value.stored, value.value, value.reason});
}

_sectionRow rowOf(const vxE::_explainedSection& section) {
    const QString copies =
        section.copies.isEmpty() ? QString() : QStringLiteral(" (and copies: %1)").arg(section.copies.size());
    QStringList details = isSkippedDriver(section) ? section.details : QStringList();
    for (const auto& value : section.resolved) details.append(resolvedLine(section, value));
    return {QString::number(section.line), section.readerName, section.node, section.text + copies, details};
}

_sectionRow rowOf(const vxE::_unrecognisedSection& section) {
    return {QString::number(section.line), section.type, section.node, QString(), {}};
}

/// Rows with columns of the same widths; the outcome is the last, with a hanging indent.
class _sectionTable {
 public:
    /// @param hasKinds  otherwise all are of the same kind, and it is not shown
    _sectionTable(const QList<_sectionRow>& tableRows, bool hasKinds, int room) : rows(tableRows) {
        for (const auto& row : rows) {
            line = std::max(line, columnsOf(row.line));
            if (hasKinds) kind = std::max(kind, columnsOf(printable(row.kind)));
            node = std::max(node, columnsOf(printable(row.node)));
        }
        isStacked = room > 0 && indent + outcomeColumn() + leastOutcome > room;
    }

    void addTo(_text& text, bool areMarked) const {
        for (const auto& row : rows) {
            addRow(row, text, areMarked);
            for (const auto& detail : row.details)
                text.line(blanks(nodeColumn()) + detail, indent + nodeColumn() + hangingIndent);
        }
    }

 private:
    void addRow(const _sectionRow& row, _text& text, bool isMarked) const {
        const auto add = [&](const QString& rowText, int hanging) {
            isMarked ? text.marked(rowText, indent + hanging) : text.line(rowText, indent + hanging);
        };
        QString start = row.line.rightJustified(line) + gap;
        if (kind > 0) start += filledUp(printable(row.kind), kind) + gap;
        if (!isStacked && !row.outcome.isEmpty())
            return add(start + filledUp(printable(row.node), node) + gap + row.outcome, outcomeColumn());
        add(start + row.node, line + gapColumns);
        if (!row.outcome.isEmpty()) add(blanks(nodeColumn()) + row.outcome, nodeColumn() + hangingIndent);
    }

    /// Where nodes and outcomes begin, behind the indent of all lines.
    int nodeColumn() const { return line + gapColumns + (kind > 0 ? kind + gapColumns : 0); }
    int outcomeColumn() const { return nodeColumn() + node + gapColumns; }

    static constexpr int gapColumns = 2;
    inline static const QString gap = blanks(gapColumns);

    const QList<_sectionRow>& rows;
    int line = 4;
    int kind = 0;
    int node = 4;
    bool isStacked = false;
};

using _isWanted = bool (*)(const vxE::_explainedSection&);

bool gaveJobs(const vxE::_explainedSection& section) {
    return section.outcome == vxE::_outcomeKind::jobs;
}

/// Readers are told where one of them is not that of drivers.
void addSections(QLatin1String title, QLatin1String outcome, const QList<vxE::_explainedSection>& sections,
                 _isWanted isWanted, _text& text) {
    QList<_sectionRow> rows;
    bool hasReaders = false;
    for (const auto& section : sections) {
        if (!isWanted(section)) continue;
        rows.append(rowOf(section));
        hasReaders = hasReaders || section.reader != vxP::_sectionReader::driver;
    }
    if (rows.isEmpty()) return;
    text.heading(title + QLatin1String(": line, ") + (hasReaders ? QLatin1String("reader, ") : QLatin1String()) +
                 QLatin1String("node, ") + outcome);
    _sectionTable(rows, hasReaders, text.width()).addTo(text, isWanted == isSkippedDriver);
}

/// Each reason once, with the nodes for which it holds.
void addNotRecognised(const QList<vxE::_unrecognisedSection>& sections, _text& text) {
    if (sections.isEmpty()) return;
    QStringList reasons;
    QHash<QString, QList<_sectionRow>> rows;
    for (const auto& section : sections) {
        if (!rows.contains(section.text)) reasons.append(section.text);
        rows[section.text].append(rowOf(section));
    }
    text.heading(QStringLiteral("not recognised, though they look like drivers: line, type, node"));
    for (const auto& reason : reasons) {
        text.line(reason + QLatin1Char(':'));
        _sectionTable(rows[reason], true, text.width()).addTo(text, true);
    }
}

/// A kind of sections that are left out, in words.
struct _asideWords {
    _isWanted isMeant;
    QLatin1String one;
    QLatin1String several;
};

constexpr std::array asideWords{
    // first match wins
    _asideWords{[](const vxE::_explainedSection& section) { return section.outcome == vxE::_outcomeKind::kept; },
                QLatin1String{"section that was kept for drivers to use"},
                QLatin1String{"sections that were kept for drivers to use"}},
    _asideWords{[](const vxE::_explainedSection& section) { return section.reader == vxP::_sectionReader::camera; },
                QLatin1String{"inner node of a camera"}, QLatin1String{"inner nodes of cameras"}},
    _asideWords{[](const vxE::_explainedSection&) { return true; },
                QLatin1String{"node outside out/ without frames and output"},
                QLatin1String{"nodes outside out/ without frames and output"}},
};

void addLeftOut(const QList<vxE::_explainedSection>& sections, _text& text) {
    std::array<qint64, asideWords.size()> counts{};
    for (const auto& section : sections) {
        if (!isAside(section)) continue;
        const auto found = std::find_if(asideWords.begin(), asideWords.end(),
                                        [&](const auto& words) { return words.isMeant(section); });
        ++counts[static_cast<std::size_t>(found - asideWords.begin())];
    }
    QStringList texts;
    for (std::size_t i = asideWords.size(); i-- > 0;)
        if (counts[i] > 0)
            texts.append(QString::number(counts[i]) + QLatin1Char(' ') +
                         (counts[i] == 1 ? asideWords[i].one : asideWords[i].several));
    if (texts.isEmpty()) return;
    text.lines.append(QString());
    text.line(QLatin1String("not shown (--all shows them): ") + joined(texts));
}

void addAllSections(const _explainedScene& scene, bool everySection, _text& text) {
    const auto& sections = scene.explanation.sections;
    addSections(QLatin1String("drivers with jobs"), QLatin1String("jobs"), sections, gaveJobs, text);
    addSections(QLatin1String("without a job"), QLatin1String("reason"), sections, isSkippedDriver, text);
    if (scene.filter.parts().missing) addNotRecognised(scene.explanation.notRecognised, text);
    if (everySection)
        addSections(QLatin1String("others"), QLatin1String("outcome"), sections, isAside, text);
    else
        addLeftOut(sections, text);
}

void addWarnings(const QList<vxE::_warning>& warnings, _text& text) {
    if (warnings.isEmpty()) return;
    text.heading(QStringLiteral("warnings"));
    for (const auto& warning : warnings)
        text.marked((warning.node.isEmpty() ? QString() : warning.node + QLatin1String(": ")) + warning.text);
}

}  // namespace

QString explanationText(const _explainedScene& scene, bool everySection, const _terminal& terminal) {
    const auto& explanation = scene.explanation;
    if (!explanation.isSceneRead) return {};
    _text text(terminal);
    text.lines.append(sceneSummary(scene));
    const auto parts = scene.filter.parts();
    if (parts.anySections()) addAllSections(scene, everySection, text);
    if (parts.warnings) addWarnings(explanation.warnings, text);
    if (parts.facts) addFacts(explanation.facts, text);
    if (text.lines.size() == 1) text.line(QStringLiteral("nothing of what was asked for"));
    const QString hint = resolvingText(scene, terminal.width);
    if (!hint.isEmpty()) text.lines.append(QString());
    return text.lines.join(QLatin1Char('\n')) + QLatin1Char('\n') + hint;
}

}  // namespace vxH
