// Results of scenes on the standard output, one after the other, in one of three formats.
#pragma once

#include <QJsonObject>
#include <QString>
#include <functional>

#include "host/base/terminal.h"

namespace vxH {

enum class _format { table, json, jsonl };

/// Member of every JSON object that is printed, and its value: docs/schema/README.md says what raises it.
constexpr QLatin1String formatVersionKey{"formatVersion"};
constexpr int formatVersion = 1;

/// An object as text without a line end, with the version of the format.
QString jsonText(QJsonObject object, bool indented);

/// Makes lines for people of a result, each with its line end; none where its error says all.
using _resultTable = std::function<QString(const QJsonObject& result, const _terminal& terminal)>;

/// A result in its format, as `_resultOutput` takes it.
QByteArray resultText(const QJsonObject& result, _format format, const _resultTable& table, const _terminal& terminal);

/// Prints each result as soon as it is there, in one piece. As JSON the results are one list; as JSON lines one line
/// each.
class _resultOutput {
 public:
    explicit _resultOutput(_format chosenFormat) : format(chosenFormat) {}

    /// @return false when it cannot be written (see `writeAll`)
    bool print(const QByteArray& text);
    /// Ends the output after the last result.
    bool finish();

 private:
    _format format;
    bool isFirst = true;
};

}  // namespace vxH
