// Results of scenes on the standard output, one after the other, in a format of a command's choice.
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <vector>

#include "host/base/terminal.h"
#include "host/commands/command.h"
#include "host/results/explainedScene.h"

namespace vxH {

/// What is printed around results.
struct _frame {
    const char* begin;
    const char* between;
    const char* afterEach;
    const char* end;
    const char* withoutAny;
};
constexpr _frame paragraphs{"", "\n", "", "", ""};
constexpr _frame jsonList{"[\n", ",\n", "", "\n]\n", "[]\n"};
constexpr _frame lines{"", "", "\n", "", ""};

/// A way to print results.
template <class _scene>
struct _formatOf {
    const char* word;  ///< as `--format` takes it
    _frame frame;
    /// A result, with its line ends; empty where its error says all.
    std::function<QString(const _scene& scene, const _terminal& terminal)> text;
};
using _resultFormat = _formatOf<_explainedScene>;

/// "json" and "jsonl": all members of results, as one list or one line each.
_resultFormat jsonFormat();
_resultFormat jsonLinesFormat();

/// `--format`; without it the first one is chosen. Formats and choice have to outlive the command.
template <class _scene>
_option formatOption(const std::vector<_formatOf<_scene>>& formats, const _formatOf<_scene>*& chosen,
                     const char* description) {
    chosen = &formats.front();
    std::vector<std::string> words;
    words.reserve(formats.size());
    for (const auto& format : formats) words.emplace_back(format.word);
    return wordOption(
        "-f,--format", words, [&formats, &chosen](std::size_t place) { chosen = &formats[place]; }, description);
}

/// Prints each result as soon as it is there, in one piece.
class _resultOutput {
 public:
    explicit _resultOutput(const _frame& formatFrame) : frame(formatFrame) {}

    /// @return false when it cannot be written (see `writeAll`)
    bool print(const QByteArray& text);
    /// Ends the output after the last result.
    bool finish();

 private:
    const _frame& frame;
    bool isFirst = true;
};

}  // namespace vxH
