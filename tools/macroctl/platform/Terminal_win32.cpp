#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "platform/Terminal.h"

namespace macroctl {

std::size_t TerminalColumns() {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info)) return 0;
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

void KeepOutputBytes() {
    std::fflush(stdout);
    _setmode(_fileno(stdout), _O_BINARY);
}

}  // namespace macroctl
