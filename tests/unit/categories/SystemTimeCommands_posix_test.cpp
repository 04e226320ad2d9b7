#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <time.h>

#include "support/CommandCaller.h"

namespace macroengine::test {
namespace {

/// Makes a time zone the system's for as long as the object lives.
class ScopedTimeZone {
public:
    explicit ScopedTimeZone(const char* zone) {
        const char* const previous = std::getenv("TZ");
        if (previous != nullptr) previous_ = previous;
        setenv("TZ", zone, 1);
        tzset();
    }
    ~ScopedTimeZone() {
        if (previous_.empty()) {
            unsetenv("TZ");
        } else {
            setenv("TZ", previous_.c_str(), 1);
        }
        tzset();
    }
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

private:
    std::string previous_;
};

std::string Parts(std::uint32_t seconds) {
    CommandCaller caller;
    std::string parts;
    for (int part = 0; part < 6; ++part) {
        parts += caller.Call("system.get_time_local",
                             {Integer(part), Integer(static_cast<std::int32_t>(seconds))});
        parts += part < 5 ? ", " : "";
    }
    return parts;
}

TEST(GetTimeLocal, GivesTheParts) {
    const ScopedTimeZone zone("UTC0");
    EXPECT_EQ(Parts(0), "integer 1970, integer 1, integer 1, integer 0, integer 0, integer 0");
    EXPECT_EQ(Parts(951827696), "integer 2000, integer 2, integer 29, integer 12, integer 34, integer 56");
    EXPECT_EQ(Parts(0x7FFFFFFF), "integer 2038, integer 1, integer 19, integer 3, integer 14, integer 7");
    EXPECT_EQ(Parts(0x80000000), "integer 2038, integer 1, integer 19, integer 3, integer 14, integer 8");
    EXPECT_EQ(Parts(0xFFFFFFFF), "integer 2106, integer 2, integer 7, integer 6, integer 28, integer 15");
}

TEST(GetTimeLocal, KnowsTheTimeZone) {
    const ScopedTimeZone west("XXX5");
    EXPECT_EQ(Parts(0), "integer 1969, integer 12, integer 31, integer 19, integer 0, integer 0");
    const ScopedTimeZone east("XXX-9");
    EXPECT_EQ(Parts(0), "integer 1970, integer 1, integer 1, integer 9, integer 0, integer 0");
}

}  // namespace
}  // namespace macroengine::test
