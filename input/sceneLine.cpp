#include "input/sceneLine.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <bitset>
#include <optional>
#include <span>

#include "input/sceneTexts.h"
#include "input/sectionKinds.h"
#include "jobs/renderers.h"

namespace vxP {

namespace {

constexpr std::string_view archiveMagic{"Hou"};  ///< an archive entry has its header on its first line

constexpr std::array markedRoots{viewOf(objRoot), viewOf(imgRoot), viewOf(stageRoot)};

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

/// The command, not a parameter of that name: parameters have a flags group after a TAB.
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

/// The marks that a line may not be told by, as it holds what rules them out.
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
    std::optional<std::bitset<nodeTypeMarks.size()>> without;  // looked for once, not at every mark
    const auto isRuledOut = [&](std::size_t row) {
        if (!without) without = ruledOut(line);
        return (*without)[row];
    };
    const auto isMark = [&](_text<Char> text) {
        for (std::size_t row = 0; row < nodeTypeMarks.size(); ++row)
            if (begins(text, nodeTypeMarks[row].part) && (nodeTypeMarks[row].unless.empty() || !isRuledOut(row)))
                return true;
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
    return has(line, viewOf(outRoot)) || (hasMarkedRoot(line) && hasNodeTypeMark(line));
}

/// The kind of the section that the header opens; null when no reader takes it.
template <typename Char>
const _sectionKind* sectionKind(_text<Char> header) {
    std::optional<bool> output;  // not cheap to tell
    const auto isAnOutput = [&] {
        if (!output) output = isOutput(header);
        return *output;
    };
    const auto isUnder = [&](std::span<const std::string_view> roots) {
        return std::any_of(roots.begin(), roots.end(), [&](std::string_view root) { return has(header, root); });
    };
    const auto isMarked = [&](const _headerMark& mark) {
        return (mark.part.empty() || has(header, mark.part)) &&
               (mark.roots.empty() ? isAnOutput() : isUnder(mark.roots));
    };
    for (const _sectionKind& kind : sectionKinds())
        if (std::any_of(kind.marks.begin(), kind.marks.end(), isMarked)) return &kind;
    return nullptr;
}

template <typename Char>
_sceneLine classify(_text<Char> line) {
    if (line.empty() || line.front() == '#') return {};
    _sceneLine meaning{isFrameRange(line), false, _lineKind::other, nullptr};
    if (hasInAnyCase(line, saveVersionName)) {
        meaning.kind = _lineKind::saveVersion;
        return meaning;
    }
    meaning.isVariable = isVariable(line);
    if (beginsExactly(line, takeCommand))
        meaning.kind = _lineKind::take;
    else if (line.back() == '{' && has(line, sectionSuffix))
        meaning.section = sectionKind(line);
    if (meaning.section != nullptr) meaning.kind = _lineKind::section;
    return meaning;
}

/// "/arnold, /opengl, ..."
QString joinedMarks() {
    QStringList parts;
    for (const _nodeTypeMark& mark : nodeTypeMarks) parts.append(latin(mark.part));
    return parts.join(QLatin1String{", "});
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
    static const QString allMarks = joinedMarks();
    return {_notTaken::noMark, allMarks};
}

}  // namespace vxP
