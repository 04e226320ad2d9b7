#pragma once

#include "runtime/plan/Step.h"

namespace macroengine::plan {

/// Leaves the work of a step to its statements.
Step* RunStatements(Step* step, Frame& frame);

/// Runs a statement that goes on in order.
Step* RunStatement(Step* step, Frame& frame);

/// `variable = operand`.
Step* CopyValue(Step* step, Frame& frame);

/// Goes on elsewhere in the plan.
Step* Jump(Step* step, Frame& frame);

/// Goes on with the next step, as long as the program is to run on.
Step* CheckState(Step* step, Frame& frame);

/// Counts the statements whose steps follow, in a run that has limits.
Step* CountStatements(Step* step, Frame& frame);

/// Leaves a jump backwards to its statement because the state of the program has changed.
Step* LeaveAtJump(Step* step, Frame& frame);

/// Leaves the plan for a group outside of it.
Step* LeavePlan(Step* step, Frame& frame);

}  // namespace macroengine::plan
