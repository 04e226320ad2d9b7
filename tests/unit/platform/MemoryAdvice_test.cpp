#include "platform/MemoryAdvice.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace macroengine::platform {
namespace {

constexpr std::size_t kSize = std::size_t{1} << 23;

bool HoldsOnly(const std::vector<char>& bytes, std::size_t begin, std::size_t end, char value) {
    return std::all_of(bytes.data() + begin, bytes.data() + end, [=](char c) { return c == value; });
}

TEST(MemoryAdvice, LargePagesHoldWhatWasThere) {
    std::vector<char> bytes(kSize, 'x');
    PreferLargePages(bytes.data() + 1, kSize - 2);
    EXPECT_TRUE(HoldsOnly(bytes, 0, kSize, 'x'));
    std::fill(bytes.begin(), bytes.end(), 'y');
    EXPECT_TRUE(HoldsOnly(bytes, 0, kSize, 'y'));
}

TEST(MemoryAdvice, DiscardingTouchesNothingOutside) {
    std::vector<char> bytes(kSize, 'x');
    DiscardContents(bytes.data() + 5000, kSize - 10000);
    EXPECT_TRUE(HoldsOnly(bytes, 0, 5000, 'x'));
    EXPECT_TRUE(HoldsOnly(bytes, kSize - 5000, kSize, 'x'));
}

TEST(MemoryAdvice, DiscardedMemoryCanBeWritten) {
    std::vector<char> bytes(kSize, 'x');
    DiscardContents(bytes.data(), kSize);
    std::fill(bytes.begin(), bytes.end(), 'y');
    EXPECT_TRUE(HoldsOnly(bytes, 0, kSize, 'y'));
}

TEST(MemoryAdvice, LessThanAPageStaysAsItIs) {
    std::vector<char> bytes(kSize, 'x');
    for (std::size_t begin = 0; begin < 3 * 4096; begin += 100) {
        DiscardContents(bytes.data() + begin, 0);
        DiscardContents(bytes.data() + begin, 4095);
        PreferLargePages(bytes.data() + begin, 4095);
    }
    EXPECT_TRUE(HoldsOnly(bytes, 0, kSize, 'x'));
}

}  // namespace
}  // namespace macroengine::platform
