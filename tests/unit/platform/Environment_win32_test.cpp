#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "platform/Environment.h"
#include "support/Probe_win32.h"

namespace macroengine::platform {
namespace {

constexpr char kName[] = "MACROENGINE_ENVIRONMENT_TEST";

std::string SystemsText() {
    char text[100] = "";
    return std::string(text, GetEnvironmentVariableA(kName, text, sizeof text));
}

TEST(EnvironmentWin32, AVariableReachesTheRuntimeAndTheSystem) {
    ASSERT_TRUE(SetEnvironmentText(kName, "some text"));
    EXPECT_STREQ(std::getenv(kName), "some text");
    EXPECT_EQ(SystemsText(), "some text");
}

TEST(EnvironmentWin32, AnEmptyTextRemovesTheVariable) {
    ASSERT_TRUE(SetEnvironmentText(kName, "some text"));
    EXPECT_TRUE(SetEnvironmentText(kName, ""));
    EXPECT_EQ(GetEnvironmentText(kName), std::nullopt);
    EXPECT_EQ(std::getenv(kName), nullptr);
    EXPECT_EQ(SystemsText(), "");
}

TEST(EnvironmentWin32, TheCaseOfANameDoesNotMatter) {
    ASSERT_TRUE(SetEnvironmentText(kName, "one"));
    EXPECT_EQ(GetEnvironmentText("macroengine_environment_test"), "one");
    SetEnvironmentText(kName, "");
}

}  // namespace
}  // namespace macroengine::platform
