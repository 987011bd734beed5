// What a line of the scene means to the scan, told from its text alone.
#pragma once

#include <QString>
#include <string_view>

namespace vxP {

struct _sectionKind;

/// Lines that the scan acts on.
enum class _lineKind { other, saveVersion, take, section };

struct _sceneLine {
    bool isFrameRange = false;  ///< the scene's frange command; such a line may be of a kind as well
    bool isVariable = false;    ///< a "set -g" line; such a line may be of a kind as well
    _lineKind kind = _lineKind::other;
    const _sectionKind* section = nullptr;  ///< the kind of the section whose header the line is

    /// True when the scan does anything with the line.
    bool matters() const { return isFrameRange || isVariable || kind != _lineKind::other; }
};

/// Letter case is folded as Qt folds it: a long s is an "s", too.
/// @param line  trimmed
_sceneLine classifyLine(const QString& line);

/// The same for a line in bytes.
/// @param line  trimmed ASCII text
_sceneLine classifyAsciiLine(std::string_view line);

/// Why no reader takes a section.
enum class _notTaken : quint8 {
    comment,    ///< its header's line is a comment
    otherLine,  ///< its header's line is taken for a command
    noHeader,   ///< the line does not end with "{"
    noRoot,     ///< the node's path has no root that drivers are under
    noMark,     ///< no part of the path tells a driver
    ruledOut,   ///< a part of the path tells a driver, another one says that it is none
};

struct _notTakenReason {
    _notTaken why;
    QString part;  ///< the part that says it is none; with `noMark` those of which one would tell a driver
};

/// @param line  trimmed header of a section that `classifyLine` takes for none
_notTakenReason whyNotTaken(const QString& line);

}  // namespace vxP
