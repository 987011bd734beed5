// The kinds of sections that a reader takes, one row each.
#pragma once

#include <QLatin1String>
#include <QTextStream>
#include <span>

#include "grammar/paramSection.h"
#include "input/lineParts.h"
#include "jobs/VX_DataTypes_plugin.h"
#include "scan/scanObserver.h"
#include "scan/sceneFacts.h"

namespace vxP {

/// A part of a header that tells its kind where the header holds one of the roots as well; letter case counts.
struct _headerMark {
    _partSet part;   ///< none: the roots alone tell
    _partSet roots;  ///< none: the header must be an output driver's
};

struct _sectionKind {
    _sectionReader reader;
    QLatin1String name;  ///< in explanations
    std::span<const _headerMark> marks;
    /// Takes the section whose header is in `line`.
    /// @param[in,out] line  in: the header; out: the last line read
    /// @return resultSuccess, or what the load ends with
    qint32 (*read)(_dataPARS_LoadSceneFile& load, QTextStream& stream, QString& line, _sceneFacts& facts);
    /// Takes the section of a node that is known.
    qint32 (*readNode)(_dataPARS_LoadSceneFile& load, const _sectionNode& known, QTextStream& stream, QString& line,
                       _sceneFacts& facts);
    /// Beginnings of the lines that the reader looks at.
    std::span<const QLatin1String> (*parameters)();
};

/// In the order in which a header is compared with them: the first kind that has a mark in it takes the section.
std::span<const _sectionKind> sectionKinds();

/// The row of a reader. Each has one: nothing else calls it.
const _sectionKind& sectionKindOf(_sectionReader reader);

}  // namespace vxP
