#include "input/sceneLine.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <tuple>

#include "input/lineParts.h"
#include "input/sceneTexts.h"
#include "input/sectionKinds.h"
#include "jobs/renderers.h"

namespace vxP {

namespace {

constexpr std::string_view archiveMagic{"Hou"};  ///< an archive entry has its header on its first line

constexpr _partSet markedRootParts = []() consteval {
    _partSet parts = 0;
    for (const std::string_view root : markedRoots) parts |= partInAnyCase(root);
    return parts;
}
();

/// A mark of a node type as parts of a line.
struct _markParts {
    _partSet part;
    _partSet unless;
    std::string_view unlessText;
};

/// Of all renderers.
constexpr auto nodeTypeMarks = []() consteval {
    std::array<_markParts, renderers.size() * std::tuple_size_v<decltype(_renderer::nodeTypes)>> marks{};
    std::size_t next = 0;
    for (const _renderer& renderer : renderers)
        for (const _nodeTypeMark& mark : renderer.nodeTypes)
            marks[next++] = {partInAnyCase(mark.part), partInAnyCase(mark.unless), mark.unless};
    return marks;
}
();

/// Those that nothing rules out.
constexpr _partSet sureMarks = []() consteval {
    _partSet parts = 0;
    for (const _markParts& mark : nodeTypeMarks)
        if (mark.unless == 0) parts |= mark.part;
    return parts;
}
();

// ---- the same tests for bytes and for decoded text

template <typename Char>
using _text = std::basic_string_view<Char>;

template <typename Char>
bool beginsExactly(_text<Char> text, std::string_view part) {
    return text.size() >= part.size() &&
           std::equal(part.begin(), part.end(), text.begin(), [](char a, Char b) { return Char(a) == b; });
}

template <typename Char>
bool begins(_text<Char> text, std::string_view part) {
    const auto isSame = [](char a, Char b) { return foldedToAscii(char16_t(a)) == foldedToAscii(char16_t(b)); };
    return text.size() >= part.size() && std::equal(part.begin(), part.end(), text.begin(), isSame);
}

/// The command, not a parameter of that name: parameters have a flags group after a TAB.
template <typename Char>
bool isFrameRange(_text<Char> line) {
    if (!begins(line, frameRangeCommand)) return false;
    const _text<Char> rest = line.substr(frameRangeCommand.size());
    return !rest.empty() && QChar(char16_t(rest.front())).isSpace() && !beginsExactly(rest, "\t[");
}

template <typename Char>
bool isVariable(_text<Char> line, _partSet parts) {
    constexpr _partSet wanted = partInAnyCase(variableCommand) | part(assignment);
    return (parts & wanted) == wanted && (begins(line, variableCommand) || begins(line, archiveMagic));
}

bool hasTypeMark(_partSet parts) {
    if ((parts & sureMarks) != 0) return true;
    return std::any_of(nodeTypeMarks.begin(), nodeTypeMarks.end(),
                       [&](const _markParts& mark) { return (parts & mark.part) != 0 && (parts & mark.unless) == 0; });
}

bool isOutput(_partSet parts) {
    return (parts & part(outRoot)) != 0 || ((parts & markedRootParts) != 0 && hasTypeMark(parts));
}

/// The kind of the section that a header with these parts opens; null when no reader takes it.
const _sectionKind* sectionKind(_partSet parts) {
    const bool isAnOutput = isOutput(parts);
    const auto isMarked = [&](const _headerMark& mark) {
        return (parts & mark.part) == mark.part && (mark.roots == 0 ? isAnOutput : (parts & mark.roots) != 0);
    };
    for (const _sectionKind& kind : sectionKinds())
        if (std::any_of(kind.marks.begin(), kind.marks.end(), isMarked)) return &kind;
    return nullptr;
}

template <typename Char>
_sceneLine classify(_text<Char> line) {
    if (line.empty() || line.front() == '#') return {};
    const _partSet parts = partsOf(line);
    _sceneLine meaning{isFrameRange(line), false, _lineKind::other, nullptr};
    if ((parts & partInAnyCase(saveVersionName)) != 0) {
        meaning.kind = _lineKind::saveVersion;
        return meaning;
    }
    meaning.isVariable = isVariable(line, parts);
    if (beginsExactly(line, takeCommand))
        meaning.kind = _lineKind::take;
    else if (line.back() == '{' && (parts & part(sectionSuffix)) != 0)
        meaning.section = sectionKind(parts);
    if (meaning.section != nullptr) meaning.kind = _lineKind::section;
    return meaning;
}

/// "/arnold, /opengl, ..."
QString joinedMarks() {
    QStringList parts;
    for (const _renderer& renderer : renderers)
        for (const _nodeTypeMark& mark : renderer.nodeTypes)
            if (!mark.part.empty()) parts.append(latin(mark.part));
    return parts.join(QLatin1String{", "});
}

std::u16string_view wide(const QString& line) {
    return {reinterpret_cast<const char16_t*>(line.utf16()), static_cast<std::size_t>(line.size())};
}

}  // namespace

_sceneLine classifyLine(const QString& line) {
    return classify(wide(line));
}

_sceneLine classifyAsciiLine(std::string_view line) {
    return classify(line);
}

_notTakenReason whyNotTaken(const QString& header) {
    const std::u16string_view line = wide(header);
    const _partSet parts = partsOf(line);
    if (line.empty() || line.front() == '#') return {_notTaken::comment, {}};
    if ((parts & partInAnyCase(saveVersionName)) != 0 || beginsExactly(line, takeCommand))
        return {_notTaken::otherLine, {}};
    if (line.back() != '{') return {_notTaken::noHeader, {}};
    if ((parts & markedRootParts) == 0) return {_notTaken::noRoot, {}};
    for (const _markParts& mark : nodeTypeMarks)
        if ((parts & mark.part) != 0 && (parts & mark.unless) != 0)
            return {_notTaken::ruledOut, QString(latin(mark.unlessText))};
    static const QString allMarks = joinedMarks();
    return {_notTaken::noMark, allMarks};
}

}  // namespace vxP
