#include <time.h>

#include "platform/Clock.h"
#include "platform/WindowsHeaders_win32.h"

namespace macroengine::platform {

void SleepMilliseconds(std::uint32_t milliseconds) {
    Sleep(milliseconds);
}

std::int64_t SecondsSince1970() {
    return _time64(nullptr);
}

std::optional<LocalTime> ToLocalTime(std::int64_t seconds) {
    const __time64_t instant = seconds;
    tm parts{};
    if (_localtime64_s(&parts, &instant) != 0) return std::nullopt;
    return LocalTime{parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
                     parts.tm_hour,        parts.tm_min,     parts.tm_sec};
}

}  // namespace macroengine::platform
