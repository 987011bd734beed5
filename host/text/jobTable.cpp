// What the table shows: cells, what is said once, and the lines. Widths are those of columnFit.
#include "host/text/jobTable.h"

#include <QSet>
#include <algorithm>

#include "host/base/displayText.h"
#include "host/text/columnFit.h"
#include "host/text/explanationNotes.h"
#include "host/text/resolvingText.h"
#include "host/text/sharedFolder.h"
#include "shared/vxPath.h"

namespace vxH {
namespace {

constexpr QLatin1Char mark{'!'};
constexpr int noteIndent = 2;
constexpr int firstRankOfNoWeight = 6;  ///< take, camera and size

struct _cell {
    QString text;
    bool isMarked = false;
};

/// The table on its way from whole cells to lines that fit.
class _table {
 public:
    _table(const _explainedScene& explainedScene, const _tableOptions& options, const _terminal& outputTerminal);

    QStringList lines();

 private:
    void addRow(const _job& job, int number);
    bool fits(const std::vector<_columnNeed>& needs) const;
    std::vector<_columnNeed> needs(bool roomIsShort) const;
    void fit();
    std::vector<int> fittedTo(const std::vector<_columnNeed>& wanted, int columnsOfAll) const;
    void giveUpForNames(std::vector<_columnNeed> wanted);
    qsizetype rowsThatLookDifferent(const std::vector<int>& shown) const;
    void shortenPaths(QLatin1String column, const QString& usualFolder);
    bool isSameInAllRows(std::size_t column) const;
    void saySharedValues();
    bool tellsRowsApart(const std::vector<int>& shown, std::size_t column) const;
    qsizetype distinctRows(const std::vector<int>& shown, std::size_t leftOut) const;
    QString titleLine() const;
    QString rowLine(const std::vector<_cell>& row) const;
    template <class _text>
    QString line(const _text& textAt) const;
    QString colourOf(const QString& text, QLatin1String colour) const;
    QString leftOutLine() const;

    const _explainedScene& scene;
    const _terminal& terminal;
    std::vector<_jobColumn> columns;
    bool hasUsualColumns;
    QSet<int> warned;  ///< numbers of jobs
    int room;
    std::vector<std::vector<_cell>> rows;
    QStringList saidOnce;
    std::vector<bool> isSaidOnce;  ///< of each column
    std::vector<int> widths;
    std::vector<int> needed;
};

_table::_table(const _explainedScene& explainedScene, const _tableOptions& options, const _terminal& outputTerminal)
    : scene{explainedScene},
      terminal{outputTerminal},
      columns{options.columns.empty() ? usualJobColumns() : options.columns},
      hasUsualColumns{options.columns.empty()},
      warned{warnedJobs(explainedScene)},
      room{options.isWide ? 0 : outputTerminal.width},
      isSaidOnce(columns.size(), false) {
    int number = 0;
    for (const auto& job : scene.jobs) addRow(job, ++number);
}

void _table::addRow(const _job& job, int number) {
    auto& row = rows.emplace_back();
    for (const auto& column : columns) {
        _cell cell{printable(column.textOf({job, scene.scene, number})), false};
        if (column.name == numberColumn && !warned.isEmpty()) {
            cell.isMarked = warned.contains(number);
            cell.text += cell.isMarked ? mark : QLatin1Char(' ');
        } else if (column.isOdd != nullptr && column.isOdd(job)) {
            cell = {mark + cell.text, true};
        }
        row.push_back(cell);
    }
}

// ---- widths

/// A column without any text needs no room where that is short.
std::vector<_columnNeed> _table::needs(bool roomIsShort) const {
    std::vector<_columnNeed> list;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        int width = 0;
        for (const auto& row : rows) width = std::max(width, columnsOf(row[i].text));
        const bool isShown = !isSaidOnce[i] && (width > 0 || !roomIsShort || !hasUsualColumns);
        const int title = columnsOf(QString{columns[i].title});
        const int rank = hasUsualColumns ? columns[i].rank : static_cast<int>(i);
        const bool hasWeight = !hasUsualColumns || rank < firstRankOfNoWeight;
        list.push_back({isShown ? std::max(width, title) : 0, std::max(columns[i].enough, title),
                        std::max(columns[i].least, title), rank, hasWeight});
    }
    return list;
}

bool _table::fits(const std::vector<_columnNeed>& columnNeeds) const {
    return room == 0 || lineWidth(neededWidths(columnNeeds)) <= room;
}

/// Nothing is lost as long as that is enough; what is left out then is told.
void _table::fit() {
    auto wanted = needs(false);
    if (!fits(wanted)) wanted = needs(true);
    if (!fits(wanted)) {
        shortenPaths(outputColumn, vxS::vxGetDirName(scene.scene, QLatin1Char('/')));
        wanted = needs(true);
    }
    if (!fits(wanted)) {
        shortenPaths(driverColumn, {});
        wanted = needs(true);
    }
    if (!fits(wanted) && hasUsualColumns) {
        saySharedValues();
        wanted = needs(true);
    }
    needed = neededWidths(wanted);
    widths = needed;
    if (fits(wanted)) return;
    if (hasUsualColumns) {
        widths = fittedTo(wanted, room);
        giveUpForNames(wanted);
        return;
    }
    std::vector<int> least;  // named columns are wanted, whatever room there is
    least.reserve(wanted.size());
    for (const auto& need : wanted) least.push_back(std::min(need.least, need.needed));
    widths = fittedTo(wanted, std::max(room, lineWidth(least)));
}

std::vector<int> _table::fittedTo(const std::vector<_columnNeed>& wanted, int columnsOfAll) const {
    return fittedWidths(wanted, columnsOfAll,
                        [this](const auto& shown, auto column) { return !tellsRowsApart(shown, column); });
}

/// Leaves out further columns as long as more rows differ by the names that then have their room.
void _table::giveUpForNames(std::vector<_columnNeed> wanted) {
    auto order = columnsByRank(wanted);
    std::reverse(order.begin(), order.end());
    for (const auto column : order) {
        if (widths[column] == 0 || !columns[column].mayBeSaidOnce) continue;
        auto fewer = wanted;
        fewer[column].needed = 0;
        const auto wider = fittedTo(fewer, room);
        if (rowsThatLookDifferent(wider) <= rowsThatLookDifferent(widths)) continue;
        wanted = fewer;
        widths = wider;
    }
}

qsizetype _table::rowsThatLookDifferent(const std::vector<int>& shown) const {
    QSet<QString> texts;
    for (const auto& row : rows) {
        QString text;
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (shown[i] > 0 && columns[i].name != numberColumn)
                text += columns[i].elide(row[i].text, shown[i]) + QLatin1Char('\n');
        texts.insert(text);
    }
    return texts.size();
}

// ---- what is said once

void _table::shortenPaths(QLatin1String name, const QString& usualFolder) {
    const auto found =
        std::find_if(columns.begin(), columns.end(), [&](const auto& column) { return column.name == name; });
    if (found == columns.end()) return;
    const auto at = static_cast<std::size_t>(found - columns.begin());
    QStringList paths;
    for (const auto& row : rows) paths += row[at].text;
    const auto folder = sharedFolder(paths, printable(usualFolder));
    if (folder.path.isEmpty()) return;
    for (auto& row : rows) row[at].text = withoutFolder(row[at].text, folder.path);
    saidOnce +=
        (folder.ofAll ? QStringLiteral("%1s in %2") : QStringLiteral("relative %1s in %2")).arg(name, folder.path);
}

bool _table::isSameInAllRows(std::size_t column) const {
    const auto& first = rows.front()[column].text;
    return !first.isEmpty() &&
           std::all_of(rows.begin(), rows.end(), [&](const auto& row) { return row[column].text == first; });
}

/// Beginning with the columns that matter least, until the others fit.
void _table::saySharedValues() {
    QStringList shared;
    auto order = columnsByRank(needs(true));
    std::reverse(order.begin(), order.end());
    for (const auto column : order) {
        if (fits(needs(true))) break;
        if (!columns[column].mayBeSaidOnce || !isSameInAllRows(column)) continue;
        isSaidOnce[column] = true;
        shared.prepend(columns[column].title + QLatin1Char(' ') + rows.front()[column].text);
    }
    saidOnce += shared;
}

// ---- which columns may go

/// How many rows differ by what is shown of them, beside their number.
qsizetype _table::distinctRows(const std::vector<int>& shown, std::size_t leftOut) const {
    QSet<QString> texts;
    for (const auto& row : rows) {
        QString text;
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (shown[i] > 0 && i != leftOut && columns[i].name != numberColumn)
                text += row[i].text + QLatin1Char('\n');
        texts.insert(text);
    }
    return texts.size();
}

bool _table::tellsRowsApart(const std::vector<int>& shown, std::size_t column) const {
    return distinctRows(shown, column) < distinctRows(shown, columns.size());
}

// ---- lines

QString _table::colourOf(const QString& text, QLatin1String colour) const {
    return coloured(text, terminal.colour ? colour : QLatin1String{});
}

/// Without blanks at its end.
/// @param textAt  gives the coloured text of a column, and its width
template <class _text>
QString _table::line(const _text& textAt) const {
    QString line;
    int blanks = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (widths[i] == 0) continue;
        const auto [text, colour] = textAt(i);
        const QString shown = columns[i].elide(text, widths[i]);
        const int missing = widths[i] - columnsOf(shown);
        if (columns[i].toTheRight) blanks += missing;
        if (!shown.isEmpty()) {
            line += QString{blanks, QLatin1Char(' ')} + colourOf(shown, colour);
            blanks = 0;
        }
        blanks += (columns[i].toTheRight ? 0 : missing) + columnGap;
    }
    return withoutEndBlanks(line);
}

QString _table::titleLine() const {
    const auto title = [this](std::size_t i) {
        const bool isBesideMarks = columns[i].name == numberColumn && !warned.isEmpty();
        return std::pair{columns[i].title + (isBesideMarks ? QLatin1String{" "} : QLatin1String{}), QLatin1String{}};
    };
    return colourOf(line(title), headingColour);
}

QString _table::rowLine(const std::vector<_cell>& row) const {
    return line([&](std::size_t i) {
        return std::pair{row[i].text, row[i].isMarked ? markedColour : columns[i].colour};
    });
}

/// "left out: camera, size; cut: output (--wide shows all)"; empty: the table is whole
QString _table::leftOutLine() const {
    QStringList leftOut;
    QStringList cut;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (widths[i] >= needed[i]) continue;
        (widths[i] == 0 ? leftOut : cut) += columns[i].title;
    }
    QStringList told;
    if (!leftOut.isEmpty()) told += QLatin1String{"left out: "} + leftOut.join(QLatin1String{", "});
    if (!cut.isEmpty()) told += QLatin1String{"cut: "} + cut.join(QLatin1String{", "});
    return told.isEmpty() ? QString{} : told.join(QLatin1String{"; "}) + QLatin1String{" (--wide shows all)"};
}

QStringList _table::lines() {
    fit();
    QStringList lines;
    if (!saidOnce.isEmpty()) lines += wrapped(saidOnce.join(QLatin1String{", "}), room, noteIndent);
    lines += titleLine();
    for (const auto& row : rows) lines += rowLine(row);
    if (const auto told = leftOutLine(); !told.isEmpty()) lines += wrapped(told, room, noteIndent);
    return lines;
}

/// Renderers put their own version into their jobs: only Houdini's own jobs have the scene's.
QString houdiniVersion(const std::vector<_job>& jobs) {
    const auto own =
        std::find_if(jobs.begin(), jobs.end(), [](const _job& job) { return job.app == QLatin1String{"Houdini"}; });
    if (own == jobs.end()) return {};
    return QStringLiteral("Houdini %1.%2, ").arg(own->appVersionMajor).arg(own->appVersionMinor);
}

QString jobCountText(std::size_t count) {
    return count == 0 ? QStringLiteral("no jobs") : counted(static_cast<qint64>(count), "job", "jobs");
}

/// The command goes on a line of its own where it would be broken.
QStringList explanationLines(const _explainedScene& scene, const _submitterArguments& submitter, int room) {
    const auto counts = explanationCounts(scene);
    if (counts.isEmpty()) return {};
    const auto command = explainCommandLine(scene.scene, submitter);
    const auto line = counts + QLatin1String{": "} + command;
    if (room == 0 || columnsOf(line) <= room) return {line};
    return wrapped(counts + QLatin1Char(':'), room, noteIndent) << QString(noteIndent, QLatin1Char(' ')) + command;
}

}  // namespace

QString sceneSummary(const _sceneResult& result) {
    return printable(result.scene + QLatin1String{": "} + houdiniVersion(result.jobs) +
                     (result.knowsItsJobs() && !result.isLoaded() ? result.error : jobCountText(result.jobs.size())));
}

QStringList jobTable(const _explainedScene& scene, const _tableOptions& options, const _terminal& terminal) {
    if (scene.jobs.empty()) return {};
    return _table{scene, options, terminal}.lines();
}

QString jobText(const _explainedScene& scene, const _submitterArguments& submitter, const _tableOptions& options,
                const _terminal& terminal) {
    const bool failedWithoutJobs = !scene.knowsItsJobs() && scene.jobs.empty();
    if (failedWithoutJobs) return {};  // its line on the error stream says all
    auto lines = QStringList{sceneSummary(scene)} + jobTable(scene, options, terminal);
    const auto notes = explanationLines(scene, submitter, options.isWide ? 0 : terminal.width);
    for (const auto& note : notes) lines += coloured(note, terminal.colour ? markedColour : QLatin1String{});
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n') +
           resolvingText(scene, options.isWide ? 0 : terminal.width);
}

}  // namespace vxH
