#include "input/sceneLine.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <span>

#include "input/sceneTexts.h"
#include "jobs/renderers.h"

namespace vxP {

namespace {

constexpr std::string_view archiveMagic{"Hou"};  ///< the header of an archive entry stands on its first line

constexpr std::string_view outRoot{"out/"};
constexpr std::string_view objRoot{"obj/"};
constexpr std::array<std::string_view, 3> markedRoots{objRoot, "img/", "stage/"};

consteval std::size_t numberOfNodeTypes() {
    std::size_t number = 0;
    for (const _renderer& renderer : renderers)
        for (const _nodeTypeMark& mark : renderer.nodeTypes) number += mark.part.empty() ? 0 : 1;
    return number;
}

/// Of all renderers.
consteval auto allNodeTypeMarks() {
    std::array<_nodeTypeMark, numberOfNodeTypes()> marks{};
    std::size_t next = 0;
    for (const _renderer& renderer : renderers)
        for (const _nodeTypeMark& mark : renderer.nodeTypes)
            if (!mark.part.empty()) marks[next++] = mark;
    return marks;
}

constexpr auto nodeTypeMarks = allNodeTypeMarks();

// ---- the same tests for bytes and for decoded text

constexpr char16_t folded(char letter) {
    return static_cast<char16_t>(letter >= 'A' && letter <= 'Z' ? letter - 'A' + 'a' : letter);
}

char16_t folded(char16_t letter) {
    return letter < 128 ? folded(static_cast<char>(letter)) : QChar(letter).toCaseFolded().unicode();
}

constexpr std::array<bool, 128> secondLettersOf(std::span<const _nodeTypeMark> marks) {
    std::array<bool, 128> letters{};
    for (const _nodeTypeMark& mark : marks) letters[folded(mark.part[1])] = true;
    return letters;
}

constexpr auto secondLetters = secondLettersOf(nodeTypeMarks);

template <typename Char>
using _text = std::basic_string_view<Char>;

template <typename Char>
bool beginsExactly(_text<Char> text, std::string_view part) {
    return text.size() >= part.size() &&
           std::equal(part.begin(), part.end(), text.begin(), [](char a, Char b) { return Char(a) == b; });
}

template <typename Char>
bool begins(_text<Char> text, std::string_view part) {
    return text.size() >= part.size() &&
           std::equal(part.begin(), part.end(), text.begin(), [](char a, Char b) { return folded(a) == folded(b); });
}

template <typename Char>
bool has(_text<Char> text, std::string_view part) {
    const Char first = Char(part.front());
    for (auto at = text.find(first); at != text.npos; at = text.find(first, at + 1))
        if (beginsExactly(text.substr(at), part)) return true;
    return false;
}

template <typename Char>
bool hasInAnyCase(_text<Char> text, std::string_view part) {
    const char16_t first = folded(part.front());
    for (std::size_t at = 0; at < text.size(); ++at)
        if (folded(text[at]) == first && begins(text.substr(at), part)) return true;
    return false;
}

/// The command, not a parameter of that name: parameters hold a flags group behind a TAB.
template <typename Char>
bool isFrameRange(_text<Char> line) {
    if (!begins(line, frameRangeCommand)) return false;
    const _text<Char> rest = line.substr(frameRangeCommand.size());
    return !rest.empty() && QChar(char16_t(rest.front())).isSpace() && !beginsExactly(rest, "\t[");
}

template <typename Char>
bool isVariable(_text<Char> line) {
    return (begins(line, variableCommand) || begins(line, archiveMagic)) && hasInAnyCase(line, variableCommand) &&
           has(line, assignment);
}

/// The marks that a line may not be told by, as it holds what rules them out. Looked for once, not at every mark.
template <typename Char>
std::bitset<nodeTypeMarks.size()> ruledOut(_text<Char> line) {
    std::bitset<nodeTypeMarks.size()> marks;
    for (std::size_t row = 0; row < nodeTypeMarks.size(); ++row)
        marks[row] = !nodeTypeMarks[row].unless.empty() && hasInAnyCase(line, nodeTypeMarks[row].unless);
    return marks;
}

/// True when some mark has this second letter: few places of a line need a closer look.
template <typename Char>
bool mayBeMark(_text<Char> text) {
    return text.size() >= 2 && folded(text[1]) < secondLetters.size() && secondLetters[folded(text[1])];
}

template <typename Char>
bool hasNodeTypeMark(_text<Char> line) {
    const auto without = ruledOut(line);
    const auto isMark = [&](_text<Char> text) {
        for (std::size_t row = 0; row < nodeTypeMarks.size(); ++row)
            if (!without[row] && begins(text, nodeTypeMarks[row].part)) return true;
        return false;
    };
    for (std::size_t at = 0; at < line.size(); ++at)
        if ((line[at] == '/' || line[at] == '_') && mayBeMark(line.substr(at)) && isMark(line.substr(at))) return true;
    return false;
}

template <typename Char>
bool hasMarkedRoot(_text<Char> line) {
    return std::any_of(markedRoots.begin(), markedRoots.end(),
                       [&](std::string_view root) { return hasInAnyCase(line, root); });
}

template <typename Char>
bool isOutput(_text<Char> line) {
    return has(line, outRoot) || (hasMarkedRoot(line) && hasNodeTypeMark(line));
}

template <typename Char>
bool isWedge(_text<Char> line) {
    return has(line, "wedge") && (has(line, outRoot) || (has(line, objRoot) && has(line, "/wedge")));
}

template <typename Char>
bool isCamera(_text<Char> line) {
    return (has(line, "/cam") || has(line, "stereocam")) && (has(line, outRoot) || has(line, objRoot));
}

template <typename Char>
_lineKind sectionKind(_text<Char> header) {
    if (isWedge(header)) return _lineKind::wedge;
    if (isCamera(header)) return _lineKind::camera;
    if (!isOutput(header)) return _lineKind::other;
    if (has(header, renderSettingsNode)) return _lineKind::usdRenderSettings;
    return has(header, prmanNode) ? _lineKind::lop : _lineKind::outNode;
}

template <typename Char>
_lineKind kindOf(_text<Char> line) {
    if (hasInAnyCase(line, saveVersionName)) return _lineKind::saveVersion;
    if (beginsExactly(line, takeCommand)) return _lineKind::take;
    return line.back() == '{' && has(line, sectionSuffix) ? sectionKind(line) : _lineKind::other;
}

template <typename Char>
_sceneLine classify(_text<Char> line) {
    if (line.empty() || line.front() == '#') return {};
    const _lineKind kind = kindOf(line);
    return {isFrameRange(line), kind != _lineKind::saveVersion && isVariable(line), kind};
}

std::u16string_view wide(const QString& line) {
    return {reinterpret_cast<const char16_t*>(line.utf16()), static_cast<std::size_t>(line.size())};
}

}  // namespace

_sceneLine classifyLine(const QString& line) {
    const QByteArray bytes = line.toUtf8();
    const auto size = static_cast<std::size_t>(line.size());
    if (bytes.size() == line.size()) return classifyAsciiLine({bytes.constData(), size});
    return classify(wide(line));
}

_sceneLine classifyAsciiLine(std::string_view line) {
    return classify(line);
}

_notTakenReason whyNotTaken(const QString& header) {
    const std::u16string_view line = wide(header);
    if (line.empty() || line.front() == '#') return {_notTaken::comment, {}};
    if (hasInAnyCase(line, saveVersionName) || beginsExactly(line, takeCommand)) return {_notTaken::otherLine, {}};
    if (line.back() != '{') return {_notTaken::noHeader, {}};
    if (!hasMarkedRoot(line)) return {_notTaken::noRoot, {}};
    for (const _nodeTypeMark& mark : nodeTypeMarks)
        if (!mark.unless.empty() && hasInAnyCase(line, mark.part) && hasInAnyCase(line, mark.unless))
            return {_notTaken::ruledOut, QString(latin(mark.unless))};
    return {_notTaken::noMark, {}};
}

}  // namespace vxP
