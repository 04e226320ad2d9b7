#pragma once

#include <cstddef>

namespace macroengine::platform {

// What the system is told about memory, so that a program takes less time and room. A system may not listen.

/// Says that all of the memory will be used, a lot of it. The system may then provide it in large pages.
void PreferLargePages(void* memory, std::size_t size);

/// Says that nobody will read again what the memory holds. It stays its owner's and may hold anything from then
/// on.
void DiscardContents(void* memory, std::size_t size);

}  // namespace macroengine::platform
