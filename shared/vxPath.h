// Path texts: folder, base name and lexical resolution. Nothing here touches the file system, except that a
// relative path is appended to the current directory.
#pragma once

#include <QString>

#include "shared/vxExport.h"

namespace vxS {

/// Folder part of a path: everything up to and including the last separator, one trailing separator ignored:
/// "/a/b.exr" -> "/a/", "/a/b/" -> "/a/". Empty when there is none.
VX_EXPORT QString vxGetDirName(const QString& text, QChar separator);

/// File name without folder and without its last extension: "/a/b.c.exr" -> "b.c". A name that begins with its only
/// point stays whole: "/a/.exr" -> ".exr".
VX_EXPORT QString vxGetFileNameBase(const QString& text, QChar separator);

/// True for a text that begins with a separator, a drive ("C:"), or a variable or expression ("<", "$", "`", "%"), and
/// for the empty one: it does not depend on the current directory.
VX_EXPORT bool vxPathIsAbsolute(const QString& text);

/// Resolves "." and ".." lexically and drops repeated separators, but keeps a leading pair (a network share) and a
/// trailing one. The separator is "/" or "\", whichever occurs first; the other one is an ordinary character.
/// A text that is not absolute is appended to the current directory. ".." at the root is dropped; after a leading
/// variable, whose value is not known here, it stays. Empty stays empty.
VX_EXPORT QString vxPathResolve(const QString& text);

}  // namespace vxS
