#include "runtime/ValueSum.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <string>

#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::Lines;

/// @return how many bytes the variables of a macro hold when it has run.
std::size_t BytesLeftBy(const std::string& text) {
    CompiledMacro macro;
    EXPECT_EQ(macro.Compile(text), Lines());
    EXPECT_EQ(macro.Run(), Lines());
    ValueSum sum;
    macro.GetProgram().GetVariables().ForEach(
        [&](const Variable& variable) { sum.Add(variable.value.View()); });
    return sum.Get();
}

TEST(ValueSum, NumbersAndTheEmptyTextTakeNothing) {
    EXPECT_EQ(BytesLeftBy("a = 1\nb = 2.5\nc = \"\"\n"), 0U);
}

TEST(ValueSum, WhatManyHoldCountsOnce) {
    const std::string text = "a = \"x\" + 1\n";
    EXPECT_GT(BytesLeftBy(text), 0U);
    EXPECT_EQ(BytesLeftBy(text + "b = a\nc = b\n"), BytesLeftBy(text));
    const std::string array = "a[1][2] = 1.5\n";
    EXPECT_GT(BytesLeftBy(array), 0U);
    EXPECT_EQ(BytesLeftBy(array + "b = a\n"), BytesLeftBy(array));
}

TEST(ValueSum, WhatArraysHoldCounts) {
    const std::string array = "a = \"x\" + 1\nb[1] = \"\"\n";
    EXPECT_EQ(BytesLeftBy(array + "b[1] = a\n"), BytesLeftBy(array));
    EXPECT_EQ(BytesLeftBy(array + "b[1] = a\nb[0] = a\na = 0\n"), BytesLeftBy(array));
    EXPECT_GT(BytesLeftBy(array + "b[1] = \"y\" + 2\n"), BytesLeftBy(array));
}

}  // namespace
}  // namespace macroengine
