#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "platform/Terminal.h"

namespace macroctl {

namespace {

#ifndef ENABLE_VIRTUAL_TERMINAL_PROCESSING
#define ENABLE_VIRTUAL_TERMINAL_PROCESSING 0x0004
#endif

std::size_t ColumnsOf(DWORD stream) {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (!GetConsoleScreenBufferInfo(GetStdHandle(stream), &info)) return 0;
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

}  // namespace

std::size_t TerminalColumns() {
    return ColumnsOf(STD_OUTPUT_HANDLE);
}

std::size_t ErrorTerminalColumns() {
    return ColumnsOf(STD_ERROR_HANDLE);
}

bool EnableErrorColours() {
    const HANDLE console = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) &&
           SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

void KeepOutputBytes() {
    std::fflush(stdout);
    _setmode(_fileno(stdout), _O_BINARY);
}

}  // namespace macroctl
