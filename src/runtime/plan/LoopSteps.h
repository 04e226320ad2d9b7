#pragma once

#include "runtime/Operator.h"
#include "runtime/plan/Step.h"

namespace macroengine::plan {

/// What ends most loops: `variable = variable + value` in the last line of the body, and behind it the test of
/// that variable. One step does both; the test's own step follows it.
///
/// @param op     Add or Subtract.
/// @param by     what is added or subtracted.
/// @param test   a comparison of two values.
/// @param limit  what the variable is compared with.
/// @return null for other operators.
Handler ChooseAdvance(Operator op, Right by, Operator test, Right limit);

}  // namespace macroengine::plan
