#pragma once

#include <cstddef>
#include <unordered_set>
#include <vector>

#include "runtime/ValueView.h"

namespace macroengine {

/// Adds up the bytes behind values. What is shared counts once; nested arrays are walked without recursion.
class ValueSum {
public:
    /// @param value  stays as it is until Get.
    void Add(const ValueView& value);

    /// @return the bytes behind all values added so far.
    std::size_t Get();

private:
    std::unordered_set<const void*> seen_;
    std::vector<const SharedArray*> pending_;
    std::size_t bytes_ = 0;
};

}  // namespace macroengine
