#pragma once

#include <cstdint>

#include "runtime/Limits.h"

namespace macroengine {

/// Counts the owners of a block of one program, which belongs to one thread. At the limit it sticks: the block is
/// then kept for good, because nobody can tell any more when its last owner goes.
class ReferenceCount {
public:
    void Add() {
        if (count_ != limits::kReferences) ++count_;
    }

    /// @return whether the last owner has gone.
    bool Drop() { return count_ != limits::kReferences && --count_ == 0; }

    bool IsShared() const { return count_ > 1; }

private:
    std::uint32_t count_ = 1;
};

}  // namespace macroengine
