#include "categories/SystemVariableStore.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "platform/Environment.h"

namespace macroengine {
namespace {

const std::string kName = "MACROENGINE_STORE_TEST";

/// Describes what a text in the environment reads as.
std::string Read(const std::string& text) {
    platform::SetEnvironmentText(kName, text);
    const std::optional<SystemValue> value = ReadSystemVariable(kName);
    if (!value) return "nothing";
    if (const auto* const integer = std::get_if<std::int32_t>(&*value))
        return "integer " + std::to_string(*integer);
    return "floating " + std::to_string(std::get<double>(*value));
}

TEST(SystemVariableStore, AValueIsTypedByItsText) {
    const struct {
        const char* text;
        const char* expected;
    } cases[] = {
        {"5", "integer 5"},
        {"-5", "integer -5"},
        {"+5", "integer 5"},
        {" \t5", "integer 5"},
        {"007", "integer 7"},
        {"2147483647", "integer 2147483647"},
        {"2147483648", "integer 2147483647"},
        {"-99999999999999999999", "integer -2147483648"},
        {"", "integer 0"},
        {"1.5", "floating 1.500000"},
        {" -1.5", "floating -1.500000"},
        {"5.", "floating 5.000000"},
        {".5", "floating 0.500000"},
        {"1e3", "floating 1000.000000"},
        {"0x10", "floating 16.000000"},
        {"inf", "floating inf"},
        {"1e-400", "floating 0.000000"},
        {"1e400", "nothing"},
        {"5 ", "nothing"},
        {"1.5 ", "nothing"},
        {"5x", "nothing"},
        {"text", "nothing"},
        {"-", "nothing"},
        {".", "nothing"},
        {" ", "nothing"},
        {"1,5", "nothing"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Read(c.text), c.expected) << '"' << c.text << '"';
}

TEST(SystemVariableStore, WhatIsNotSetIsZero) {
    for (const char* name : {"MACROENGINE_STORE_TEST_UNSET", "", "a=b"})
        EXPECT_EQ(ReadSystemVariable(name), SystemValue(std::int32_t{0})) << name;
}

TEST(SystemVariableStore, IntegersAreWrittenInDecimal) {
    EXPECT_TRUE(WriteSystemVariable(kName, std::int64_t{-12}));
    EXPECT_EQ(platform::GetEnvironmentText(kName), "-12");
    EXPECT_EQ(ReadSystemVariable(kName), SystemValue(std::int32_t{-12}));
    EXPECT_TRUE(WriteSystemVariable(kName, std::int64_t{5000000000}));
    EXPECT_EQ(platform::GetEnvironmentText(kName), "5000000000");
    EXPECT_EQ(ReadSystemVariable(kName), SystemValue(INT32_MAX));
}

TEST(SystemVariableStore, FloatingValuesAreWrittenWithSixDigits) {
    const struct {
        double value;
        std::string text;
    } cases[] = {
        {1.5, "1.500000"},
        {2.0, "2.000000"},
        {-0.25, "-0.250000"},
        {1.0 / 3.0, "0.333333"},
        {1e-9, "0.000000"},
        {123456789.125, "123456789.125000"},
        {std::numeric_limits<double>::infinity(), "inf"},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(WriteSystemVariable(kName, c.value));
        EXPECT_EQ(platform::GetEnvironmentText(kName), c.text);
    }
    const double largest = -std::numeric_limits<double>::max();
    EXPECT_TRUE(WriteSystemVariable(kName, largest));
    EXPECT_EQ(platform::GetEnvironmentText(kName).value().size(), 1U + 309U + 7U);
    EXPECT_EQ(ReadSystemVariable(kName), SystemValue(largest));
}

TEST(SystemVariableStore, ANameMayBeRefused) {
    for (const char* name : {"", "a=b", "="}) {
        EXPECT_FALSE(WriteSystemVariable(name, std::int64_t{1})) << name;
        EXPECT_FALSE(WriteSystemVariable(name, 1.0)) << name;
    }
}

}  // namespace
}  // namespace macroengine
