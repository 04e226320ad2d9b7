#pragma once

#include <cstdint>

#include "runtime/Limits.h"

namespace macroengine {

/// Counts one level of nesting as long as it lives.
class NestingGuard {
public:
    explicit NestingGuard(std::uint32_t& depth) : depth_(depth) { ++depth_; }
    NestingGuard(const NestingGuard&) = delete;
    NestingGuard& operator=(const NestingGuard&) = delete;
    ~NestingGuard() { --depth_; }

    bool IsTooDeep() const { return depth_ > limits::kNesting; }

private:
    std::uint32_t& depth_;
};

}  // namespace macroengine
