#pragma once

#include <cstdint>

namespace macroengine {

/// How deep constructs of one kind may stand inside each other. The parsers call themselves for each level,
/// so the limit is what keeps a hostile file from exhausting the stack.
constexpr std::uint32_t kNestingLimit = 256;

/// Counts one level of nesting as long as it lives.
class NestingGuard {
public:
    explicit NestingGuard(std::uint32_t& depth) : depth_(depth) { ++depth_; }
    NestingGuard(const NestingGuard&) = delete;
    NestingGuard& operator=(const NestingGuard&) = delete;
    ~NestingGuard() { --depth_; }

    bool IsTooDeep() const { return depth_ > kNestingLimit; }

private:
    std::uint32_t& depth_;
};

}  // namespace macroengine
