#include <chrono>
#include <limits>
#include <mutex>
#include <thread>
#include <time.h>

#include "platform/Clock.h"
#include "platform/Environment.h"

namespace macroengine::platform {

void SleepMilliseconds(std::uint32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

std::int64_t SecondsSince1970() {
    return static_cast<std::int64_t>(time(nullptr));
}

std::optional<LocalTime> ToLocalTime(std::int64_t seconds) {
    if (seconds < std::numeric_limits<time_t>::min() || seconds > std::numeric_limits<time_t>::max()) {
        return std::nullopt;
    }
    const time_t instant = static_cast<time_t>(seconds);
    tm parts{};
    {
        // localtime_r alone need not notice that the variable TZ has changed.
        const std::unique_lock<std::mutex> lock = LockEnvironment();
        tzset();
        if (localtime_r(&instant, &parts) == nullptr) return std::nullopt;
    }
    if (parts.tm_year > std::numeric_limits<int>::max() - 1900) return std::nullopt;
    return LocalTime{parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
                     parts.tm_hour,        parts.tm_min,     parts.tm_sec};
}

}  // namespace macroengine::platform
