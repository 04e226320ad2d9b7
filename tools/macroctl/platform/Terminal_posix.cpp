#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

#include "platform/Terminal.h"

namespace macroctl {

namespace {

constexpr std::size_t kUsualColumns = 80;

std::size_t ColumnsOf(int stream) {
    winsize size{};
    return ioctl(stream, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

}  // namespace

std::size_t TerminalColumns() {
    return isatty(STDOUT_FILENO) != 0 ? ColumnsOf(STDOUT_FILENO) : 0;
}

std::size_t ErrorTerminalColumns() {
    if (isatty(STDERR_FILENO) == 0) return 0;
    const std::size_t columns = ColumnsOf(STDERR_FILENO);
    return columns > 0 ? columns : kUsualColumns;
}

bool EnableErrorColours() {
    const char* const kind = std::getenv("TERM");
    return isatty(STDERR_FILENO) != 0 && kind != nullptr && std::string_view(kind) != "dumb";
}

void KeepOutputBytes() {}

}  // namespace macroctl
