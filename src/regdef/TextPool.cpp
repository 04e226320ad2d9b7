#include "regdef/TextPool.h"

#include <algorithm>

namespace macroengine {

const char* TextPool::Add(std::initializer_list<std::string_view> texts) {
    std::size_t size = 0;
    for (const std::string_view text : texts)
        size += text.size() + 1;
    char* const first = Allocate(size);
    char* end = first;
    for (const std::string_view text : texts) {
        end = std::copy(text.begin(), text.end(), end);
        *end++ = '\0';
    }
    return first;
}

char* TextPool::Allocate(std::size_t size) {
    if (size > room_) {
        // A block of its own wastes less than giving up what is left of the block that is being filled.
        if (size > nextBlockSize_ / 4) return AddBlock(size);
        free_ = AddBlock(nextBlockSize_);
        room_ = nextBlockSize_;
        nextBlockSize_ = std::min(nextBlockSize_ * 2, kLargestBlockSize);
    }
    char* const allocated = free_;
    free_ += size;
    room_ -= size;
    return allocated;
}

char* TextPool::AddBlock(std::size_t size) {
    // Not make_unique, which would fill the block with zeros.
    blocks_.push_back(std::unique_ptr<char[]>(new char[size]));
    return blocks_.back().get();
}

}  // namespace macroengine
