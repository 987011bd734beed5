// One function a warning, in the order in which they are given for a section.
#include <QRegularExpression>
#include <array>

#include "explain/outcomes.h"
#include "explain/warnings.h"
#include "grammar/paramSection.h"
#include "scan/scanState.h"

namespace vxE {

namespace {

using vxP::_remark;

/// A section that was read, and where its warnings go.
struct _look {
    const _explainedScene& scene;
    const _observedSection& section;
    const QString node;                          ///< the section's, as the archive names it
    const QHash<QString, QString>& expressions;  ///< of its channels
    _warnings& warnings;

    /// A job that there was no memory for is counted all the same.
    bool madeJobs() const {
        return section.jobsAfter > section.jobsBefore && scene.jobs.at(section.jobsBefore) != nullptr;
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
    return frames == nullptr ? QString() : parameterValue(frames->parameter);
}

void warnOfUnusableFrames(const _look& look) {
    const auto& settings = look.firstJob().sceneSettings;
    if (settings.seqStep != 0 && settings.seqStart <= settings.seqEnd) return;
    const QString frames = ownFramesOf(look.section);
    const bool startDriven = frames.contains(QLatin1String("[ f1"));
    const bool oneDriven = startDriven != frames.contains(QLatin1String("[ f2"));
    QString text = QStringLiteral("no renderer accepts frames %1 step %2")
                       .arg(rangeText(settings.seqStart, settings.seqEnd))
                       .arg(settings.seqStep);
    if (oneDriven)
        text += QStringLiteral(": only %1 is driven by a channel (%2)")
                    .arg(startDriven ? QLatin1String("f1") : QLatin1String("f2"), frames);
    look.warn(u"framesUnusable", text);
}

/// "f1 follows $FSTART, f2 follows $FEND"; empty when both are plain numbers.
QString followedExpressions(const _look& look) {
    QStringList texts;
    for (const QLatin1String channel : {QLatin1String("f1"), QLatin1String("f2")}) {
        const QString expression = look.expressions.value(channel);
        if (!expression.isEmpty()) texts.append(QStringLiteral("%1 follows %2").arg(channel, expression));
    }
    return texts.join(QLatin1String(", "));
}

/// A range that follows the scene's is stored as it was when somebody looked at it last.
void warnOfStoredFrames(const _look& look) {
    if (!look.section.has(_remark::ownFrames)) return;
    const QString follows = followedExpressions(look);
    if (follows.isEmpty()) return;
    const auto& settings = look.firstJob().sceneSettings;
    const QString stored = rangeText(settings.seqStart, settings.seqEnd);
    const QString scenes = rangeText(vxP::GLseqStart, vxP::GLseqEnd);
    const bool followsScene = look.expressions.value(QStringLiteral("f1")) == QLatin1String("$FSTART") &&
                              look.expressions.value(QStringLiteral("f2")) == QLatin1String("$FEND");
    if (settings.seqStart == 0 && settings.seqEnd == 0)
        look.warn(u"framesByExpression", QStringLiteral("frames are stored as 0-0: %1").arg(follows));
    else if (followsScene && stored != scenes && look.scene.observation.frameRangeStored)
        look.warn(u"framesByExpression",
                  QStringLiteral("frames are stored as %1: %2, and the scene's are %3").arg(stored, follows, scenes));
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

void warnOfVariablesTakenForFrames(const _look& look) {
    for (const _observedRemark& remark : look.section.remarks) {
        if (remark.what != _remark::nameTaken) continue;
        const QString variable = takenForFrame(parameterValue(remark.parameter));
        if (variable.isEmpty()) continue;
        look.warn(u"variableTakenForFrame", QStringLiteral("%1 holds %2, which becomes a frame number followed by %3")
                                                .arg(vxP::parameterName(remark.parameter), variable, variable.mid(2)));
    }
}

void warnOfRelativeNames(const _look& look) {
    for (const _observedRemark& remark : look.section.remarks)
        if (remark.what == _remark::relativeName)
            look.warn(u"relativePath",
                      QStringLiteral("output %1 is relative: it was put behind the directory that vxscene runs in")
                          .arg(remark.detail));
}

void warnOfTemporaryExport(const _look& look) {
    constexpr QLatin1String temporary{"__render__.usd"};
    for (const _observedRemark& remark : look.section.remarks)
        if (remark.what == _remark::nameTaken && parameterValue(remark.parameter).contains(temporary))
            look.warn(u"temporaryExport",
                      QStringLiteral("%1 is %2, a file that Houdini writes for one render and then removes")
                          .arg(vxP::parameterName(remark.parameter), temporary));
}

/// Every driver has frames; a node that only reads a file has none.
void warnOfReader(const _look& look) {
    if (!look.section.node.startsWith(QLatin1String("/obj/"))) return;
    if (look.scene.survey.isReader(look.node))
        look.warn(u"readsRatherThanWrites",
                  QStringLiteral("a file node: it probably reads its file rather than writes it"));
    else if (look.section.frameRange.isEmpty())
        look.warn(u"readsRatherThanWrites",
                  QStringLiteral("probably reads its file rather than writes it: the node has no frame range"));
}

void warnOfUnknownTake(const _look& look) {
    const QString take = look.firstJob().channel.toQString();
    const auto& takes = look.scene.facts.takes;
    if (take.isEmpty() || takes.known.count(take) > 0) return;
    if (vxP::nodeActiveTakes.value(look.firstJob().layer) != take) return;
    look.warn(u"takeUnknown", QStringLiteral("take %1 is none of the scene's").arg(take));
}

// ---- wedges

/// A node that was left is no wedge after all.
void warnOfDroppedWedge(const _observedSection& section, _warnings& warnings) {
    const _outcome outcome = outcomeOf(section);
    if (!outcome.code.isEmpty() && !section.has(_remark::left))
        warnings.add(u"wedgeDropped", section.node, {}, QStringLiteral("its driver is not repeated: ") + outcome.text);
}

struct _check {
    bool ofSkippedToo;  ///< also where the driver made no jobs
    void (*warn)(const _look&);
};

constexpr std::array checks{
    _check{false, warnOfUnusableFrames},
    _check{false, warnOfStoredFrames},
    _check{false, warnOfVariablesTakenForFrames},
    _check{false, warnOfRelativeNames},
    _check{true, warnOfTemporaryExport},
    _check{false, warnOfReader},
    _check{false, warnOfUnknownTake},
};

/// The node's own path by the place of its section: a reader may cut it.
QHash<qint64, QString> nodesByPlace(const _sceneSurvey& survey) {
    QHash<qint64, QString> nodes;
    for (const _surveyedSection& section : survey.sections) nodes.insert(section.byte, section.node);
    return nodes;
}

}  // namespace

void warnOfSections(const _explainedScene& scene, _warnings& warnings) {
    const auto nodes = nodesByPlace(scene.survey);
    for (const _observedSection& section : scene.observation.sections) {
        if (section.reader == vxP::_sectionReader::wedge) warnOfDroppedWedge(section, warnings);
        const QString node = nodes.value(section.byte);
        const auto expressions = scene.survey.expressionsOf.value(node);
        const _look look{scene, section, node, expressions, warnings};
        for (const _check& check : checks)
            if (check.ofSkippedToo || look.madeJobs()) check.warn(look);
    }
}

}  // namespace vxE
