#include "runtime/Arena.h"

#include <algorithm>

namespace macroengine {

namespace {

// A small program takes little, a large one seldom asks.
constexpr std::size_t kFirstChunk = 2048;
constexpr std::size_t kLargestChunk = std::size_t{1} << 18;

}  // namespace

void* Arena::AllocateInNextChunk(std::size_t size) {
    const std::size_t usual = std::clamp(capacity_ * 2, kFirstChunk, kLargestChunk);
    const std::size_t capacity = std::max(usual, size);
    // Not make_unique, which would fill the chunk.
    chunks_.push_back(std::unique_ptr<std::byte[]>(new std::byte[capacity]));
    capacity_ = capacity;
    used_ = size;
    return chunks_.back().get();
}

}  // namespace macroengine
