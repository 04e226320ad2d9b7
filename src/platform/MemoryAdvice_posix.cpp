#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

#include "platform/MemoryAdvice.h"

namespace macroengine::platform {

namespace {

/// Gives the advice on the whole pages that lie in the memory.
void Advise(void* memory, std::size_t size, int advice) {
    static const std::uintptr_t page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const std::uintptr_t begin = (reinterpret_cast<std::uintptr_t>(memory) + page - 1) / page * page;
    const std::uintptr_t end = (reinterpret_cast<std::uintptr_t>(memory) + size) / page * page;
    if (begin < end) madvise(reinterpret_cast<void*>(begin), end - begin, advice);
}

}  // namespace

void PreferLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size) {
#ifdef MADV_HUGEPAGE
    Advise(memory, size, MADV_HUGEPAGE);
#endif
}

void DiscardContents(void* memory, std::size_t size) {
    Advise(memory, size, MADV_DONTNEED);
}

}  // namespace macroengine::platform
