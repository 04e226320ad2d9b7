#pragma once

#include <cstdio>
#include <cstdlib>

namespace macroengine::fuzz {

/// Ends the program when something does not hold that always has to.
inline void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "It does not hold that %s.\n", what);
    std::abort();
}

}  // namespace macroengine::fuzz
