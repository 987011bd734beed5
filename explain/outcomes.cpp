// Tables from remarks to words.
#include "explain/outcomes.h"

#include <QSet>
#include <array>
#include <vector>

#include "explain/explanation.h"
#include "grammar/paramSection.h"
#include "input/sceneLine.h"

namespace vxE {

namespace {

using vxP::_remark;

/// What a remark means for its section.
struct _outcomeWords {
    _remark remark;
    QStringView code;
    QStringView text;  ///< %1: the remark's detail
};

constexpr std::array outcomeWords{
    // first that the section has wins
    _outcomeWords{_remark::passedOver, u"tooManyJobs", u"job array already held more than %1 jobs"},
    _outcomeWords{_remark::notClosed, u"notClosed", u"section is not closed"},
    _outcomeWords{_remark::noMoreJobs, u"noMoreJobs", u"job array has no room for a further job"},
    _outcomeWords{_remark::imageViewerOnly, u"viewerOnly", u"output name is '%1': renders to the viewer only"},
    _outcomeWords{_remark::exportViewerOnly, u"noExportFile", u"export is on but the export file is '%1'"},
    _outcomeWords{_remark::bypassed, u"bypassed", u"node is bypassed"},
    _outcomeWords{_remark::loadsFromDisk, u"loadsFromDisk", u"cache loads from disk: it writes nothing"},
    _outcomeWords{_remark::savedByHand, u"savedByHand",
                  u"comes with every simulation: nothing tells that its file is wanted, and only somebody who saves by "
                  u"hand writes it"},
    _outcomeWords{_remark::stageNamesNoImage, u"stageNamesNoImage", u"output is empty, and its stage names none: %1"},
    _outcomeWords{_remark::wedgeLeadsNowhere, u"wedgeWithoutDriver", u"wedge names no driver, and none is wired to it"},
    _outcomeWords{_remark::wedgeOfIdleDriver, u"wedgeDriverWithoutJob", u"wedge leads to %1, which has no job"},
    _outcomeWords{_remark::notACamera, u"notACamera", u"camera name is excluded: holds '%1'"},
};

/// What keeps a wedge from repeating its driver; all that hold are told.
constexpr std::array wedgeWords{
    _outcomeWords{_remark::wedgeOfOtherMethod, u"wedgeMethod", u"wedge method is '%1'"},
    _outcomeWords{_remark::wedgeWithoutDriver, u"wedgeWithoutDriver",
                  u"wedge names no driver: one that is wired to it is not known"},
    _outcomeWords{_remark::channelsLeftOut, u"wedgeChannels", u"numbers of the wedge's channels have gaps"},
    _outcomeWords{_remark::stepsUnknown, u"wedgeSteps", u"wedge's step counts are no numbers but channel references"},
};
constexpr _outcomeWords wedgeWithoutVariants{_remark::wedgeWithoutVariants, u"wedgeWithoutVariants",
                                             u"wedge varies nothing: no channel has steps"};

/// What is told of a section whether or not it gave jobs.
struct _sectionNote {
    _remark remark;
    QStringView text;  ///< %1: the remark's detail
};
constexpr std::array sectionNotes{
    _sectionNote{_remark::currentFrameOnly, u"renders the current frame only: it has no range of its own"},
    _sectionNote{_remark::exportIsTemporary,
                 u"exports %1 for one render and then removes it: Houdini renders the job itself"},
    _sectionNote{_remark::offInTake, u"writes nothing in take '%1'"},
};

/// What a reader thought of an output name.
struct _nameWords {
    _remark remark;
    QStringView detail;    ///< of the remark; empty: any
    QStringView code;      ///< empty: the name is no reason
    QStringView asImage;   ///< why there is no image name ...
    QStringView asExport;  ///< ... why no export file
    QStringView note;      ///< beside the name; empty: none
};

constexpr std::array nameWords{
    // first match wins
    _nameWords{_remark::nameTaken, {}, {}, {}, {}, {}},
    _nameWords{_remark::nameEmpty,
               {},
               u"emptyOutput",
               u"output is empty",
               u"export is on but the export file is empty",
               u"empty"},
    _nameWords{_remark::nameUnusable, u"chs(", u"expression", u"output holds an expression chs(\u2026)",
               u"export is on but the export file holds an expression chs(\u2026)", u"holds an expression"},
    _nameWords{_remark::nameUnusable,
               {},
               u"defaultName",
               u"default output %1",
               u"export is on but the export file is the default %1",
               u"default name"},
    _nameWords{_remark::nameComesSecond, {}, {}, {}, {}, u"driven by a channel, and another name was read before"},
};

/// A driver that only exports has no image for the job that would render the export.
constexpr _outcomeWords onlyExportName{_remark::noImageName, u"noImage",
                                       u"no output image: only an export file is named"};

constexpr _nameWords noName{
    _remark::noImageName, {}, u"noOutput", u"no output parameter", u"export is on but there is no export file", {}};

const _nameWords* nameWordsOf(const _observedRemark& remark) {
    for (const _nameWords& row : nameWords)
        if (row.remark == remark.what && (row.detail.isEmpty() || row.detail == remark.detail)) return &row;
    return nullptr;
}

QString filled(QStringView text, const QString& detail) {
    return text.toString().replace(QLatin1String("%1"), detail);
}

/// What a reader said about one output name, and whether the name is that of an exported scene description.
struct _namedOutput {
    const _observedRemark& remark;
    const _nameWords& words;
    bool isExport;
};

std::vector<_namedOutput> outputsIn(const _observedSection& section) {
    QSet<QString> exports;
    for (const _observedRemark& remark : section.remarks)
        if (remark.what == _remark::exportName) exports.insert(remark.line);
    std::vector<_namedOutput> outputs;
    for (const _observedRemark& remark : section.remarks)
        if (const _nameWords* const words = nameWordsOf(remark))
            outputs.push_back({remark, *words, exports.contains(remark.line)});
    return outputs;
}

/// The last name that was refused is the one that people look for.
_outcome withoutName(const _observedSection& section, bool asExport) {
    _outcome outcome{(asExport ? QStringLiteral("noExportFile") : noName.code.toString()),
                     (asExport ? noName.asExport : noName.asImage).toString()};
    for (const _namedOutput& output : outputsIn(section)) {
        if (!asExport && output.isExport && output.remark.what == _remark::nameTaken)
            outcome = {onlyExportName.code.toString(), onlyExportName.text.toString()};
        if (output.isExport != asExport || output.words.code.isEmpty()) continue;
        outcome = {asExport ? outcome.code : output.words.code.toString(),
                   filled(asExport ? output.words.asExport : output.words.asImage, output.remark.detail)};
    }
    return outcome;
}

/// A driver that reads Alembic files, and a wedge without numbered channels, are left.
_outcome leftBecauseOf(const _observedSection& section, const QString& parameter) {
    if (section.reader == vxP::_sectionReader::wedge)
        return {QStringLiteral("notAWedge"), QStringLiteral("no wedge: '%1' has no channel number").arg(parameter)};
    return {QStringLiteral("notAnAlembicWriter"), QStringLiteral("not an Alembic writer: has %1").arg(parameter)};
}

_outcome withoutWedge(const _observedSection& section) {
    QString code;
    QStringList texts;
    for (const _outcomeWords& row : wedgeWords) {
        const _observedRemark* const remark = section.find(row.remark);
        if (remark == nullptr) continue;
        if (code.isEmpty()) code = row.code.toString();
        texts.append(filled(row.text, remark->detail));
    }
    if (texts.isEmpty()) return {wedgeWithoutVariants.code.toString(), wedgeWithoutVariants.text.toString()};
    return {code, texts.join(QLatin1String("; "))};
}

bool isDroppedWedge(const _observedSection& section) {
    return section.has(_remark::wedgeWithoutDriver) || section.has(_remark::wedgeWithoutVariants) ||
           section.has(_remark::wedgeOfOtherMethod);
}

/// Readers that take drivers because of their paths.
struct _takenWords {
    vxP::_sectionReader reader;
    QStringView code;
    QStringView text;
};

constexpr std::array takenWords{
    _takenWords{vxP::_sectionReader::camera, takenForCamera,
                u"taken for a camera because of its path, though it has a driver's parameters"},
    _takenWords{vxP::_sectionReader::wedge, u"takenForWedge",
                u"taken for a wedge because of its path, though it has a driver's parameters"},
};

struct _notTakenWords {
    vxP::_notTaken why;
    QStringView code;
    QStringView text;  ///< %1: the part of the path that rules it out, or the parts that are missing
};

constexpr std::array notTakenWords{
    _notTakenWords{vxP::_notTaken::comment, u"comment", u"its header is on a comment line"},
    _notTakenWords{vxP::_notTaken::otherLine, u"otherLine", u"its header is on the line of a command"},
    _notTakenWords{vxP::_notTaken::noHeader, u"noHeader", u"its header does not end its line"},
    _notTakenWords{vxP::_notTaken::noRoot, u"noRoot", u"it is under none of out/, obj/, img/ and stage/"},
    _notTakenWords{vxP::_notTaken::ruledOut, u"ruledOut", u"its path holds '%1'"},
    _notTakenWords{vxP::_notTaken::noMark, u"noMark",
                   u"outside out/ a driver is known by a part of its path, and none is there of %1"},
};

}  // namespace

_outcome outcomeOf(const _observedSection& section) {
    if (const _observedRemark* const left = section.find(_remark::left))
        return leftBecauseOf(section, vxP::parameterName(left->line));
    for (const _outcomeWords& row : outcomeWords)
        if (const _observedRemark* const remark = section.find(row.remark))
            return {row.code.toString(), filled(row.text, remark->detail)};
    if (section.has(_remark::noImageName)) return withoutName(section, false);
    if (section.has(_remark::noExportName)) return withoutName(section, true);
    if (isDroppedWedge(section)) return withoutWedge(section);
    if (!section.isEnded) return {QStringLiteral("loadEnded"), QStringLiteral("the load ended in this section")};
    return {};
}

_outcome outcomeOfDriverTakenBy(vxP::_sectionReader reader) {
    for (const _takenWords& row : takenWords)
        if (row.reader == reader) return {row.code.toString(), row.text.toString()};
    return {};
}

QStringList detailsOf(const _observedSection& section) {
    QStringList details;
    for (const _namedOutput& output : outputsIn(section)) {
        QString text = parameterText(output.remark.line);
        if (!output.words.note.isEmpty()) text += QLatin1String(" (") + output.words.note.toString() + QLatin1Char(')');
        details.append(text);
    }
    for (const _observedRemark& remark : section.remarks)
        if (remark.what == _remark::stepsUnknown) details.append(parameterText(remark.line));
    for (const _sectionNote& note : sectionNotes)
        for (const _observedRemark& remark : section.remarks)
            if (remark.what == note.remark) details.append(filled(note.text, remark.detail));
    return details;
}

bool isTakenByTheScan(const QString& header) {
    return vxP::classifyLine(header).section != nullptr;
}

_outcome reasonNotTaken(const QString& header, bool isWedge) {
    if (isTakenByTheScan(header))
        return {QStringLiteral("notReached"),
                QStringLiteral("the load ended before it, or its header is inside a section that is not closed")};
    const vxP::_notTakenReason reason = vxP::whyNotTaken(header);
    if (isWedge && reason.why == vxP::_notTaken::noMark)
        return {QStringLiteral("noMark"),
                QStringLiteral("a wedge under obj/ is known by a name that begins with 'wedge'")};
    for (const _notTakenWords& row : notTakenWords) {
        if (row.why != reason.why) continue;
        return {row.code.toString(), filled(row.text, reason.part)};
    }
    return {};
}

QString parameterValue(const QString& line) {
    return vxP::withoutOuterQuotes(vxP::outerParenthesised(line)).simplified();
}

QString parameterText(const QString& line) {
    return vxP::parameterName(line) + QLatin1String(": ") + parameterValue(line);
}

}  // namespace vxE
