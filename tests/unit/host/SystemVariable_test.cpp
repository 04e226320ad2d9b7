#include "macroengine/SystemVariable.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "platform/Environment.h"
#include "support/CommandCaller.h"

namespace macroengine {
namespace {

constexpr const char* kName = "MACROENGINE_HOST_TEST";

void ExpectInteger(long expected) {
    long integer = 4711;
    double floating = 47.11;
    EXPECT_TRUE(GetSystemVariable(kName, integer));
    EXPECT_EQ(integer, expected);
    EXPECT_FALSE(GetSystemVariable(kName, floating));
    EXPECT_EQ(floating, 47.11);
}

void ExpectFloating(double expected) {
    long integer = 4711;
    double floating = 47.11;
    EXPECT_TRUE(GetSystemVariable(kName, floating));
    EXPECT_EQ(floating, expected);
    EXPECT_FALSE(GetSystemVariable(kName, integer));
    EXPECT_EQ(integer, 4711);
}

TEST(SystemVariable, TheTwoKindsDoNotMix) {
    EXPECT_TRUE(SetSystemVariable(kName, 5L));
    ExpectInteger(5);
    EXPECT_TRUE(SetSystemVariable(kName, 2.0));
    ExpectFloating(2.0);
    EXPECT_EQ(platform::GetEnvironmentText(kName), "2.000000");
    EXPECT_TRUE(SetSystemVariable(kName, -1L));
    ExpectInteger(-1);
}

TEST(SystemVariable, IntegersHave32Bits) {
    EXPECT_TRUE(SetSystemVariable(kName, std::numeric_limits<long>::max()));
    ExpectInteger(2147483647);
    EXPECT_TRUE(SetSystemVariable(kName, std::numeric_limits<long>::min()));
    ExpectInteger(-2147483648L);
    platform::SetEnvironmentText(kName, "99999999999999999999");
    ExpectInteger(2147483647);
}

TEST(SystemVariable, OneThatIsNotSetIsTheIntegerZero) {
    for (const char* name : {"MACROENGINE_HOST_TEST_UNSET", "", static_cast<const char*>(nullptr)}) {
        long integer = 4711;
        double floating = 47.11;
        EXPECT_TRUE(GetSystemVariable(name, integer));
        EXPECT_EQ(integer, 0);
        EXPECT_FALSE(GetSystemVariable(name, floating));
        EXPECT_EQ(floating, 47.11);
    }
}

TEST(SystemVariable, WhatIsNoNumberIsNotRead) {
    for (const char* text : {"text", "1 2", "0xg", "1e999"}) {
        platform::SetEnvironmentText(kName, text);
        long integer = 4711;
        double floating = 47.11;
        EXPECT_FALSE(GetSystemVariable(kName, integer)) << text;
        EXPECT_FALSE(GetSystemVariable(kName, floating)) << text;
    }
}

TEST(SystemVariable, ANameMayBeRefused) {
    for (const char* name : {"", "a=b", static_cast<const char*>(nullptr)}) {
        EXPECT_FALSE(SetSystemVariable(name, 1L));
        EXPECT_FALSE(SetSystemVariable(name, 1.0));
    }
}

TEST(SystemVariable, MacrosShareTheStore) {
    EXPECT_TRUE(SetSystemVariable(kName, 12L));
    test::CommandCaller caller;
    EXPECT_EQ(caller.Call("system.variable", {test::Text(kName)}), "integer 12");
    const CMacroCommonValue assigned = test::Floating(0.5);
    EXPECT_EQ(caller.Call("system.variable", {test::Text(kName)}, &assigned), "none");
    ExpectFloating(0.5);
}

}  // namespace
}  // namespace macroengine
