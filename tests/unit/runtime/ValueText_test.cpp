#include "runtime/ValueText.h"

#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>

#include "support/ValueDescription.h"

namespace macroengine {
namespace {

using test::Boolean;
using test::Describe;
using test::Floating;
using test::Integer;
using test::Text;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

std::string ToText(const CMacroCommonValue& value) {
    return std::string(ValueText(value.View()).Get());
}

TEST(ValueText, WritesIntegersInDecimal) {
    const struct {
        std::int32_t value;
        const char* expected;
    } cases[] = {
        {0, "0"},       {5, "5"},   {-5, "-5"}, {2147483647, "2147483647"}, {INT32_MIN, "-2147483648"},
        {1000, "1000"}, {-1, "-1"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ToText(Integer(c.value)), c.expected);
}

TEST(ValueText, WritesFloatingValuesWithSixSignificantDigits) {
    const struct {
        double value;
        const char* expected;
    } cases[] = {
        {0.0, "0"},
        {-0.0, "-0"},
        {1.0, "1"},
        {3.5, "3.5"},
        {-2.25, "-2.25"},
        {0.1, "0.1"},
        {1.0 / 3.0, "0.333333"},
        {2.0 / 3.0, "0.666667"},
        {3.14159265358979, "3.14159"},
        {100000.0, "100000"},
        {999999.0, "999999"},
        {999999.4, "999999"},
        {999999.5, "1e+06"},
        {1000000.0, "1e+06"},
        {1234567.0, "1.23457e+06"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {0.000123456789, "0.000123457"},
        {1e100, "1e+100"},
        {1.5e-300, "1.5e-300"},
        {1.7976931348623157e308, "1.79769e+308"},
        {5e-324, "4.94066e-324"},
        {2147483648.0, "2.14748e+09"},
        {kInfinity, "inf"},
        {-kInfinity, "-inf"},
        {kNan, "nan"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ToText(Floating(c.value)), c.expected);
}

TEST(ValueText, WritesFloatingValuesAsTheStandardStreamDoes) {
    std::mt19937_64 random(20240229);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        double value = 0.0;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isnan(value)) continue;
        // Every other one of a size that scripts use.
        if (i % 2 == 0) value = std::ldexp(static_cast<double>(random() % 2000000) - 1000000.0, -(i % 24));
        std::ostringstream stream;
        stream.imbue(std::locale::classic());
        stream << value;
        ASSERT_EQ(ToText(Floating(value)), stream.str());
    }
}

TEST(ValueText, WritesBooleansAsWordsAndTextsAsTheyAre) {
    EXPECT_EQ(ToText(Boolean(true)), "true");
    EXPECT_EQ(ToText(Boolean(false)), "false");
    for (const std::string& text : {std::string(), std::string("a"), std::string("1.50"),
                                    std::string(5000, 'x'), std::string("\x83\\\xFF")}) {
        EXPECT_EQ(ToText(Text(text)), text);
    }
}

TEST(ValueText, DoesNotDependOnTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "C.UTF-8", "C"}) {
        std::setlocale(LC_ALL, name);
        EXPECT_EQ(ToText(Floating(1234.5)), "1234.5");
        EXPECT_EQ(ToText(Integer(1234567)), "1234567");
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST(ValueText, TruncatesTowardZeroAndKeepsTheLow32Bits) {
    const struct {
        double value;
        std::int32_t expected;
    } cases[] = {
        {0.0, 0},
        {-0.0, 0},
        {0.999, 0},
        {-0.999, 0},
        {1.0, 1},
        {2.5, 2},
        {-2.5, -2},
        {2147483647.0, 2147483647},
        {2147483648.0, INT32_MIN},
        {-2147483648.0, INT32_MIN},
        {-2147483649.0, 2147483647},
        {4294967295.0, -1},
        {4294967296.0, 0},
        {4294967298.9, 2},
        {-4294967298.9, -2},
        {1099511627777.0, 1},
        {9223372036854774784.0, -1024},
        {-9223372036854775808.0, 0},
        {9007199254740993.0, 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(TruncateToInteger(c.value), c.expected) << c.value;
}

TEST(ValueText, WhatNo64BitIntegerHoldsTruncatesToZero) {
    for (const double value : {9223372036854775808.0, -9223372036854777856.0, 1e19, -1e19, 1e300, -1e300,
                               kInfinity, -kInfinity, kNan, -kNan}) {
        EXPECT_EQ(TruncateToInteger(value), 0) << value;
    }
}

TEST(Concatenate, JoinsTwoTexts) {
    for (const std::string& left :
         {std::string(), std::string("a"), std::string(100, 'l'), std::string(5000, 'L')}) {
        for (const std::string& right : {std::string(), std::string("b"), std::string(70, 'r')}) {
            const CMacroCommonValue text = Text(left);
            const CMacroCommonValue joined = Concatenate(text.View(), right);
            EXPECT_EQ(Describe(joined), "text \"" + left + right + "\"");
            EXPECT_EQ(Describe(text), "text \"" + left + "\"");
        }
    }
}

TEST(Concatenate, ATextMayBeAppendedToItself) {
    CMacroCommonValue text = Text("ab");
    for (int i = 0; i < 12; ++i)
        text = Concatenate(text.View(), text.View().Text());
    ASSERT_EQ(text.View().length, 8192U);
    for (std::size_t i = 0; i < 8192; ++i)
        ASSERT_EQ(text.View().Text()[i], i % 2 == 0 ? 'a' : 'b') << i;
}

TEST(Concatenate, NobodyElseSeesTheTextGrow) {
    CMacroCommonValue text = Text(std::string(100, 'x'));
    text = Concatenate(text.View(), "y");
    const CMacroCommonValue earlier(text);
    const CMacroCommonValue one = Concatenate(earlier.View(), "one");
    const CMacroCommonValue two = Concatenate(earlier.View(), "two");
    text = Concatenate(text.View(), "three");
    EXPECT_EQ(earlier.View().Text(), std::string(100, 'x') + "y");
    EXPECT_EQ(one.View().Text(), std::string(100, 'x') + "yone");
    EXPECT_EQ(two.View().Text(), std::string(100, 'x') + "ytwo");
    EXPECT_EQ(text.View().Text(), std::string(100, 'x') + "ythree");
}

TEST(Concatenate, ManyAppendsMoveTheTextAFewTimesOnly) {
    constexpr int kAppends = 200000;
    CMacroCommonValue text = Text("");
    CMacroCommonValue result;
    int moves = 0;
    const void* block = nullptr;
    for (int i = 0; i < kAppends; ++i) {
        // As a loop does it: the result and the variable both hold the text.
        result = Concatenate(text.View(), i % 10 == 9 ? "\n" : "x");
        text = result;
        if (block != text.View().text) ++moves;
        block = text.View().text;
    }
    ASSERT_EQ(text.View().length, 200000U);
    for (std::size_t i = 0; i < kAppends; ++i)
        ASSERT_EQ(text.View().Text()[i], i % 10 == 9 ? '\n' : 'x') << i;
    // 63 short ones, and from there on it grows by half each time.
    EXPECT_LT(moves, 63 + 25);
}

}  // namespace
}  // namespace macroengine
