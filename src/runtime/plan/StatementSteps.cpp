#include "runtime/plan/StatementSteps.h"

namespace macroengine::plan {

namespace {

/// There is always such a group: behind each loop stands the statement that is its exit.
Step* LeaveForGroup(std::size_t group, Frame& frame) {
    return Leave(frame, frame.groupStarts[group], Progress::ToRun, 0);
}

/// Leaves to the statements what follows one that has run.
Step* LeaveBehind(const Step* step, std::size_t statement, Progress progress, Frame& frame) {
    const std::size_t next = statement + 1;
    const std::uint32_t counted = frame.OriginOf(step).countedEnd;
    return Leave(frame, statement, progress, counted > next ? counted - static_cast<std::uint32_t>(next) : 0);
}

Step* EnterGroup(std::size_t group, Frame& frame) {
    // Statements lead no farther back than to the first loop of their plan.
    const std::size_t entry = group - frame.firstGroup;
    return entry < frame.entries.size() ? frame.entries[entry] : LeaveForGroup(group, frame);
}

}  // namespace

Step* RunStatements(Step* step, Frame& frame) {
    const StepOrigin& origin = frame.OriginOf(step);
    for (std::size_t i = origin.firstStatement; i < origin.endStatement; ++i) {
        frame.current = i;
        CMacroStatementBase& statement = *frame.statements[i];
        if (!statement.vfRun()) return LeaveBehind(step, i, Progress::HasFailed, frame);
        if (!frame.IsRunning()) return LeaveBehind(step, i, Progress::HasRun, frame);
        const std::int32_t next = statement.GetNextIndex();
        if (next != CMacroStatementBase::kNextInOrder) {
            return EnterGroup(static_cast<std::uint32_t>(next), frame);
        }
    }
    return frame.steps + origin.after;
}

Step* RunStatement(Step* step, Frame& frame) {
    frame.current = step->statementIndex;
    if (!step->statement->vfRun()) return LeaveBehind(step, step->statementIndex, Progress::HasFailed, frame);
    if (!frame.IsRunning()) return LeaveBehind(step, step->statementIndex, Progress::HasRun, frame);
    if (frame.meter != nullptr) frame.meter->LookAtClock();
    return Continue(step + 1, frame);
}

Step* CopyValue(Step* step, Frame& frame) {
    const ValueView& source = *step->left;
    ValueView& target = *step->target;
    if ((Kind(source) | Kind(target)) == 0) {
        target.integer = source.integer;
        return Continue(step + 1, frame);
    }
    if (!IsConcrete(source.eType)) return RunStatements(step, frame);
    AssignCell(target, source);
    return step + 1;
}

Step* Jump(Step* step, Frame& frame) {
    return Continue(step->jump, frame);
}

Step* CheckState(Step* step, Frame& frame) {
    if (!frame.IsRunning()) return LeaveAtJump(step, frame);
    return Continue(step + 1, frame);
}

Step* LeaveAtJump(Step* step, Frame& frame) {
    const StepOrigin& origin = frame.OriginOf(step);
    return Leave(frame, origin.jumpStatement, Progress::ToRun, origin.countedByJump);
}

Step* CountStatements(Step* step, Frame& frame) {
    if (!frame.meter->Take(step->statementCount)) return LeaveAtJump(step, frame);
    return Continue(step + 1, frame);
}

Step* LeavePlan(Step* step, Frame& frame) {
    return LeaveForGroup(static_cast<std::uint32_t>(frame.OriginOf(step).jumpGroup), frame);
}

}  // namespace macroengine::plan
