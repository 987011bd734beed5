#include "explain/sceneSurvey.h"

#include <limits>
#include <string>
#include <string_view>

#include "drivers/outNodeRules.h"
#include "explain/entryHeader.h"
#include "explain/outcomes.h"
#include "explain/surveyedLines.h"
#include "input/asciiSpace.h"
#include "input/sceneFile.h"
#include "input/sectionFilter.h"
#include "scan/scanBudget.h"
#include "scene/archive.h"
#include "scene/limits.h"

namespace vxE {

namespace {

constexpr qint64 stepsPerLine = 8;
constexpr qint64 stepsPerParameter = 100;
constexpr qint64 stepsPerArchiveEntry = 60;
constexpr qint64 stepsPerHeaderByte = 4;
constexpr qint64 stepsPerStranger = 1'500;
constexpr qint64 stepsPerStrangerByte = 25;

constexpr std::string_view wedgeParameter{"wedgemethod\t"};
constexpr std::string_view channelMark{"channel "};
constexpr std::string_view expressionMark{"expr = "};
constexpr std::string_view startChannel{"f1"};
constexpr std::string_view endChannel{"f2"};

std::string_view trimmedAtEnd(std::string_view text) {
    while (!text.empty() && vxP::isAsciiSpace(text.back())) text.remove_suffix(1);
    return text;
}
std::string_view trimmed(std::string_view text) {
    while (!text.empty() && vxP::isAsciiSpace(text.front())) text.remove_prefix(1);
    return trimmedAtEnd(text);
}

/// With NULs and all: Qt 5 alone would end the text at the first.
QString decoded(std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
}

/// Entries that tell something of a node.
bool isSurveyed(std::string_view kind) {
    return kind == "init" || kind == "chn" || kind == "parm";
}

/// What the entries of one node have told so far.
struct _node {
    std::string path;
    std::string type;
    std::string startExpression;
    std::string endExpression;
};

/// A section that no reader took, or one that does not read drivers, as far as it is read.
struct _stranger {
    std::string header;
    qint64 byte = 0;
    qint64 line = 0;
    _surveyedSection* taken = nullptr;  ///< null: no reader took it
    bool hasFrames = false;
    bool variesChannels = false;
    std::string output{};  ///< the line that names an output

    bool isDriver() const { return hasFrames && !output.empty() && !variesChannels; }
    /// A driver has frames and names an output, whatever it is called; a wedge has a method.
    bool looksLikeDriver() const { return (hasFrames && !output.empty()) || variesChannels; }
};

/// True where another reader may have taken an output driver's section.
bool mayTakeDrivers(vxP::_sectionReader reader) {
    return reader == vxP::_sectionReader::camera || reader == vxP::_sectionReader::wedge;
}

/// Reads line after line.
class _surveyor {
 public:
    _surveyor(const _sceneObservation& ofLoad, _explanationBudget& ofExplanation)
        : observation(ofLoad), budget(ofExplanation) {
        survey.taken.resize(observation.sections.size());
    }

    void read(_surveyedLines lines);
    /// Of a scene that tells how long its entries are. @return false for any other
    bool readNodes(const vxP::_sceneFile& file);
    _sceneSurvey finished();

 private:
    enum class _entry { ofNoInterest, channels, parameters };

    void readLine(const _surveyedLines& lines);
    bool spend(qint64 steps, qint64 byte);
    _surveyedSection* takenAt(qint64 byte);
    void beginEntry(const _entryHeader& header, const _surveyedLines& lines, _surveyedSection* taken);
    void complete(_surveyedSection& section);
    QString keptText(const std::string& bytes);
    std::string* expressionOf(std::string_view channel);
    void readChannel(std::string_view line);
    void readParameter(std::string_view line);
    void endSection();
    void addStranger();

    const _sceneObservation& observation;
    _explanationBudget& budget;
    _sceneSurvey survey;
    vxS::_size nextTaken = 0;  ///< of the sections that a reader took
    qint64 nextTakenByte = 0;  ///< before which none begins
    bool hasLineNumbers = true;
    qint64 length = 0;  ///< of the scene, as far as it was read
    qint64 cutAt = -1;  ///< where the steps were used up; -1: nowhere

    _node node;
    _entry entry = _entry::ofNoInterest;
    int depth = 0;                      ///< of braces in the entry of channels
    std::string* expression = nullptr;  ///< of the channel that is read; null: of no interest
    bool isStranger = false;            ///< the section that is read
    _stranger stranger;
};

/// @param byte  from which on nothing is known where the steps are used up. @return false then
bool _surveyor::spend(qint64 steps, qint64 byte) {
    if (cutAt < 0 && !budget.surveySteps.take(steps)) {
        cutAt = byte;
        isStranger = false;
    }
    return cutAt < 0;
}

/// The section that begins there and was taken; null: none.
_surveyedSection* _surveyor::takenAt(qint64 byte) {
    if (byte < nextTakenByte) return nullptr;
    const auto& sections = observation.sections;
    vxS::_size at = nextTaken;
    while (at < sections.size() && sections[at].byte < byte) ++at;
    const bool isTaken = at < sections.size() && sections[at].byte == byte;
    nextTaken = isTaken ? at + 1 : at;
    nextTakenByte = nextTaken < sections.size() ? sections[nextTaken].byte : std::numeric_limits<qint64>::max();
    return isTaken ? &survey.taken[at] : nullptr;
}

void _surveyor::read(_surveyedLines lines) {
    while (lines.next()) readLine(lines);
    length = lines.byte;
}

bool _surveyor::readNodes(const vxP::_sceneFile& file) {
    if (vxN::archiveKindOf(file) != vxN::_archiveKind::open) return false;
    hasLineNumbers = false;
    vxP::beginBudget();
    vxP::allowWorkFor(file.byteCount());
    try {
        vxN::_archive archive(file);
        while (const auto next = archive.next()) {
            if (!isSurveyed(vxN::splitEntryName(next->name).kind)) continue;
            const qint64 size = next->body.offset + next->body.size - next->start;
            const std::string text = archive.read({next->start, size}, vxN::largestBody);
            read({text, next->start});
        }
    } catch (const vxP::_budgetExceeded&) {  // what was read of it is there
    }
    return true;
}

void _surveyor::readLine(const _surveyedLines& lines) {
    _surveyedSection* const taken = takenAt(lines.byte);
    if (taken != nullptr && hasLineNumbers) taken->line = lines.number;
    if (!spend(stepsPerLine - budget.surveyStepsPerByte * lines.length, lines.byte)) return;
    const std::string_view line = trimmedAtEnd(lines.back());
    if (const auto header = mayEndWithHeader(line) ? entryHeaderOf(line) : std::nullopt)
        beginEntry(*header, lines, taken);
    else if (entry == _entry::channels)
        readChannel(trimmed(lines.front()));
    else if (entry == _entry::parameters && isStranger)
        readParameter(trimmed(lines.front()));
}

void _surveyor::beginEntry(const _entryHeader& header, const _surveyedLines& lines, _surveyedSection* taken) {
    endSection();
    if (!spend(stepsPerArchiveEntry + stepsPerHeaderByte * static_cast<qint64>(lines.back().size()), lines.byte))
        return;
    if (node.path != header.path) node = {std::string(header.path), {}, {}, {}};
    entry = _entry::ofNoInterest;
    switch (header.kind) {
        case _entryKind::type:
            node.type = header.type;
            break;
        case _entryKind::channels:
            entry = _entry::channels;
            depth = 1;
            expression = nullptr;
            break;
        case _entryKind::parameters:
            entry = _entry::parameters;
            if (taken != nullptr) complete(*taken);
            isStranger =
                taken == nullptr ||
                mayTakeDrivers(observation.sections[static_cast<vxS::_size>(taken - survey.taken.data())].reader);
            if (isStranger) stranger = {std::string(trimmed(lines.back())), lines.byte, lines.number, taken};
            break;
    }
}

void _surveyor::complete(_surveyedSection& section) {
    section.type = keptText(node.type);
    section.startExpression = keptText(node.startExpression);
    section.endExpression = keptText(node.endExpression);
}

/// Empty where there is no room for it.
QString _surveyor::keptText(const std::string& bytes) {
    if (bytes.empty()) return {};
    const QString text = shortened(decoded(bytes));
    if (budget.sectionBytes.take(vxP::bytesOf(text))) return text;
    ++survey.textsLeftOut;
    return {};
}

/// Null: of no interest.
std::string* _surveyor::expressionOf(std::string_view channel) {
    if (channel == startChannel) return &node.startExpression;
    return channel == endChannel ? &node.endExpression : nullptr;
}

/// `channel f1 {`, and further down `segment { length = 0 value = 1 1 expr = $FSTART }`
void _surveyor::readChannel(std::string_view line) {
    if (line.ends_with('{')) ++depth;
    if (line == "}" && --depth == 0) entry = _entry::ofNoInterest;
    if (line.starts_with(channelMark)) {
        const std::string_view name = line.substr(channelMark.size());
        expression = expressionOf(trimmed(name.substr(0, name.find('{'))));
        return;
    }
    const auto at = expression == nullptr ? line.npos : line.find(expressionMark);
    if (at == line.npos) return;
    std::string_view text = trimmed(line.substr(at + expressionMark.size()));
    if (text.ends_with('}')) text = trimmed(text.substr(0, text.size() - 1));
    if (!text.empty()) *expression = text;
}

void _surveyor::readParameter(std::string_view line) {
    if (line.starts_with('}')) return endSection();
    if (!vxP::mayMatterToASection(line) || !spend(stepsPerParameter, stranger.byte)) return;
    const auto role = vxP::roleOf(decoded(line));
    stranger.hasFrames |= role == vxP::_parameterRole::frameSwitch || role == vxP::_parameterRole::frameRange;
    if (role == vxP::_parameterRole::output && stranger.output.empty()) stranger.output = line;
    stranger.variesChannels |= line.starts_with(wedgeParameter);
}

void _surveyor::endSection() {
    if (isStranger && node.type != fileNodeType) addStranger();
    isStranger = false;
    entry = _entry::ofNoInterest;
}

void _surveyor::addStranger() {
    if (stranger.taken != nullptr) {
        stranger.taken->isOfDriver = stranger.isDriver();
        if (stranger.isDriver()) stranger.taken->output = keptText(stranger.output);
        return;
    }
    if (!stranger.looksLikeDriver()) return;
    if (!spend(stepsPerStranger + stepsPerStrangerByte * static_cast<qint64>(stranger.header.size()), stranger.byte))
        return;
    const QString header = decoded(stranger.header);
    const bool wasLeftOut = observation.sectionsLeftOut > 0 && stranger.byte <= observation.lastByte;
    if (wasLeftOut && isTakenByTheScan(header)) return;
    const _outcome reason = reasonNotTaken(header, stranger.variesChannels);
    const _unrecognisedSection section{shortened(QLatin1Char('/') + decoded(node.path)),
                                       shortened(decoded(node.type)),
                                       stranger.line,
                                       stranger.byte,
                                       reason.code,
                                       reason.text};
    const qint64 bytes =
        bytesPerEntry + vxP::bytesOf(section.node) + vxP::bytesOf(section.type) + vxP::bytesOf(section.text);
    if (budget.sectionBytes.take(bytes))
        survey.notTaken.append(section);
    else
        ++survey.notTakenLeftOut;
}

_sceneSurvey _surveyor::finished() {
    endSection();
    if (cutAt >= 0) survey.bytesLeftOut = length - cutAt;
    return survey;
}

}  // namespace

_sceneSurvey surveyScene(const QString& path, const _sceneObservation& observation, _explanationBudget& budget,
                         _surveyBreadth breadth) {
    _surveyor surveyor(observation, budget);
    vxP::_sceneFile file(path);
    const bool isDone = !file.isOpen() || (breadth == _surveyBreadth::nodes && surveyor.readNodes(file));
    if (!isDone) surveyor.read(_surveyedLines(file));
    return surveyor.finished();
}

}  // namespace vxE
