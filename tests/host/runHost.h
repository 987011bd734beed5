// Runs vxscene as its users do and collects what it leaves.
#pragma once

#include <QByteArray>
#include <string>
#include <vector>

struct _hostRun {
    int status = -1;  ///< exit status; -1 when a signal ended it
    QByteArray out;
    QByteArray error;
};

struct _runOptions {
    std::string program = VX_SCENE_PROGRAM;
    int terminalWidth = 0;                 ///< 0: the standard output is no terminal
    std::vector<std::string> environment;  ///< "NAME=value", in addition
};

_hostRun runHost(std::vector<std::string> arguments, const _runOptions& options = {});

/// `vxscene jobs` with the tests' plug-in.
_hostRun runJobs(std::vector<std::string> arguments, const _runOptions& options = {});
