#include "runtime/Arena.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

namespace macroengine {
namespace {

TEST(Arena, GivesMemoryOfEverySizeThatNothingElseUses) {
    Arena arena;
    struct Piece {
        unsigned char* memory;
        std::size_t size;
    };
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < 3000; ++i) {
        const std::size_t size = i % 700 == 0 ? 300000 : i % 97 + 1;
        const std::size_t alignment = std::size_t{1} << (i % 4);
        auto* const memory = static_cast<unsigned char*>(arena.Allocate(size, alignment));
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(memory) % alignment, 0U);
        std::memset(memory, static_cast<int>(i % 251), size);
        pieces.push_back({memory, size});
    }
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const std::vector<unsigned char> expected(pieces[i].size, static_cast<unsigned char>(i % 251));
        ASSERT_EQ(std::memcmp(pieces[i].memory, expected.data(), expected.size()), 0) << i;
    }
}

TEST(Arena, AChunkThatHoldsLargePagesBeginsAtOne) {
    constexpr std::uintptr_t kLargePage = std::uintptr_t{1} << 21;
    Arena arena;
    // Chunks double, so one of at least two large pages is among the first few.
    for (int i = 0; i < 40; ++i) {
        auto* const memory = static_cast<unsigned char*>(arena.Allocate(1 << 18, 8));
        memory[0] = 1;
        memory[(1 << 18) - 1] = 2;
    }
    // A piece that leaves no room for that takes a chunk as it comes.
    auto* const large = static_cast<unsigned char*>(arena.Allocate(3 * kLargePage, 8));
    large[0] = 3;
    large[3 * kLargePage - 1] = 4;
    EXPECT_EQ(large[0] + large[3 * kLargePage - 1], 7);
}

}  // namespace
}  // namespace macroengine
