// The terminal of an output stream, if it has one, and lines written to streams.
#pragma once

#include <QString>
#include <cstdio>

namespace vxH {

/// How to lay out text for a stream.
struct _terminal {
    int width = 0;        ///< columns; 0: no limit, the stream is no terminal
    bool colour = false;  ///< escape sequences are welcome
};

/// The terminal of the standard output. No colour where NO_COLOR holds a text or TERM is "dumb".
_terminal standardOutputTerminal();

/// Columns that the descriptor's terminal has at the moment.
int terminalWidth(int descriptor);

/// Whether the descriptor is a terminal that can go back to the beginning of a line.
bool canBeRedrawn(int descriptor);

/// Keeps files and pipes that are opened later from becoming a standard stream that is closed: reading from that or
/// writing to it fails.
void holdStandardStreams();

/// Uses the character set of the environment if it is UTF-8, else UTF-8: paths are UTF-8 throughout.
void useUtf8Characters();

/// Writes the text and a line end, as UTF-8.
void writeLine(std::FILE* stream, const QString& text);

/// Writes one line "vxscene: text" to the error stream; characters that would steer a terminal are made harmless.
void writeError(const QString& text);

}  // namespace vxH
