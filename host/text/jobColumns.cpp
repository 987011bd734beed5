#include "host/text/jobColumns.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>
#include <algorithm>
#include <array>

#include "host/base/displayText.h"
#include "host/results/jobCells.h"

namespace vxH {
namespace {

constexpr QLatin1String noColour{};

/// Frames, renderers and sizes are cut only where they are longer than any that a scene is known to have.
constexpr std::array usualColumns{
    _jobColumn{numberColumn, QLatin1String{"#"}, [](const _jobRow& row) { return QString::number(row.number); },
               nullptr, elideMiddle, 7, 7, 1, true, false, noColour},
    _jobColumn{driverColumn, QLatin1String{"driver"}, [](const _jobRow& row) { return row.job.layer; }, nullptr,
               elidePath, 18, 12, 0, false, false, driverColour},
    _jobColumn{QLatin1String{"renderer"}, QLatin1String{"renderer"},
               [](const _jobRow& row) { return rendererCell(row.job); }, nullptr, elidePath, 32, 32, 4, false, true,
               noColour},
    _jobColumn{QLatin1String{"frames"}, QLatin1String{"frames"}, [](const _jobRow& row) { return framesCell(row.job); },
               hasOddFrames, elideMiddle, 24, 24, 3, false, true, noColour},
    _jobColumn{outputColumn, QLatin1String{"output"}, [](const _jobRow& row) { return outputCell(row.job, row.scene); },
               hasOddOutput, elidePath, 30, 18, 2, false, false, noColour},
    _jobColumn{QLatin1String{"camera"}, QLatin1String{"camera"}, [](const _jobRow& row) { return row.job.camera; },
               nullptr, elidePath, 16, 10, 7, false, true, noColour},
    _jobColumn{QLatin1String{"take"}, QLatin1String{"take"}, [](const _jobRow& row) { return row.job.channel; },
               nullptr, elideMiddle, 12, 12, 6, false, true, noColour},
    _jobColumn{QLatin1String{"size"}, QLatin1String{"size"}, [](const _jobRow& row) { return sizeCell(row.job); },
               nullptr, elideMiddle, 11, 11, 8, false, true, noColour},
    _jobColumn{QLatin1String{"waitsFor"}, QLatin1String{"waits for"},
               [](const _jobRow& row) { return waitsForCell(row.job); }, nullptr, elideMiddle, 12, 12, 5, false, true,
               noColour},
};

constexpr int leastOfField = 12;

_jobColumn columnOf(const _jobField& field) {
    const auto rank = static_cast<int>(usualColumns.size());
    return {field.name,   field.name, nullptr, nullptr, elideMiddle, leastOfField,
            leastOfField, rank,       false,   false,   noColour,    &field};
}

template <class _entries>
QString namesOf(const _entries& entries) {
    QStringList names;
    for (const auto& entry : entries) names += entry.name;
    return names.join(QLatin1String{", "});
}

bool addColumn(const QString& name, std::vector<_jobColumn>& columns) {
    const auto isCalled = [&](const auto& entry) { return entry.name == name; };
    const auto usual = std::find_if(usualColumns.begin(), usualColumns.end(), isCalled);
    if (usual != usualColumns.end()) {
        columns.push_back(*usual);
        return true;
    }
    const auto fields = jobFields();
    const auto field = std::find_if(fields.begin(), fields.end(), isCalled);
    if (field != fields.end()) columns.push_back(columnOf(*field));
    return field != fields.end();
}

/// Texts as they are, everything else as JSON.
QString textOfValue(const QJsonValue& value) {
    if (value.isString()) return value.toString();
    const auto list = QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
    return list.mid(1, list.size() - 2);
}

}  // namespace

QString _jobColumn::textOf(const _jobRow& row) const {
    return cell != nullptr ? cell(row) : textOfValue(field->toJson(row.job));
}

std::vector<_jobColumn> usualJobColumns() {
    return {usualColumns.begin(), usualColumns.end()};
}

QString usualColumnNames() {
    return namesOf(usualColumns);
}

QString findJobColumns(const QString& names, std::vector<_jobColumn>& columns) {
    const auto list = names.split(QLatin1Char(','));
    for (const auto& name : list) {
        if (addColumn(name.trimmed(), columns)) continue;
        return QStringLiteral("\"%1\" is no column; there are %2, and the fields of a job: %3")
            .arg(name.trimmed(), usualColumnNames(), namesOf(jobFields()));
    }
    return {};
}

}  // namespace vxH
