// The cells of the job table: texts made from a job for people to read.
#pragma once

#include <QString>

#include "host/results/job.h"

namespace vxH {

/// Application and renderer: "Houdini/createIFD"
QString rendererCell(const _job& job);
/// The frame set, or "1001-1100 x2", "1001-1100", "7"
QString framesCell(const _job& job);
/// A path of the job with its beginning written out where that is "<Database>" or "<SceneFolder>".
/// @param scene  absolute path
QString writtenOut(const QString& path, const _job& job, const QString& scene);
/// Folder, file name, "#" for each frame digit, and extension as one path. The folder's "<Database>" and
/// "<SceneFolder>" are written out, and so is "<Channel>" in a job of one take.
/// @param scene  absolute path
QString outputCell(const _job& job, const QString& scene);
/// A range without end, or with a step of 0: no renderer takes it as it is.
bool hasOddFrames(const _job& job);
/// A name that still holds "%d" or "%4d": a variable like $FARM was taken for the frame.
bool hasOddOutput(const _job& job);
/// "1920x1080"; empty where the camera decides
QString sizeCell(const _job& job);
/// Numbers of the jobs it waits for, from 1: "1, 2"; "id 44" where no job before it has that own number
QString waitsForCell(const _job& job);

}  // namespace vxH
