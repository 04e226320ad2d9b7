#include "runtime/Arena.h"

#include <algorithm>
#include <cstdint>

#include "platform/MemoryAdvice.h"

namespace macroengine {

namespace {

// A small program takes little, a large one seldom asks.
constexpr std::size_t kFirstChunk = 2048;
constexpr std::size_t kLargestChunk = std::size_t{1} << 23;

/// A chunk that holds one is worth large pages, which take the system a fraction of the time.
constexpr std::size_t kLargePage = std::size_t{1} << 21;

/// @return how far the memory is from the next place where a large page can begin.
std::size_t DistanceToLargePage(const void* memory) {
    return (0 - reinterpret_cast<std::uintptr_t>(memory)) & (kLargePage - 1);
}

}  // namespace

void* Arena::AllocateInNextChunk(std::size_t size) {
    const std::size_t usual = std::clamp(capacity_ * 2, kFirstChunk, kLargestChunk);
    const std::size_t capacity = std::max(usual, size);
    // Not make_unique, which would fill the chunk.
    chunks_.push_back(std::unique_ptr<std::byte[]>(new std::byte[capacity]));
    std::byte* const memory = chunks_.back().get();
    // What lies before the first large page is never touched, so it takes addresses and no memory.
    const bool isLarge = capacity >= 2 * kLargePage && size <= kLargePage;
    const std::size_t skipped = isLarge ? DistanceToLargePage(memory) : 0;
    if (isLarge) platform::PreferLargePages(memory, capacity);
    capacity_ = capacity;
    used_ = skipped + size;
    return memory + skipped;
}

}  // namespace macroengine
