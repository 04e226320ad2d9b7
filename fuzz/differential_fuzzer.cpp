// The engine against the reference evaluator: every program has the same results, error lines and variables in both.

#include <cstdio>
#include <cstdlib>

#include "common/Differential.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto comparison = macroengine::fuzz::CompareWithReference(data, size);
    if (comparison.outcome == macroengine::fuzz::Comparison::Outcome::Different) {
        std::fputs(comparison.Explain().c_str(), stderr);
        std::abort();
    }
    return 0;
}
