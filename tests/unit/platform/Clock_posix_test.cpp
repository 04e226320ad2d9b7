#include <cstdint>
#include <gtest/gtest.h>
#include <optional>
#include <stdlib.h>
#include <string>
#include <time.h>

#include "platform/Clock.h"
#include "platform/Environment.h"

namespace macroengine::platform {
namespace {

class ScopedTimeZone {
public:
    explicit ScopedTimeZone(const std::string& zone) : previous_(GetEnvironmentText("TZ")) {
        SetEnvironmentText("TZ", zone);
    }
    ~ScopedTimeZone() {
        if (previous_) {
            SetEnvironmentText("TZ", *previous_);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

private:
    std::optional<std::string> previous_;
};

std::string TextOf(std::int64_t seconds) {
    const std::optional<LocalTime> time = ToLocalTime(seconds);
    if (!time) return "";
    std::string text;
    for (const int part : {time->year, time->month, time->day, time->hour, time->minute, time->second}) {
        text += std::to_string(part) + " ";
    }
    return text;
}

TEST(ClockPosix, LocalTimeFollowsTheTimeZone) {
    const struct {
        const char* zone;
        std::int64_t seconds;
        const char* expected;
    } cases[] = {
        {"UTC0", 0, "1970 1 1 0 0 0 "},
        {"UTC0", 951827696, "2000 2 29 12 34 56 "},
        {"AAA5", 0, "1969 12 31 19 0 0 "},
        {"AAA-5:30", 0, "1970 1 1 5 30 0 "},
        {"UTC0", 4294967295, "2106 2 7 6 28 15 "},
        {"UTC0", -1, "1969 12 31 23 59 59 "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.zone);
        const ScopedTimeZone zone(c.zone);
        EXPECT_EQ(TextOf(c.seconds), c.expected);
    }
}

TEST(ClockPosix, AYearThatNoIntegerHoldsHasNoLocalTime) {
    const ScopedTimeZone zone("UTC0");
    EXPECT_EQ(TextOf(67767976233532799), "2147483647 12 31 23 59 59 ");
    EXPECT_EQ(TextOf(67767976233532800), "");
    EXPECT_EQ(TextOf(INT64_MAX), "");
}

}  // namespace
}  // namespace macroengine::platform
