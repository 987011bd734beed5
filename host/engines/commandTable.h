// Which command runs a task of a job: tables in files that people edit.
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/engines/taskWords.h"

namespace vxH {

/// What a row says of the jobs that it fits. docs/farm.md describes the file.
struct _commandRow {
    QString app;                    ///< of the job, or its beginning with a "*" behind it
    QString renderer;               ///< of the job, in the same way
    std::optional<bool> isOneFile;  ///< jobs that write one file for all frames, or those that do not
    std::optional<bool> isVariant;  ///< copies for a wedge, or all others
    qint64 framesPerTask = 1;       ///< 0: all frames
    std::vector<_wordPattern> command;
    std::vector<std::pair<QString, _wordPattern>> environment;
    int cores = 1;
    qint64 memoryMB = 0;
    int minutes = 0;
    QString licence;
};

/// The tables, each in the order of its rows: the first row that fits a job counts.
struct _commandTable {
    std::vector<_commandRow> rows;

    /// @return null where no row fits
    const _commandRow* rowFor(const _job& job, bool isVariant) const;
};

/// Adds the rows of a table behind those there are.
/// @param name  of the table, for what is wrong with it
/// @return what is wrong with it, in one line: "commands.toml:12: "comand" is no key"; empty: nothing
QString addCommands(const QByteArray& text, const QString& name, _commandTable& table);

/// The tables that hold here, in the order in which they count: the named file, the user's and the system's
/// `vxscene/commands.toml` where configuration lies, and the program's own.
/// @param file  empty: none is named
/// @return what is wrong with one of them; empty: nothing
QString readCommands(const std::string& file, _commandTable& table);

}  // namespace vxH
