#pragma once

#include "runtime/Operator.h"
#include "runtime/plan/Step.h"

namespace macroengine::plan {

/// What follows a comparison.
enum class Branch {
    None,       ///< the next step, whatever the result
    IfFalse,    ///< the jump when it does not hold, else the next step
    BackIfTrue  ///< the jump, which leads backwards, when it holds, else the next step
};

/// @return the step for a comparison, or for two conditions joined by "&&" or "||", with what follows it; it
///         turns itself into a quicker one for the kinds that it meets.
Handler ChooseComparison(Operator op, Right right, Branch branch);

}  // namespace macroengine::plan
