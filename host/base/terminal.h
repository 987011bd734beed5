// The terminal of an output stream, if it has one, and lines of the error stream.
#pragma once

#include <QString>

namespace vxH {

/// How to lay out text for a stream.
struct _terminal {
    int width = 0;        ///< columns; 0: no limit, the stream is no terminal
    bool colour = false;  ///< escape sequences are welcome
};

/// Whether output has colours, in the order of their words on the command line.
enum class _colour { automatic, always, never };

/// The terminal of the standard output. A choice that is automatic: no colour where there is no terminal, NO_COLOR
/// holds a text or TERM is "dumb".
_terminal standardOutputTerminal(_colour choice = _colour::automatic);

/// Columns that the descriptor's terminal has at the moment.
int terminalWidth(int descriptor);

/// Whether the descriptor is a terminal that can go back to the beginning of a line.
bool canBeRedrawn(int descriptor);

/// Keeps files and pipes that are opened later from becoming a standard stream that is closed: reading from that or
/// writing to it fails.
void holdStandardStreams();

/// Uses the character set of the environment if it is UTF-8, else UTF-8: paths are UTF-8 throughout.
void useUtf8Characters();

/// Writes one line "vxscene: text" to the error stream; characters that would steer a terminal are made harmless.
void writeError(const QString& text);

}  // namespace vxH
