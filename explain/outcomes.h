// What became of a section, in plain words.
#pragma once

#include <QString>
#include <QStringList>

#include "explain/sceneObservation.h"

namespace vxE {

struct _outcome {
    QString code;  ///< a word that stays the same between versions: "viewerOnly"; empty: something came of it
    QString text;  ///< "output name is 'ip': renders to the viewer only"
};

/// Why nothing came of a section; without code when something did.
_outcome outcomeOf(const _observedSection& section);

/// What becomes of an output driver that the reader of another kind took.
_outcome outcomeOfDriverTakenBy(vxP::_sectionReader reader);

/// The parameters that a section's reader had to say something about: "vm_picture: $HIP/a.$F4.exr", with what it
/// thought of each.
QStringList detailsOf(const _observedSection& section);

/// True for a header that the scan takes where it gets to it.
bool isTakenByTheScan(const QString& header);
/// Why no reader took a section that looks like a driver's.
/// @param header  its line, trimmed
_outcome reasonNotTaken(const QString& header, bool isWedge);

/// A parameter line as people know it: "vm_picture: $HIP/a.$F4.exr".
QString parameterText(const QString& line);
/// Its value as the scene holds it, without quotes and with single spaces.
QString parameterValue(const QString& line);

}  // namespace vxE
