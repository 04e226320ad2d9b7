#pragma once

#include "runtime/Operator.h"
#include "runtime/plan/Step.h"

namespace macroengine::plan {

/// @param assigns  whether the result is also assigned to a variable, the target of the step.
/// @return the step for an operation whose operands are of any kind; it turns itself into a quicker one for
///         the kinds that it meets.
Handler ChooseOperation(Operator op, Right right, bool assigns);

}  // namespace macroengine::plan
