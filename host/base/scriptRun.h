// Scripts that the program makes and runs at once.
#pragma once

#include <QByteArray>
#include <QStringList>

namespace vxH {

/// Whether a shell would find a program of that name.
bool isInstalled(const QString& program);

/// Runs a script with bash and waits for its end. It has the program's own output and error streams and no input. A
/// signal that asks the program to end goes to the script, which ends in its own order; then it ends the program.
/// @return the script's exit status; 128 and the number of the signal that ended it, as a shell says it
/// @throw std::runtime_error  it cannot be started
int runScript(const QByteArray& script, const QStringList& arguments);

}  // namespace vxH
