#include "platform/Clock.h"

#include <chrono>
#include <cstdint>
#include <ctime>
#include <gtest/gtest.h>
#include <limits>
#include <optional>

namespace macroengine::platform {
namespace {

TEST(Clock, SleepingTakesAtLeastTheTime) {
    const auto start = std::chrono::steady_clock::now();
    SleepMilliseconds(0);
    SleepMilliseconds(20);
    // Some systems sleep up to one tick of their timer less.
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(4));
}

TEST(Clock, SecondsAreThoseOfTheSystem) {
    const std::time_t before = std::time(nullptr);
    const std::int64_t seconds = SecondsSince1970();
    const std::time_t after = std::time(nullptr);
    EXPECT_GE(seconds, static_cast<std::int64_t>(before));
    EXPECT_LE(seconds, static_cast<std::int64_t>(after));
}

TEST(Clock, LocalTimeIsThatOfTheCLibrary) {
    for (const std::int64_t seconds : {86400LL, 951782400LL, 1700000000LL, 4294967295LL}) {
        const std::time_t time = static_cast<std::time_t>(seconds);
        const std::tm expected = *std::localtime(&time);
        const std::optional<LocalTime> local = ToLocalTime(seconds);
        ASSERT_TRUE(local.has_value()) << seconds;
        EXPECT_EQ(local->year, expected.tm_year + 1900);
        EXPECT_EQ(local->month, expected.tm_mon + 1);
        EXPECT_EQ(local->day, expected.tm_mday);
        EXPECT_EQ(local->hour, expected.tm_hour);
        EXPECT_EQ(local->minute, expected.tm_min);
        EXPECT_EQ(local->second, expected.tm_sec);
    }
}

TEST(Clock, ATimeOutOfRangeHasNoCalendarParts) {
    EXPECT_FALSE(ToLocalTime(std::numeric_limits<std::int64_t>::max()).has_value());
    EXPECT_FALSE(ToLocalTime(std::numeric_limits<std::int64_t>::min()).has_value());
}

}  // namespace
}  // namespace macroengine::platform
