#include "host/engines/taskWords.h"

#include <algorithm>
#include <array>

#include "shared/vxString.h"

namespace vxH {
namespace {

constexpr int mostDigits = 20;
constexpr QLatin1Char open{'['};
constexpr QLatin1Char close{']'};
constexpr QLatin1String frameMark{"<FN"};  // with its digits and ">" in texts of jobs

struct _valueName {
    QLatin1String name;
    _taskValue value;
};
constexpr std::array valueNames{
    _valueName{QLatin1String{"First"}, _taskValue::first},
    _valueName{QLatin1String{"Last"}, _taskValue::last},
    _valueName{QLatin1String{"Step"}, _taskValue::step},
    _valueName{QLatin1String{"Frame"}, _taskValue::frame},
};

/// "Frame:4" and "Frame"; none: no value of a task, or no number of digits that it can have.
std::optional<_patternPiece> valueNamed(const QString& name) {
    const auto colon = name.indexOf(QLatin1Char(':'));
    const QString word = colon < 0 ? name : name.left(colon);
    const auto found =
        std::find_if(valueNames.begin(), valueNames.end(), [&](const auto& row) { return row.name == word; });
    if (found == valueNames.end()) return std::nullopt;
    bool isNumber = colon < 0;
    const int digits = isNumber ? 0 : name.mid(colon + 1).toInt(&isNumber);
    if (!isNumber || digits < 0 || digits > mostDigits) return std::nullopt;
    return _patternPiece{{}, false, found->value, digits};
}

/// Of a value of the task or a text of the job; none: there is nothing of that name.
std::optional<_patternPiece> pieceNamed(const QString& name, const std::function<bool(const QString&)>& isJobText) {
    const auto value = valueNamed(name);
    return value || !isJobText(name) ? value : _patternPiece{name, true};
}

/// @param end  of the name; -1: there is none
QString problemOfBracket(const QString& word, vxS::_size at, vxS::_size end) {
    if (end < 0) return QStringLiteral("\"%1\" has a \"[\" without its \"]\" (a \"[\" itself is \"[[\")").arg(word);
    return QStringLiteral("\"[%1]\" is no variable of a job or task").arg(word.mid(at + 1, end - at - 1));
}

void appendText(_taskWord& word, const QString& text) {
    if (text.isEmpty()) return;
    if (word.empty() || word.back().value != _taskValue::none) word.emplace_back();
    word.back().text += text;
}

/// Appends a text of a job with values of the task for its frame marks.
void appendJobText(_taskWord& word, const QString& text) {
    vxS::_size done = 0;
    for (auto mark = text.indexOf(frameMark); mark >= 0; mark = text.indexOf(frameMark, mark + 1)) {
        const auto end = text.indexOf(QLatin1Char('>'), mark);
        const auto digitsAt = mark + frameMark.size();
        bool isNumber = false;
        const int digits = end < 0 ? 0 : text.mid(digitsAt, end - digitsAt).toInt(&isNumber);
        if (!isNumber || digits < 0 || digits > mostDigits) continue;
        appendText(word, text.mid(done, mark - done));
        word.push_back({{}, _taskValue::frame, digits});
        done = end + 1;
    }
    appendText(word, text.mid(done));
}

}  // namespace

_wordPattern readPattern(const QString& word, const std::function<bool(const QString&)>& isJobText, QString& problem) {
    _wordPattern pattern{{}};
    vxS::_size at = 0;
    while (at < word.size()) {
        const bool isBracket = word.at(at) == open;
        const bool isDoubled = isBracket && at + 1 < word.size() && word.at(at + 1) == open;
        if (!isBracket || isDoubled) {
            pattern.back().text += word.at(at);
            at += isDoubled ? 2 : 1;
            continue;
        }
        const auto end = word.indexOf(close, at);
        const auto piece = end < 0 ? std::nullopt : pieceNamed(word.mid(at + 1, end - at - 1), isJobText);
        if (!piece) {
            problem = problemOfBracket(word, at, end);
            return {};
        }
        pattern.push_back(*piece);
        pattern.emplace_back();
        at = end + 1;
    }
    return pattern;
}

_taskWord fillIn(const _wordPattern& pattern, const std::function<QString(const QString&)>& textOf) {
    _taskWord word;
    for (const auto& piece : pattern) {
        if (piece.value != _taskValue::none) {
            word.push_back({{}, piece.value, piece.digits});
        } else if (piece.isName) {
            appendJobText(word, textOf(piece.text));
        } else {
            appendText(word, piece.text);
        }
    }
    return word;
}

bool namesAFrame(const _taskWord& word) {
    return std::any_of(word.begin(), word.end(), [](const auto& piece) { return piece.value == _taskValue::frame; });
}

std::optional<QString> plainText(const _taskWord& word) {
    const auto isText = [](const _wordPiece& piece) { return piece.value == _taskValue::none; };
    if (!std::all_of(word.begin(), word.end(), isText)) return std::nullopt;
    return word.empty() ? QString{} : word.front().text;
}

}  // namespace vxH
