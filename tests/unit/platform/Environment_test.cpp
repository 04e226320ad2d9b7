#include "platform/Environment.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace macroengine::platform {
namespace {

constexpr char kName[] = "MACROENGINE_ENVIRONMENT_TEST";

TEST(Environment, ATextIsReadAsItWasSet) {
    for (const char* value : {"5", "1.500000", " a b ", "a=b=c", "\xC3\xA4", "new"}) {
        ASSERT_TRUE(SetEnvironmentText(kName, value));
        EXPECT_EQ(GetEnvironmentText(kName), value);
    }
}

TEST(Environment, ALongTextIsReadWhole) {
    const std::string value(20000, 'x');
    ASSERT_TRUE(SetEnvironmentText(kName, value));
    EXPECT_EQ(GetEnvironmentText(kName), value);
}

TEST(Environment, AVariableIsThatOfTheProcess) {
    ASSERT_TRUE(SetEnvironmentText(kName, "shared"));
    EXPECT_STREQ(std::getenv(kName), "shared");
}

TEST(Environment, AMissingVariableHasNoText) {
    EXPECT_EQ(GetEnvironmentText("MACROENGINE_ENVIRONMENT_TEST_MISSING"), std::nullopt);
}

TEST(Environment, NamesThatAreNotValidFail) {
    ASSERT_TRUE(SetEnvironmentText(kName, "kept"));
    const std::string names[] = {
        "", "=", "a=b", std::string(kName) + "=", "=C:", std::string(kName) + std::string(1, '\0')};
    for (const std::string& name : names) {
        EXPECT_FALSE(SetEnvironmentText(name, "1")) << name;
        EXPECT_EQ(GetEnvironmentText(name), std::nullopt) << name;
    }
    EXPECT_EQ(GetEnvironmentText(kName), "kept");
}

TEST(Environment, TheLockIsFreeAgainWhenItsHolderIsGone) {
    { const auto lock = LockEnvironment(); }
    EXPECT_TRUE(SetEnvironmentText(kName, "1"));
}

}  // namespace
}  // namespace macroengine::platform
