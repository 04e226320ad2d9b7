#pragma once

#include <cstdint>
#include <optional>

namespace macroengine::platform {

/// A time in the calendar and the time zone of the system.
struct LocalTime {
    int year = 0;
    int month = 0;  ///< 1 to 12
    int day = 0;    ///< 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;  ///< 60 in a leap second, where the system counts those
};

/// Suspends the calling thread for at least the time.
void SleepMilliseconds(std::uint32_t milliseconds);

/// Returns the seconds since 1970-01-01 00:00 UTC.
std::int64_t SecondsSince1970();

/// Converts seconds since 1970-01-01 00:00 UTC. May be called from any thread.
///
/// @return nothing when the system can't represent the time: far in the future, and on Windows before 1970 or
///         after the year 3000.
std::optional<LocalTime> ToLocalTime(std::int64_t seconds);

}  // namespace macroengine::platform
