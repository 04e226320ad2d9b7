#include <sys/ioctl.h>
#include <unistd.h>

#include "platform/Terminal.h"

namespace macroctl {

std::size_t TerminalColumns() {
    winsize size{};
    if (isatty(STDOUT_FILENO) == 0 || ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0) return 0;
    return size.ws_col;
}

void KeepOutputBytes() {}

}  // namespace macroctl
