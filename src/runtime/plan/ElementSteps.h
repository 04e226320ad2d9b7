#pragma once

#include "runtime/plan/Step.h"

namespace macroengine::plan {

/// Reads element `right` of the array `left`, for the step that follows.
Step* LoadElement(Step* step, Frame& frame);

/// Reads element `second` of element `right` of the array `left`, for the step that follows.
Step* LoadNestedElement(Step* step, Frame& frame);

/// `variable = left[right]`.
Step* CopyElement(Step* step, Frame& frame);

/// `variable = left[right][second]`.
Step* CopyNestedElement(Step* step, Frame& frame);

/// `target[left] = right`.
Step* StoreElement(Step* step, Frame& frame);

/// `target[left][second] = right`.
Step* StoreNestedElement(Step* step, Frame& frame);

}  // namespace macroengine::plan
