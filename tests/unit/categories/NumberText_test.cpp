#include "categories/NumberText.h"

#include <clocale>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace macroengine {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ToUnsigned, ReadsASignAndDigitsOfTheBase) {
    const struct {
        const char* text;
        unsigned int base;
        std::uint32_t value;
        std::size_t length;
        bool isOutOfRange;
    } cases[] = {
        {"0", 10, 0, 1, false},
        {"12", 10, 12, 2, false},
        {"+12", 10, 12, 3, false},
        {"-1", 10, 0xFFFFFFFF, 2, false},
        {"4294967295", 10, 0xFFFFFFFF, 10, false},
        {"-4294967295", 10, 1, 11, false},
        {"00000000000000000000007", 10, 7, 23, false},
        {"4294967296", 10, 0xFFFFFFFF, 10, true},
        {"-4294967296", 10, 0xFFFFFFFF, 11, true},
        {"99999999999999999999999999999999", 10, 0xFFFFFFFF, 32, true},
        {"12ab", 10, 12, 2, false},
        {"12ab", 16, 0x12AB, 4, false},
        {"fFfFfFfF", 16, 0xFFFFFFFF, 8, false},
        {"100000000", 16, 0xFFFFFFFF, 9, true},
        {"-10", 16, 0xFFFFFFF0, 3, false},
        {"g", 16, 0, 0, false},
        {"", 16, 0, 0, false},
        {"-", 16, 0, 0, false},
        {"+", 10, 0, 0, false},
        {"--1", 10, 0, 0, false},
        {" 1", 10, 0, 0, false},
    };
    for (const auto& c : cases) {
        const auto number = ToUnsigned(c.text, c.base);
        EXPECT_EQ(number.value, c.value) << c.text;
        EXPECT_EQ(number.length, c.length) << c.text;
        EXPECT_EQ(number.isOutOfRange, c.isOutOfRange) << c.text;
    }
}

TEST(ToInteger, GivesTheNearestIntegerOf32Bits) {
    const struct {
        const char* text;
        std::int32_t value;
        std::size_t length;
        bool isOutOfRange;
    } cases[] = {
        {"7", 7, 1, false},
        {"-7", -7, 2, false},
        {"+7x", 7, 2, false},
        {"2147483647", INT32_MAX, 10, false},
        {"-2147483648", INT32_MIN, 11, false},
        {"2147483648", INT32_MAX, 10, true},
        {"-2147483649", INT32_MIN, 11, true},
        {"123456789012345678901234567890", INT32_MAX, 30, true},
        {"-123456789012345678901234567890", INT32_MIN, 31, true},
        {"-", 0, 0, false},
        {"", 0, 0, false},
    };
    for (const auto& c : cases) {
        const auto number = ToInteger(c.text);
        EXPECT_EQ(number.value, c.value) << c.text;
        EXPECT_EQ(number.length, c.length) << c.text;
        EXPECT_EQ(number.isOutOfRange, c.isOutOfRange) << c.text;
    }
}

TEST(ToFloating, ReadsWhatTheCLibraryReads) {
    const std::string manyZeros(400, '0');
    const struct {
        std::string text;
        double value;
        std::size_t length;
        bool isOutOfRange;
    } cases[] = {
        {"3.5", 3.5, 3, false},
        {"-3.5", -3.5, 4, false},
        {"+3.5", 3.5, 4, false},
        {"5.", 5.0, 2, false},
        {".5", 0.5, 2, false},
        {"3.14.15", 3.14, 4, false},
        {"2e3", 2000.0, 3, false},
        {"2e-3x", 0.002, 4, false},
        {"2e", 2.0, 1, false},
        {"1e308", 1e308, 5, false},
        {"1e309", kInfinity, 5, true},
        {"-1e309", -kInfinity, 6, true},
        {"0.001e400", kInfinity, 9, true},
        {"1" + manyZeros + ".0", kInfinity, 403, true},
        {"1e-400", 0.0, 6, false},
        {"0." + manyZeros + "1", 0.0, 403, false},
        {"123456e-99999999999999", 0.0, 22, false},
        {"1e99999999999999", kInfinity, 16, true},
        {"0x10", 16.0, 4, false},
        {"0X1f", 31.0, 4, false},
        {"-0x1.8p1", -3.0, 8, false},
        {"0x1p9999", kInfinity, 8, true},
        {"-0x1p9999", -kInfinity, 9, true},
        {"0x", 0.0, 1, false},
        {"0xg", 0.0, 1, false},
        {"0x.", 0.0, 1, false},
        {"inf", kInfinity, 3, false},
        {"-Infinity", -kInfinity, 9, false},
        {".", 0.0, 0, false},
        {"-", 0.0, 0, false},
        {"", 0.0, 0, false},
        {"+-1", 0.0, 0, false},
        {"abc", 0.0, 0, false},
    };
    for (const auto& c : cases) {
        const auto number = ToFloating(c.text);
        EXPECT_EQ(number.value, c.value) << c.text;
        EXPECT_EQ(number.length, c.length) << c.text;
        EXPECT_EQ(number.isOutOfRange, c.isOutOfRange) << c.text;
    }
    EXPECT_TRUE(std::isnan(ToFloating("nan").value));
    for (const char* const text : {"-0", "-0x", "-0x.", "-1e-400"})
        EXPECT_TRUE(std::signbit(ToFloating(text).value)) << text;
}

TEST(ToFloating, DoesNotDependOnTheLocale) {
    const std::string previous = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", ""})
        std::setlocale(LC_ALL, name);
    EXPECT_EQ(ToFloating("1.5").value, 1.5);
    EXPECT_EQ(ToFloating("1,5").length, 1U);
    std::setlocale(LC_ALL, previous.c_str());
}

}  // namespace
}  // namespace macroengine
