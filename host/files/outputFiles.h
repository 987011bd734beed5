// The files that a scene's jobs will leave, as far as their records tell.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "host/results/explainedScene.h"
#include "host/results/frameRange.h"

namespace vxH {

/// How a job's frames are spread over files.
enum class _frameUse {
    oneEach,      ///< a file for each frame
    allInOne,     ///< one file holds all frames, as a movie does
    overwritten,  ///< every frame writes the same file, and the last one stays
};

/// Files of one job that differ in their frame number alone; of `allInOne` and `overwritten` it is one file.
struct _outputFiles {
    int job = 0;  ///< its number, from 1
    QString driver;
    bool isChannel = false;  ///< a file beside the main output: an AOV
    QString folder;          ///< absolute, with its separator
    QString prefix;          ///< of the name, in front of the frame number; the whole name where there is none
    int padding = 0;         ///< least digits of the frame number, filled up with zeros; 0: there is no number
    QString suffix;          ///< behind it
    _frameUse use = _frameUse::oneEach;
    std::optional<_frameRange> frames;  ///< none: they are not known
    QString unknown;                    ///< why the files are not known, in one line; empty: they are

    bool isKnown() const { return unknown.isEmpty(); }
    /// "#" for each digit
    QString path() const;
    /// 0 where it is not known
    qint64 count() const;
};

/// The files of all jobs, in their order: main outputs, a set for each side of a stereo camera, then channels.
/// Placeholders that the record has values for are filled in. What holds others, a variable, an expression or frames
/// that are no whole numbers is not known; its path shows what there is of it.
/// @param scene  with all jobs and warnings
std::vector<_outputFiles> outputFilesOf(const _explainedScene& scene);

}  // namespace vxH
