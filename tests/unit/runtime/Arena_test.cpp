#include "runtime/Arena.h"

#include <algorithm>
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
    constexpr std::size_t kSize = std::size_t{1} << 18;
    Arena arena;
    std::vector<unsigned char*> pieces;
    // Chunks double to 8 MiB: these 10 MiB need at least one that holds large pages.
    for (unsigned char i = 0; i < 40; ++i) {
        pieces.push_back(static_cast<unsigned char*>(arena.Allocate(kSize, 8)));
        std::memset(pieces.back(), i, kSize);
    }
    EXPECT_TRUE(std::any_of(pieces.begin(), pieces.end(), [](const unsigned char* piece) {
        return reinterpret_cast<std::uintptr_t>(piece) % kLargePage == 0;
    }));
    // A piece that leaves no room for that takes a chunk as it comes.
    std::memset(arena.Allocate(3 * kLargePage, 8), 255, 3 * kLargePage);
    for (unsigned char i = 0; i < 40; ++i) {
        const std::vector<unsigned char> expected(kSize, i);
        ASSERT_EQ(std::memcmp(pieces[i], expected.data(), kSize), 0) << static_cast<int>(i);
    }
}

}  // namespace
}  // namespace macroengine
