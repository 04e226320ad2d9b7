#include "regdef/RegisterNumbers.h"

#include <gtest/gtest.h>
#include <string>

namespace macroengine {
namespace {

struct Case {
    std::string text;
    std::optional<std::uint32_t> expected;
};

TEST(RegisterNumbers, Hexadecimal) {
    const Case cases[] = {
        {"0", 0},
        {"1F", 0x1F},
        {"1f", 0x1F},
        {"aBcDeF", 0xABCDEF},
        {"FFFFFFFF", 0xFFFFFFFF},
        {"00000000000012", 0x12},
        {"123456789", 0x23456789},  // wraps around
        {"", std::nullopt},
        {"0x1F", std::nullopt},
        {"1G", std::nullopt},
        {"-1", std::nullopt},
        {"+1", std::nullopt},
        {"1 ", std::nullopt},
        {"1F//", std::nullopt},
        {"\x81\x40", std::nullopt},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ParseHexadecimal(c.text), c.expected) << c.text;
}

TEST(RegisterNumbers, Decimal) {
    const Case cases[] = {
        {"0", 0},
        {"0042", 42},
        {"4294967295", 4294967295},
        {"4294967298", 2},  // wraps around
        {"", std::nullopt},
        {"-1", std::nullopt},
        {"+1", std::nullopt},
        {"1.5", std::nullopt},
        {"1F", std::nullopt},
        {" 1", std::nullopt},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ParseDecimal(c.text), c.expected) << c.text;
}

TEST(RegisterNumbers, ScaledValuesAreRoundedBeforeTheAddend) {
    const Case cases[] = {
        {"12*0.5+3", 9},
        {"12*0.5-3", 3},
        {"12*0.5", 6},
        {"1*2.5+0", 3},
        {"1*2.4+0", 2},
        {"-1*2.5+0", 0xFFFFFFFE},  // -2.5 + 0.5 is -2
        {"-1*2.6+0", 0xFFFFFFFD},
        {"+4*+2+1", std::nullopt},  // the sign ends the factor
        {"+4*(+2)+1", 9},
        {"4*(-2)+1", 0xFFFFFFF9},
        {"4*(2e-1)+1", 2},
        {"4*2e-1+1", std::nullopt},
        {"4e2*2", 800},
        {"((4))*((0.5))+1", 3},
        {".5*4.+1", 3},
        {"5*1-2147483648", 0x80000005},
        {"5*1+2147483647", 0x80000004},
        {"5*1+2147483648", std::nullopt},
        {"5*1-2147483649", std::nullopt},
        // Single precision: 16777217 is no float.
        {"16777217*1+0", 16777216},
        {"0.1*30+0", 3},
        // Products beyond 32 bits keep their low bits.
        {"65536*65536+7", 7},
        {"-65536*65536-1", 0xFFFFFFFF},
        {"1e30*1+0", 0},
        {"1e30*1e30+0", std::nullopt},
        {"1e39*1+0", std::nullopt},
        {"1e999*1+0", std::nullopt},
        {"1e-45*1+0", 0},
        {"12*0.5+(3)", std::nullopt},
        {"12*0.5+3.0", std::nullopt},
        {"12*0.5+", std::nullopt},
        {"12*0.5++3", std::nullopt},
        {"12*0.5+-3", std::nullopt},
        {"12*0.5--3", std::nullopt},
        {"12*0.5+3x", std::nullopt},
        {"12*", std::nullopt},
        {"*12", std::nullopt},
        {"*", std::nullopt},
        {"12", std::nullopt},
        {"", std::nullopt},
        {"12*3*4", std::nullopt},
        {"12*0x10", std::nullopt},
        {"inf*1", std::nullopt},
        {"1*nan", std::nullopt},
        {"-inf*1", std::nullopt},
        {"--1*1", std::nullopt},
        {"+-1*1", std::nullopt},
        {"1.2.3*1", std::nullopt},
        {".*1", std::nullopt},
        {"(2*3)+4", std::nullopt},
        {"2*3)+4", std::nullopt},
        {"2*(3", std::nullopt},
        {"2*(3+4", std::nullopt},
        {"()*1", std::nullopt},
        {"2*()", std::nullopt},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ParseScaledValue(c.text), c.expected) << c.text;
}

TEST(RegisterNumbers, ManyParenthesesAreNoProblem) {
    const std::string open(1000000, '(');
    const std::string close(1000000, ')');
    EXPECT_EQ(ParseScaledValue(open + "4" + close + "*" + open + "2" + close + "+1"), 9);
    EXPECT_EQ(ParseScaledValue("4*" + open), std::nullopt);
}

}  // namespace
}  // namespace macroengine
