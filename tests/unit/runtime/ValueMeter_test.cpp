#include "runtime/ValueMeter.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <thread>

#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::Lines;

/// @return whether a byte more than what the variables hold is within a limit.
bool Allows(const VariableTable& variables, std::size_t limit) {
    const ValueMeter meter(variables, limit);
    try {
        ::operator delete(ValueMeter::Allocate(1));
    } catch (const std::bad_alloc&) {
        EXPECT_TRUE(meter.IsExceeded());
        return false;
    }
    EXPECT_FALSE(meter.IsExceeded());
    return true;
}

/// @return how many bytes count of what the variables of a macro hold when it has run.
std::size_t BytesLeftBy(const std::string& text) {
    CompiledMacro macro;
    EXPECT_EQ(macro.Compile(text), Lines());
    EXPECT_EQ(macro.Run(), Lines());
    std::size_t below = 0;
    std::size_t enough = 1U << 20U;
    while (enough - below > 1) {
        const std::size_t middle = below + (enough - below) / 2;
        (Allows(macro.GetProgram().GetVariables(), middle) ? enough : below) = middle;
    }
    return enough - 1;
}

TEST(ValueMeter, NumbersAndTheEmptyTextTakeNothing) {
    EXPECT_EQ(BytesLeftBy("a = 1\nb = 2.5\nc = \"\"\n"), 0U);
}

TEST(ValueMeter, WhatManyHoldCountsOnce) {
    const std::string text = "a = \"x\" + 1\n";
    EXPECT_GT(BytesLeftBy(text), 0U);
    EXPECT_EQ(BytesLeftBy(text + "b = a\nc = b\n"), BytesLeftBy(text));
    const std::string array = "a[1][2] = 1.5\n";
    EXPECT_GT(BytesLeftBy(array), 0U);
    EXPECT_EQ(BytesLeftBy(array + "b = a\n"), BytesLeftBy(array));
}

TEST(ValueMeter, WhatArraysHoldCounts) {
    const std::string array = "a = \"x\" + 1\nb[1] = \"\"\n";
    EXPECT_EQ(BytesLeftBy(array + "b[1] = a\n"), BytesLeftBy(array));
    EXPECT_EQ(BytesLeftBy(array + "b[1] = a\nb[0] = a\na = 0\n"), BytesLeftBy(array));
    EXPECT_GT(BytesLeftBy(array + "b[1] = \"y\" + 2\n"), BytesLeftBy(array));
}

TEST(ValueMeter, WhatIsGivenBackMayBeMoreThanWhatWasTaken) {
    // What no variable held when the run began, such as a literal's text, counts for nothing until it goes.
    void* const before = ::operator new(64);
    const VariableTable variables;
    const ValueMeter meter(variables, 1);
    ValueMeter::GiveBack(64);
    ::operator delete(before);
    ::operator delete(ValueMeter::Allocate(64));
    EXPECT_FALSE(meter.IsExceeded());
}

TEST(ValueMeter, WhatOtherThreadsTakeIsNotCounted) {
    const VariableTable variables;
    const ValueMeter meter(variables, 1);
    std::thread([] {
        ::operator delete(ValueMeter::Allocate(64));
        ValueMeter::GiveBack(64);
    }).join();
    EXPECT_FALSE(meter.IsExceeded());
}

}  // namespace
}  // namespace macroengine
