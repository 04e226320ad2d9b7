#pragma once

#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>

/// @file
/// Replaces the allocation functions of the program: one file of a program includes this, no other.

namespace macroengine::test {

/// What happens after the first allocation that fails.
enum class Failing { ForEver, Once };

/// What the allocation functions do on this thread.
struct AllocationPolicy {
    long allowed = -1;  ///< allocations that still succeed; negative for any number
    std::size_t limit = std::numeric_limits<std::size_t>::max();  ///< the largest request that succeeds
    Failing failing = Failing::ForEver;
    long count = 0;     ///< of all requests
    long failures = 0;  ///< of those that were refused
};

inline thread_local AllocationPolicy allocationPolicy;

/// Lets this thread's allocations fail as long as the object lives: those after the first `allowed` (or only
/// the one after them), and those of more than `limit` bytes.
class FailingAllocation {
public:
    explicit FailingAllocation(long allowed, std::size_t limit = std::numeric_limits<std::size_t>::max()) {
        allocationPolicy = {};
        allocationPolicy.allowed = allowed;
        allocationPolicy.limit = limit;
    }
    FailingAllocation(long allowed, Failing failing) {
        allocationPolicy = {};
        allocationPolicy.allowed = allowed;
        allocationPolicy.failing = failing;
    }
    ~FailingAllocation() { allocationPolicy = {}; }
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    static long GetCount() { return allocationPolicy.count; }
    static long GetFailures() { return allocationPolicy.failures; }
};

inline void* AllocateByPolicy(std::size_t size) {
    AllocationPolicy& policy = allocationPolicy;
    ++policy.count;
    const bool isRefused = policy.allowed == 0 || size > policy.limit;
    if (policy.allowed > 0) --policy.allowed;
    if (isRefused) {
        if (policy.failing == Failing::Once) policy.allowed = -1;
        ++policy.failures;
        return nullptr;
    }
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
