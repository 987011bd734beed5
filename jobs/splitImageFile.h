// Splits the full output path of a job into folder, file name, frame number and extension.
#pragma once

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxJ {

/// Splits an output path: "/shots/a/beauty.####.exr" -> folder "/shots/a/", file "beauty.", extension ".exr",
/// padding 4. Separators become single and of one kind, the path is resolved, and the folder is written relative to the
/// scene's folder ("<SceneFolder>", also up to three levels above it: "<SceneFolder>../") or the project folder
/// ("<Database>") where it begins with one of them. Scene folders of 10 characters or fewer are never replaced. Texts
/// are cut at the capacities: A characters of a folder, B of a file name, 25 of an extension.
/// @param printfPadding  also recognise a frame number written as "%", digits, "d"; "#" characters always count
/// @param[in,out] file  in: full path, or the file part where `dir` is known. Out: name without frame number
/// @param[in,out] dir  a known folder stays, apart from its separators and markers; empty: taken from `file`. Nothing
///                     after the separator before the first variable ("<Camera>", "<Channel>" ...) is a folder
/// @param[in,out] ext  with its point; a known one stays and the name is not parsed
/// @param[in,out] singleOutput  set for a movie, whose name then keeps its extension. True on entry: the same for any
/// @param[in,out] padding  digits of the frame number; kept where the name has none or plain digits
/// @param database  project folder of the job, or empty
/// @param scene  scene file of the job, or empty
template <quint16 A, quint16 B>
void template_splitImageFileInto_DirFileExt(const bool& printfPadding, _vxString<B>& file, _vxString<A>& dir,
                                            _vxString<25>& ext, bool& singleOutput, unsigned char& padding,
                                            _vxString<A> database, _vxString<A> scene);

extern template void template_splitImageFileInto_DirFileExt(const bool&, _vxString<250>&, _vxString<500>&,
                                                            _vxString<25>&, bool&, unsigned char&, _vxString<500>,
                                                            _vxString<500>);
extern template void template_splitImageFileInto_DirFileExt(const bool&, _vxString<500>&, _vxString<500>&,
                                                            _vxString<25>&, bool&, unsigned char&, _vxString<500>,
                                                            _vxString<500>);
extern template void template_splitImageFileInto_DirFileExt(const bool&, _vxString<1000>&, _vxString<1000>&,
                                                            _vxString<25>&, bool&, unsigned char&, _vxString<1000>,
                                                            _vxString<1000>);

/// Whether a file of this name may hold all frames: a movie, or a format of scenes and geometry that has a time axis.
bool holdsAllFrames(const QString& fileName);

}  // namespace vxJ
