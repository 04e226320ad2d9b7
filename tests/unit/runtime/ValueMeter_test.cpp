#include "runtime/ValueMeter.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <new>
#include <thread>

namespace macroengine {
namespace {

/// @return whether the memory is given, which is given back at once.
bool IsGiven(std::size_t bytes) {
    try {
        ::operator delete(ValueMeter::Allocate(bytes));
        ValueMeter::GiveBack(bytes);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

TEST(ValueMeter, WhatIsTakenAtTheStartCounts) {
    for (const bool isOver : {false, true}) {
        const ValueMeter meter(100, 60);
        EXPECT_EQ(IsGiven(isOver ? 41 : 40), !isOver);
        EXPECT_EQ(meter.IsExceeded(), isOver);
    }
}

TEST(ValueMeter, TheOneInsideSeesWhatTheOneOutsideDoesNot) {
    const ValueMeter outer(100, 0);
    {
        const ValueMeter inner(50, 0);
        EXPECT_FALSE(IsGiven(51));
        EXPECT_TRUE(inner.IsExceeded());
    }
    {
        const ValueMeter unlimited(0, 0);
        EXPECT_TRUE(IsGiven(1000));
        ValueMeter::GiveBack(1000);
        EXPECT_FALSE(unlimited.IsExceeded());
    }
    EXPECT_FALSE(outer.IsExceeded());
    EXPECT_TRUE(IsGiven(100));
    EXPECT_FALSE(IsGiven(101));
    EXPECT_TRUE(outer.IsExceeded());
}

TEST(ValueMeter, WhatIsGivenBackMayBeMoreThanWhatWasTaken) {
    // What was not counted when the run began counts for nothing until it goes.
    void* const before = ::operator new(64);
    const ValueMeter meter(1, 0);
    ValueMeter::GiveBack(64);
    ::operator delete(before);
    ::operator delete(ValueMeter::Allocate(64));
    EXPECT_FALSE(meter.IsExceeded());
}

TEST(ValueMeter, WhatOtherThreadsTakeIsNotCounted) {
    const ValueMeter meter(1, 0);
    std::thread([] {
        ::operator delete(ValueMeter::Allocate(64));
        ValueMeter::GiveBack(64);
    }).join();
    EXPECT_FALSE(meter.IsExceeded());
}

}  // namespace
}  // namespace macroengine
