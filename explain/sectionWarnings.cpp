// One function a warning, in the order in which they are given for a section.
#include <QRegularExpression>
#include <array>

#include "catalogues/camList.h"
#include "explain/outcomes.h"
#include "explain/warnings.h"
#include "grammar/paramSection.h"
#include "jobs/frameFault.h"
#include "resolve/nodeTypes.h"
#include "scan/scanState.h"
#include "shared/vxLatin.h"

namespace vxE {

namespace {

using vxP::_remark;

/// A section that was read, and where its warnings go.
struct _checkedSection {
    const _loadedScene& scene;
    const _observedSection& section;
    const _surveyedSection& surveyed;
    _warningList& warnings;

    /// A job that there was no memory for is counted all the same.
    bool hasJobs() const { return section.madeJobs() && scene.jobs.at(section.jobsBefore) != nullptr; }
    bool isOfFileNode() const { return surveyed.type == vxS::latin(fileNodeType); }
    /// Every driver has frames; a node that only reads a file has none.
    bool probablyReads() const {
        return isOfFileNode() || (section.node.startsWith(QLatin1String("/obj/")) && !section.hasFrames);
    }
    const vxJ::_JobBasics_largePath& firstJob() const { return *scene.jobs.at(section.jobsBefore); }

    void warn(QStringView code, const QString& text) const {
        QList<int> numbers;
        for (int job = section.jobsBefore; job < section.jobsAfter; ++job) numbers.append(job + 1);
        warnings.add(code, section.node, numbers, text);
    }
};

QString rangeText(double start, double end) {
    return QStringLiteral("%1-%2").arg(start).arg(end);
}

// ---- frames

QString ownFramesOf(const _observedSection& section) {
    const _observedRemark* const frames = section.find(_remark::ownFrames);
    return frames == nullptr ? QString() : parameterValue(frames->line);
}

void warnOfUnusableFrames(const _checkedSection& checked) {
    const auto& settings = checked.firstJob().sceneSettings;
    if (vxJ::frameFault(settings.seqStart, settings.seqEnd, settings.seqStep).isEmpty()) return;
    const QString frames = ownFramesOf(checked.section);
    const bool startDriven = frames.contains(QLatin1String("[ f1"));
    const bool oneDriven = startDriven != frames.contains(QLatin1String("[ f2"));
    QString text = QStringLiteral("no renderer accepts frames %1 step %2")
                       .arg(rangeText(settings.seqStart, settings.seqEnd))
                       .arg(settings.seqStep);
    if (oneDriven)
        text += QStringLiteral(": only %1 is driven by a channel (%2)")
                    .arg(startDriven ? QLatin1String("f1") : QLatin1String("f2"), frames);
    checked.warn(u"framesUnusable", text);
}

/// "f1 follows $FSTART, f2 follows $FEND"; empty when both are plain numbers.
QString followedExpressions(const _surveyedSection& surveyed) {
    QStringList texts;
    if (!surveyed.startExpression.isEmpty()) texts.append(QLatin1String("f1 follows ") + surveyed.startExpression);
    if (!surveyed.endExpression.isEmpty()) texts.append(QLatin1String("f2 follows ") + surveyed.endExpression);
    return texts.join(QLatin1String(", "));
}

/// A range that follows the scene's is stored as it was when somebody looked at it last.
void warnOfStoredFrames(const _checkedSection& checked) {
    if (!checked.section.has(_remark::ownFrames)) return;
    const QString follows = followedExpressions(checked.surveyed);
    if (follows.isEmpty()) return;
    const auto& settings = checked.firstJob().sceneSettings;
    const QString stored = rangeText(settings.seqStart, settings.seqEnd);
    const QString scenes = rangeText(vxP::GLseqStart, vxP::GLseqEnd);
    const bool followsScene = checked.surveyed.startExpression == QLatin1String("$FSTART") &&
                              checked.surveyed.endExpression == QLatin1String("$FEND");
    if (settings.seqStart == 0 && settings.seqEnd == 0)
        checked.warn(u"framesByExpression", QStringLiteral("frames are stored as 0-0: %1").arg(follows));
    else if (followsScene && stored != scenes && checked.scene.observation.hasFrameRange)
        checked.warn(
            u"framesByExpression",
            QStringLiteral("frames are stored as %1: %2, and the scene's are %3").arg(stored, follows, scenes));
}

/// Without a range of its own a driver gets the scene's.
void warnOfCurrentFrame(const _checkedSection& checked) {
    const auto& settings = checked.firstJob().sceneSettings;
    if (!checked.section.isOfCurrentFrame || settings.seqStart == settings.seqEnd) return;
    checked.warn(u"currentFrameOnly",
                 QStringLiteral("Houdini renders the current frame only, as trange is off; the job has frames %1")
                     .arg(rangeText(settings.seqStart, settings.seqEnd)));
}

// ---- size

QString sizeText(qint32 width, qint32 height) {
    return QStringLiteral("%1x%2").arg(width).arg(height);
}

/// The size of an override counts whether it is switched on or off.
void warnOfUnusedSize(const _checkedSection& checked) {
    const auto& job = checked.firstJob();
    if (!checked.section.isSizeSwitchedOff || job.imageWidth == 0) return;
    const qint32 index = vxP::camList.findCamIndexByRenderNode(checked.section.node);
    if (index < 0) return;
    const vxP::_camNode& camera = vxP::camList.entries().at(index);
    const QString size = sizeText(job.imageWidth, job.imageHeight);
    const QString cameraSize = sizeText(camera.resX, camera.resY);
    if (camera.camName.isEmpty() || size == cameraSize) return;
    checked.warn(u"overrideSwitchedOff",
                 QStringLiteral("size %1 is that of an override which is switched off; camera %2 %3")
                     .arg(size, camera.camName.toQString(),
                          camera.resX == 0 ? QStringLiteral("has no known size") : QLatin1String("has ") + cameraSize));
}

// ---- names

/// The variable that the name's first "$F" begins where that is no frame number: "$FARM".
QString takenForFrame(const QString& name) {
    static const QRegularExpression first(QStringLiteral("\\$F\\w*"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression firstInBraces(QStringLiteral("\\$\\{F\\w*"),
                                                  QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression frame(QStringLiteral("^\\$\\{?F[F0-9]?$"),
                                          QRegularExpression::CaseInsensitiveOption);
    auto match = first.match(name);
    if (!match.hasMatch()) match = firstInBraces.match(name);
    if (!match.hasMatch() || frame.match(match.captured()).hasMatch()) return {};
    return match.captured().remove(QLatin1Char('{'));
}

void warnOfVariablesTakenForFrames(const _checkedSection& checked) {
    for (const _observedRemark& remark : checked.section.remarks) {
        if (remark.what != _remark::nameTaken) continue;
        const QString variable = takenForFrame(parameterValue(remark.line));
        if (variable.isEmpty()) continue;
        checked.warn(u"variableTakenForFrame",
                     QStringLiteral("%1 holds %2, which becomes a frame number followed by %3")
                         .arg(vxP::parameterName(remark.line), variable, variable.mid(2)));
    }
}

void warnOfRelativeNames(const _checkedSection& checked) {
    for (const _observedRemark& remark : checked.section.remarks)
        if (remark.what == _remark::relativeName)
            checked.warn(u"relativePath",
                         QStringLiteral("output %1 is relative: it was put behind the directory that vxscene runs in")
                             .arg(remark.detail));
}

/// A plain load puts a frame number into names that have none.
void warnOfAddedFrames(const _checkedSection& checked) {
    if (checked.probablyReads()) return;
    for (const _observedRemark& remark : checked.section.remarks) {
        if (remark.what != _remark::noFrameNumber) continue;
        const int number = remark.detail.toInt();
        const auto* const job = checked.scene.jobs.at(number - 1);
        if (job == nullptr || job->imageSingleOutputFile) continue;
        checked.warnings.add(
            u"frameNumberAdded", checked.section.node, {number},
            QStringLiteral("the scene's output name holds no frame number, the job's has one added: %1")
                .arg(fileOf(*job)));
    }
}

void warnOfTemporaryExport(const _checkedSection& checked) {
    const QLatin1String temporary = vxS::latin(vxP::temporaryExport);
    for (const _observedRemark& remark : checked.section.remarks)
        if (remark.what == _remark::nameTaken && parameterValue(remark.line).contains(temporary))
            checked.warn(u"temporaryExport",
                         QStringLiteral("%1 is %2, a file that Houdini writes for one render and then removes")
                             .arg(vxP::parameterName(remark.line), temporary));
}

void warnOfReader(const _checkedSection& checked) {
    if (checked.isOfFileNode())
        checked.warn(u"readsRatherThanWrites",
                     QStringLiteral("a file node: it probably reads its file rather than writes it"));
    else if (checked.probablyReads())
        checked.warn(u"readsRatherThanWrites",
                     QStringLiteral("probably reads its file rather than writes it: the node has no frame range"));
}

void warnOfUnknownTake(const _checkedSection& checked) {
    const QString take = checked.firstJob().channel.toQString();
    const auto& takes = checked.scene.facts.takes;
    if (take.isEmpty() || takes.known.count(take) > 0) return;
    if (vxP::nodeActiveTakes.value(checked.firstJob().layer) != take) return;
    checked.warn(u"takeUnknown", QStringLiteral("take %1 is none of the scene's").arg(take));
}

// ---- wedges

/// A node that was left is no wedge after all.
void warnOfDroppedWedge(const _observedSection& section, _warningList& warnings) {
    const _outcome outcome = outcomeOf(section);
    if (!outcome.code.isEmpty() && !section.has(_remark::left))
        warnings.add(u"wedgeDropped", section.node, {}, QStringLiteral("its driver is not repeated: ") + outcome.text);
}

void warnOfRandomWedge(const _observedSection& section, _warningList& warnings) {
    const _observedRemark* const random = section.find(_remark::wedgeIsRandom);
    if (random == nullptr) return;
    const QString text =
        random->detail.isEmpty()
            ? QStringLiteral(
                  "its driver is not repeated: its variants are random, and how many there are cannot be told")
            : QStringLiteral(
                  "the values of its %1 variants are random: names, frames and whatever else depends on them "
                  "cannot be told, and copies without a usable name are left out")
                  .arg(random->detail);
    warnings.add(u"wedgeRandom", section.node, {}, text);
}

void warnOfWedge(const _observedSection& section, _warningList& warnings) {
    warnOfDroppedWedge(section, warnings);
    warnOfRandomWedge(section, warnings);
}

struct _sectionCheck {
    bool ofSkippedToo;  ///< also where the driver made no jobs
    void (*warn)(const _checkedSection&);
};

constexpr std::array sectionChecks{
    _sectionCheck{false, warnOfUnusableFrames},
    _sectionCheck{false, warnOfStoredFrames},
    _sectionCheck{false, warnOfCurrentFrame},
    _sectionCheck{false, warnOfUnusedSize},
    _sectionCheck{false, warnOfVariablesTakenForFrames},
    _sectionCheck{false, warnOfRelativeNames},
    _sectionCheck{false, warnOfAddedFrames},
    _sectionCheck{true, warnOfTemporaryExport},
    _sectionCheck{false, warnOfReader},
    _sectionCheck{false, warnOfUnknownTake},
};

}  // namespace

void warnOfSections(const _loadedScene& scene, _warningList& warnings) {
    for (vxS::_size i = 0; i < scene.observation.sections.size(); ++i) {
        const _observedSection& section = scene.observation.sections[i];
        if (section.reader == vxP::_sectionReader::wedge) warnOfWedge(section, warnings);
        const _checkedSection checked{scene, section, scene.survey.taken[i], warnings};
        for (const _sectionCheck& check : sectionChecks)
            if (check.ofSkippedToo || checked.hasJobs()) check.warn(checked);
    }
}

}  // namespace vxE
