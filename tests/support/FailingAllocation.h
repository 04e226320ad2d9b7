#pragma once

#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>

/// @file
/// Replaces the allocation functions of the program: one file of a program includes this, no other.

namespace macroengine::test {

/// What the allocation functions do on this thread.
struct AllocationPolicy {
    long allowed = -1;  ///< allocations that still succeed; negative for any number
    std::size_t limit = std::numeric_limits<std::size_t>::max();  ///< the largest request that succeeds
    long count = 0;                                               ///< of all requests
};

inline thread_local AllocationPolicy allocationPolicy;

/// Lets this thread's allocations fail as long as the object lives: those after the first `allowed`, and
/// those of more than `limit` bytes.
class FailingAllocation {
public:
    explicit FailingAllocation(long allowed, std::size_t limit = std::numeric_limits<std::size_t>::max()) {
        allocationPolicy = {allowed, limit, 0};
    }
    ~FailingAllocation() { allocationPolicy = {}; }
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    static long GetCount() { return allocationPolicy.count; }
};

inline void* AllocateByPolicy(std::size_t size) {
    AllocationPolicy& policy = allocationPolicy;
    ++policy.count;
    if (policy.allowed == 0 || size > policy.limit) return nullptr;
    if (policy.allowed > 0) --policy.allowed;
    return std::malloc(size == 0 ? 1 : size);
}

}  // namespace macroengine::test

void* operator new(std::size_t size) {
    if (void* const memory = macroengine::test::AllocateByPolicy(size)) return memory;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return macroengine::test::AllocateByPolicy(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return macroengine::test::AllocateByPolicy(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
