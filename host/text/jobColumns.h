// The columns of the table of jobs: the one list of them.
#pragma once

#include <QString>
#include <vector>

#include "host/results/jobFields.h"

namespace vxH {

struct _jobRow {
    const _job& job;
    const QString& scene;  ///< absolute path
    int number;            ///< from 1
};

struct _jobColumn {
    QLatin1String name;  ///< as `--columns` takes it
    QLatin1String title;
    QString (*cell)(const _jobRow& row);  ///< null: the value of `field`
    bool (*isOdd)(const _job& job);       ///< null: no value is
    QString (*elide)(QStringView, int columns);
    int enough;  ///< columns of the terminal in which its texts say most
    int least;   ///< in which they still say something
    int rank;    ///< 0: the last to be left out
    bool toTheRight;
    bool mayBeSaidOnce;  ///< above the table, where all rows have the same; may go to make room for names
    QLatin1String colour;
    const _jobField* field = nullptr;

    QString textOf(const _jobRow& row) const;
};

constexpr QLatin1String numberColumn{"number"};
constexpr QLatin1String driverColumn{"driver"};
constexpr QLatin1String outputColumn{"output"};

/// Those of a table for which none are named.
std::vector<_jobColumn> usualJobColumns();

/// "number, driver, renderer, ..."
QString usualColumnNames();

/// The columns of such names, "driver,frames,imageWidth": the usual ones, and any field of a job.
/// @return what is wrong with the names, with those that there are; empty: nothing
QString findJobColumns(const QString& names, std::vector<_jobColumn>& columns);

}  // namespace vxH
