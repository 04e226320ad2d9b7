#include "platform/MemoryAdvice.h"

namespace macroengine::platform {

// Large pages take a right that few users have.
void PreferLargePages(void*, std::size_t) {}

void DiscardContents(void*, std::size_t) {}

}  // namespace macroengine::platform
