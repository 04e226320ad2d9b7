#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "runtime/CMacroCommonValue.h"
#include "runtime/CMacroStatementBase.h"
#include "runtime/RunMeter.h"
#include "runtime/RunState.h"

// A step does the work of one statement or of a few that follow each other in a group, for values of the kinds
// that it was chosen for. It looks at the kinds first; when they are others it leaves the work to a more
// general step and in the end to the statements themselves (RunStatements), of which it has changed nothing.
//
// A step ends by going on with the next one. Where the compiler turns such a call at the end of a function
// into a jump, the quick steps call each other (Continue); elsewhere each returns the next one to the loop in
// ExecutionPlan::Run. The slow ones always do: a compiler makes no jump of a call behind which a local object
// may still be needed, and the stack would grow.

namespace macroengine::plan {

struct Step;
struct Frame;

using Handler = Step* (*)(Step* step, Frame& frame);

struct Step {
    Handler run;
    union {
        const ValueView* left;
        CMacroStatementBase* statement;  ///< the one that a step runs itself
    };
    union {
        const ValueView* right;
        std::int32_t literal;          ///< in its place, where a step is made for that
        std::uint32_t statementIndex;  ///< of the one that a step runs itself
        std::uint32_t statementCount;  ///< of those that a step counts
    };
    ValueView* target;  ///< the variable that is assigned to
    union {
        ValueView* result;        ///< the result of the operation or comparison
        const ValueView* second;  ///< the second of two subscripts
    };
    Step* jump;  ///< where a branch goes on that is taken
};

/// What only the rare ways need to know of a step.
struct StepOrigin {
    std::uint32_t firstStatement = 0;
    std::uint32_t endStatement = 0;
    std::uint32_t after = 0;  ///< the step to go on with when the statements have run
    std::int32_t jumpGroup = -1;
    std::uint32_t jumpStatement = 0;  ///< of a jump backwards: the statement that jumps

    // In a plan that counts its statements: the end of those that were counted before this step, and how many
    // of them a jump backwards hands back when it leaves the plan.
    std::uint32_t countedEnd = 0;
    std::uint32_t countedByJump = 0;
};

enum class Progress {
    ToRun,     ///< the statement has not run
    HasRun,    ///< the statement has run, and what follows it has not begun
    HasFailed  ///< the statement has run and reported an error
};

/// Where a plan has stopped, for the statements to go on.
struct Exit {
    std::size_t statement = 0;
    Progress progress = Progress::ToRun;
};

using Statements = std::vector<StatementPointer<CMacroStatementBase>>;

/// One run of a plan.
struct Frame {
    const std::atomic<RunState>& state;
    Step* steps;
    const StepOrigin* origins;
    const Statements& statements;
    std::size_t& current;  ///< the statement under way, for who catches an exception
    const std::vector<Step*>& entries;
    std::size_t firstGroup;
    const std::vector<std::uint32_t>& groupStarts;
    RunMeter* meter;  ///< of a run that has limits, else null
    Exit exit;

    const StepOrigin& OriginOf(const Step* step) const { return origins[step - steps]; }
    bool IsRunning() const { return state.load(std::memory_order_acquire) == RunState::Running; }
};

#ifdef MACROENGINE_TAIL_CALLS
constexpr bool kTailCalls = true;
#else
constexpr bool kTailCalls = false;
#endif

inline Step* Continue(Step* next, Frame& frame) {
    if constexpr (kTailCalls) return next->run(next, frame);
    return next;
}

/// Stops the plan for the statements to go on.
/// @param counted  how many statements that were counted are left to them.
inline Step* Leave(Frame& frame, std::size_t statement, Progress progress, std::uint32_t counted) {
    if (frame.meter != nullptr) frame.meter->GiveBack(counted);
    frame.exit = {statement, progress};
    return nullptr;
}

/// Combined kinds of values: 0 when all of them are integers.
inline std::uint32_t Kind(const ValueView& value) {
    return static_cast<std::uint32_t>(value.eType);
}

/// 0 when the value is a floating one.
inline std::uint32_t NotFloating(const ValueView& value) {
    return Kind(value) ^ static_cast<std::uint32_t>(ValueKind::Floating);
}

inline bool IsNumber(const ValueView& value) {
    return Kind(value) <= static_cast<std::uint32_t>(ValueKind::Floating);
}

inline double ToFloating(const ValueView& number) {
    return number.eType == ValueKind::Integer ? number.integer : number.floating;
}

/// What stands on the right of an operator.
enum class Right { Value, Literal };

template <Right right>
ValueView RightOf(const Step& step) {
    if constexpr (right == Right::Literal) return ValueView::Integer(step.literal);
    return *step.right;
}

/// Makes a cell a copy of a value, which may be a part of what the cell holds.
inline void AssignCell(ValueView& cell, const ValueView& value) {
    Retain(value);
    Release(std::exchange(cell, value));
}

}  // namespace macroengine::plan
