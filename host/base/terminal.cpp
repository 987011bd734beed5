// Terminal width and colour, the character set, and lines.
#include "host/base/terminal.h"

#include <fcntl.h>
#include <langinfo.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <clocale>
#include <cstring>

#include "host/base/displayText.h"

namespace vxH {
namespace {

constexpr int usualWidth = 80;  // where the terminal does not say

bool isDumb() {
    return qgetenv("TERM") == QByteArray{"dumb"};
}

}  // namespace

int terminalWidth(int descriptor) {
    winsize size{};
    if (ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
    bool isNumber = false;
    const int columns = qEnvironmentVariableIntValue("COLUMNS", &isNumber);
    return isNumber && columns > 0 ? columns : usualWidth;
}

bool canBeRedrawn(int descriptor) {
    return isatty(descriptor) != 0 && !isDumb();
}

_terminal standardOutputTerminal() {
    if (isatty(STDOUT_FILENO) == 0) return {};
    return {terminalWidth(STDOUT_FILENO), qEnvironmentVariableIsEmpty("NO_COLOR") && !isDumb()};
}

void holdStandardStreams() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) >= 0) continue;
        open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);  // takes the lowest free number
    }
}

void useUtf8Characters() {
    std::setlocale(LC_CTYPE, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) std::setlocale(LC_CTYPE, "C.UTF-8");
}

void writeLine(std::FILE* stream, const QString& text) {
    const QByteArray line = text.toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stream);
}

void writeError(const QString& text) {
    writeLine(stderr, QStringLiteral("vxscene: ") + printable(text));
}

}  // namespace vxH
