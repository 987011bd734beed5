// What stands in a scene beside the lines that the scan reads: all sections with their places, types of nodes, and
// expressions of channels.
//
// A scene is an archive: each node has entries `<path>.init`, `.chn` and `.parm`, whose header stands on one line with
// the archive's own.
//
//   …out/mantra1.init<NUL>type = ifd
//   …out/mantra1.chn<NUL>{      and lines: channel f1 {, segment { length = 0 value = 1 1 expr = $FSTART }
//   …out/mantra1.parm<NUL>{     and the parameters
#pragma once

#include <QHash>
#include <QList>
#include <QString>

namespace vxE {

/// A parameter section, taken by a reader or not.
struct _surveyedSection {
    QString node;     ///< "/obj/geo1/file1", as the archive names it
    QString header;   ///< its line, trimmed, as far as it is kept
    qint64 byte = 0;  ///< of that line, from the begin of the scene
    qint64 line = 0;  ///< its number, from 1
    bool hasFrames = false;
    bool namesOutput = false;
    bool variesChannels = false;

    /// A driver has frames and names an output, whatever it is called; a wedge has a method.
    bool looksLikeDriver() const { return (hasFrames && namesOutput) || variesChannels; }
};

struct _sceneSurvey {
    QList<_surveyedSection> sections;  ///< in file order
    /// True for a node that reads its file, though it has frames as well.
    bool isReader(const QString& node) const;

    QHash<QString, QString> typeOf;                         ///< by node: "ifd", "file", "filecache" ...
    QHash<QString, QHash<QString, QString>> expressionsOf;  ///< by node, then by channel: "$FSTART"
};

/// Reads the whole file. What cannot be read is left out: the load itself tells about it.
/// @param path  of the scene
_sceneSurvey surveyScene(const QString& path);

}  // namespace vxE
