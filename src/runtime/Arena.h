#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace macroengine {

/// Memory for objects that all live until the arena dies. Nothing is given back before; whoever makes objects
/// in it destroys them first.
class Arena {
public:
    Arena() = default;
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    /// @param alignment  no more than that of any basic type.
    /// @return memory that holds `size` bytes.
    /// @throws std::bad_alloc when there is none; the arena is then as it was.
    void* Allocate(std::size_t size, std::size_t alignment) {
        const std::size_t padding = (0 - used_) & (alignment - 1);
        if (padding + size > capacity_ - used_) return AllocateInNextChunk(size);
        used_ += padding;
        void* const memory = chunks_.back().get() + used_;
        used_ += size;
        return memory;
    }

private:
    void* AllocateInNextChunk(std::size_t size);

    std::vector<std::unique_ptr<std::byte[]>> chunks_;
    std::size_t used_ = 0;      ///< of the last chunk
    std::size_t capacity_ = 0;  ///< of the last chunk
};

}  // namespace macroengine
