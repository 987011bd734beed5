// What a scene holds beside the lines that the scan reads: sections that no reader took, and of those that one took the
// lines, types of nodes and expressions of channels.
//
// A scene is an archive: each node has entries `<path>.init`, `.chn` and `.parm`, in this order and next to each other.
//
//   …out/mantra1.init<NUL>type = ifd
//   …out/mantra1.chn<NUL>{      and lines: channel f1 {, segment { length = 0 value = 1 1 expr = $FSTART }
//   …out/mantra1.parm<NUL>{     and the parameters
#pragma once

#include <QList>
#include <QString>
#include <QVector>

#include "explain/explanation.h"
#include "explain/sceneObservation.h"

namespace vxE {

/// What is known of a section that a reader took.
struct _surveyedSection {
    qint64 line = 0;          ///< number of its header's line, from 1; 0: not found
    QString type;             ///< of the node; empty: the scene does not tell
    bool isOfDriver = false;  ///< a camera's or wedge's reader took it, and it has frames and names an output
    QString output;           ///< that line, of such a section
    QString startExpression;  ///< of the channel f1: "$FSTART"; empty: none
    QString endExpression;    ///< of f2
};

struct _sceneSurvey {
    QVector<_surveyedSection> taken;  ///< one for each observed section, in the same order
    QList<_unrecognisedSection> notTaken;
    qint64 textsLeftOut = 0;  ///< of sections that were taken
    qint64 notTakenLeftOut = 0;
    qint64 bytesLeftOut = 0;  ///< at the scene's end, of which only the lines were counted
};

/// What cannot be read is left out: the load itself tells about it.
/// @param path  of the scene
_sceneSurvey surveyScene(const QString& path, const _sceneObservation& observation, _explanationBudget& budget,
                         _surveyBreadth breadth);

}  // namespace vxE
