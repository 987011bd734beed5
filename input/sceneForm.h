// Whether a file is a scene, and whether all of it is there.
#pragma once

#include <QString>

#include "scene/archive.h"

namespace vxP {

enum class _sceneForm : quint8 {
    whole,  ///< an archive with its trailer, or text with a section that the scan takes
    cut,    ///< an archive that ends before its trailer
    none,   ///< no scene
};

struct _formOfFile {
    _sceneForm form;
    QString instead;  ///< what a file that is no scene is: "it looks like an HTML page"; empty: not known
};

/// Bytes of a file that is no archive in which a section is looked for.
constexpr qint64 mostBytesOfText = qint64{1024} * 1024;

/// Looks at the beginning and the end of a file, whatever its size. What cannot be read counts as empty.
_formOfFile formOf(const vxN::_byteSource& file);

}  // namespace vxP
