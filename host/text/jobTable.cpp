// Columns, their widths, and the lines.
#include "host/text/jobTable.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

#include "host/base/displayText.h"
#include "host/results/jobCells.h"
#include "host/text/resolvingText.h"

namespace vxH {
namespace {

struct _row {
    const _job& job;
    const QString& scene;
    int number;  // from 1
};

struct _column {
    QLatin1String title;
    QString (*cell)(const _row&);
    QString (*elide)(QStringView, int columns);
    int rank;   // 0: the last to be left out and the first to get the room it needs
    int least;  // with fewer columns it is left out instead
    bool toTheRight;
    QLatin1String colour;
};

constexpr std::array columns{
    _column{QLatin1String{"#"}, [](const _row& row) { return QString::number(row.number); }, elideMiddle, 1, 2, true,
            QLatin1String{}},
    _column{QLatin1String{"driver"}, [](const _row& row) { return row.job.layer; }, elideMiddle, 0, 24, false,
            driverColour},
    _column{QLatin1String{"renderer"}, [](const _row& row) { return rendererCell(row.job); }, elidePath, 4, 10, false,
            QLatin1String{}},
    _column{QLatin1String{"frames"}, [](const _row& row) { return framesCell(row.job); }, elideMiddle, 3, 9, false,
            QLatin1String{}},
    _column{QLatin1String{"output"}, [](const _row& row) { return outputCell(row.job, row.scene); }, elidePath, 2, 20,
            false, QLatin1String{}},
    _column{QLatin1String{"camera"}, [](const _row& row) { return row.job.camera; }, elidePath, 7, 10, false,
            QLatin1String{}},
    _column{QLatin1String{"take"}, [](const _row& row) { return row.job.channel; }, elideMiddle, 6, 5, false,
            QLatin1String{}},
    _column{QLatin1String{"size"}, [](const _row& row) { return sizeCell(row.job); }, elideMiddle, 8, 9, false,
            QLatin1String{}},
    _column{QLatin1String{"waits for"}, [](const _row& row) { return waitsForCell(row.job); }, elideMiddle, 5, 9, false,
            QLatin1String{}},
};

constexpr int gap = 2;  // columns between two texts

using _cells = std::array<QString, columns.size()>;
using _widths = std::array<int, columns.size()>;  // 0: the column is left out

std::array<std::size_t, columns.size()> columnsByRank() {
    std::array<std::size_t, columns.size()> order;
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [](auto a, auto b) { return columns[a].rank < columns[b].rank; });
    return order;
}

int lineWidth(const _widths& widths) {
    int width = -gap;
    for (const int columnWidth : widths) width += columnWidth > 0 ? columnWidth + gap : 0;
    return width;
}

/// Widths at which the lines fit `room` columns, made from the widths that the texts need.
_widths fittedWidths(const _widths& needed, int room) {
    if (lineWidth(needed) <= room) return needed;
    const auto order = columnsByRank();
    _widths widths{};
    for (std::size_t i = 0; i < columns.size(); ++i) widths[i] = std::min(needed[i], columns[i].least);
    for (auto last = order.size() - 1; last > 0 && lineWidth(widths) > room; --last) widths[order[last]] = 0;
    if (lineWidth(widths) > room) widths[order.front()] = room;
    for (const auto i : order) {
        const int spare = room - lineWidth(widths);
        if (widths[i] > 0) widths[i] += std::clamp(needed[i] - widths[i], 0, spare);
    }
    return widths;
}

/// Widths that the texts need; a column without any text needs none where room is short.
_widths neededWidths(const std::vector<_cells>& lines, bool roomIsShort) {
    _widths widths{};
    for (const auto& cells : lines) {
        for (std::size_t i = 0; i < columns.size(); ++i) widths[i] = std::max(widths[i], columnsOf(cells[i]));
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (widths[i] > 0 || !roomIsShort) widths[i] = std::max(widths[i], columnsOf(QString{columns[i].title}));
    }
    return widths;
}

_widths chosenWidths(const std::vector<_cells>& lines, int room) {
    const auto widths = neededWidths(lines, false);
    if (room == 0 || lineWidth(widths) <= room) return widths;
    return fittedWidths(neededWidths(lines, true), room);
}

QString tableLine(const _cells& cells, const _widths& widths, bool colour) {
    QString line;
    int blanks = 0;  // due before the next text, so that no line ends with blanks
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (widths[i] == 0) continue;
        const QString text = columns[i].elide(cells[i], widths[i]);
        const int missing = widths[i] - columnsOf(text);
        if (columns[i].toTheRight) blanks += missing;
        if (!text.isEmpty()) {
            line += QString{blanks, QLatin1Char(' ')} + coloured(text, colour ? columns[i].colour : QLatin1String{});
            blanks = 0;
        }
        blanks += (columns[i].toTheRight ? 0 : missing) + gap;
    }
    return line;
}

std::vector<_cells> jobLines(const _sceneResult& result) {
    std::vector<_cells> lines;
    for (const auto& job : result.jobs) {
        const _row row{job, result.scene, static_cast<int>(lines.size()) + 1};
        auto& cells = lines.emplace_back();
        for (std::size_t i = 0; i < columns.size(); ++i) cells[i] = printable(columns[i].cell(row));
    }
    return lines;
}

_cells titles() {
    _cells cells;
    for (std::size_t i = 0; i < columns.size(); ++i) cells[i] = columns[i].title;
    return cells;
}

/// Renderers put their own version into their jobs: only Houdini's own jobs have the scene's.
QString houdiniVersion(const std::vector<_job>& jobs) {
    const auto own =
        std::find_if(jobs.begin(), jobs.end(), [](const _job& job) { return job.app == QLatin1String{"Houdini"}; });
    if (own == jobs.end()) return {};
    return QStringLiteral("Houdini %1.%2, ").arg(own->appVersionMajor).arg(own->appVersionMinor);
}

QString jobCountText(std::size_t count) {
    if (count == 0) return QStringLiteral("no jobs");
    return count == 1 ? QStringLiteral("1 job") : QStringLiteral("%1 jobs").arg(count);
}

}  // namespace

QString sceneSummary(const _sceneResult& result) {
    return printable(result.scene + QLatin1String{": "} + houdiniVersion(result.jobs) +
                     jobCountText(result.jobs.size()));
}

QStringList jobTable(const _sceneResult& result, const _terminal& terminal) {
    const auto lines = jobLines(result);
    if (lines.empty()) return {};
    const auto widths = chosenWidths(lines, terminal.width);
    const QString heading = tableLine(titles(), widths, false);
    QStringList table{coloured(heading, terminal.colour ? headingColour : QLatin1String{})};
    for (const auto& cells : lines) table += tableLine(cells, widths, terminal.colour);
    return table;
}

QString jobText(const _sceneResult& result, const _terminal& terminal) {
    const QString hint = resolvingText(result);
    const bool failedWithoutJobs = !result.isLoaded() && result.jobs.empty();
    if (failedWithoutJobs && hint.isEmpty()) return {};  // its line on the error stream says all
    const auto lines = QStringList{sceneSummary(result)} + jobTable(result, terminal);
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n') + hint;
}

}  // namespace vxH
