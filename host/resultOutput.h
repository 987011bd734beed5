// Results of scenes on the standard output, one after the other, in one of three formats.
#pragma once

#include <QJsonObject>
#include <QString>

#include "host/terminal.h"

namespace vxH {

enum class _format { table, json, jsonl };

/// Prints each result as soon as it is there. As JSON the results are one list; as JSON lines one line each.
class _resultOutput {
 public:
    _resultOutput(_format chosenFormat, const _terminal& chosenTerminal)
        : format(chosenFormat), terminal(chosenTerminal) {}

    void print(const QJsonObject& result);
    /// Ends the output after the last result; without any result nothing is printed.
    void finish();

 private:
    void printTable(const QJsonObject& result) const;
    void printListElement(const QJsonObject& result) const;

    _format format;
    _terminal terminal;
    bool isFirst = true;
};

/// An object as text without a line end.
QString jsonText(const QJsonObject& object, bool indented);

}  // namespace vxH
