// What ends a scene and what ends the program: codes and their sentences.
#pragma once

#include <QString>

namespace vxH {

/// Codes of the host itself, for scenes that the plug-in gave no answer to. The plug-in's own are above 0.
enum _hostCode : qint32 {
    hostPathUnusable = -1,  ///< the scene's path cannot be handed to the plug-in
    hostCrashed = -2,       ///< a signal ended the child process
    hostNoResult = -3,      ///< the child process could not be started or ended without an answer
    hostNoPlugin = -4,      ///< the plug-in cannot be loaded
    hostTimedOut = -5,      ///< the child process was ended because it took too long
    hostNoScene = -6,       ///< the file is no scene
    hostNotInScene = -7,    ///< the scene does not hold what was asked for
};

/// Exit status of the program; `exitStatuses` says what each means.
enum _exitStatus : int {
    exitSuccess = 0,
    exitFailed = 1,
    exitUsage = 2,
    exitNoPlugin = 3,
    exitNoScene = 4,

    // Of a comparison, as in other programs that compare; the other statuses hold for it as well.
    exitSame = 0,
    exitDifferent = 1,
    exitTrouble = 2,

    // Of a look for files.
    exitMissing = 1,
};

/// An exit status and what it means to the user.
struct _statusMeaning {
    _exitStatus status;
    const char* meaning;
};
inline constexpr _statusMeaning exitStatuses[] = {
    {exitSuccess, "all went well"},
    {exitFailed, "a scene failed, or the output could not be written"},
    {exitUsage, "the command line is wrong"},
    {exitNoPlugin, "the plug-in cannot be loaded"},
    {exitNoScene, "no scene failed, but a file is no scene"},
};
inline constexpr _statusMeaning comparisonStatuses[] = {
    {exitSame, "no difference"},
    {exitDifferent, "differences"},
    {exitTrouble, "a scene failed, the output could not be written, or the command line is wrong"},
    {exitNoPlugin, "the plug-in cannot be loaded"},
    {exitNoScene, "no scene failed, but a file is no scene"},
};

inline constexpr _statusMeaning fileStatuses[] = {
    {exitSuccess, "no file is missing that is known, or nobody asked"},
    {exitMissing, "files are missing, or a folder cannot be read"},
    {exitTrouble, "a scene failed, the output could not be written, or the command line is wrong"},
    {exitNoScene, "no scene failed, but a file is no scene"},
};

/// The status of two that tells the more serious trouble.
constexpr int worseOf(int status, int other) {
    const bool isMild = status == exitSuccess || (status == exitNoScene && other != exitSuccess);
    return isMild ? other : status;
}

/// What a code of a scene means, without full stop: 3 -> "cannot be opened for reading".
QString sentenceOfCode(qint32 code);

}  // namespace vxH
