#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "runtime/plan/ExecutionPlan.h"

namespace macroengine {

/// The plans of a program's loops. What runs only once needs none: a loop gets its plan when it first jumps
/// back, together with all loops around it and inside of it.
class LoopPlans {
public:
    /// @param program  outlives the object.
    explicit LoopPlans(const ProgramText& program) : program_(program) {}

    /// Finds the plan of the outermost loop around a group that is jumped back to.
    /// @param counts  whether the plan is to count its statements, for a run that has limits.
    /// @return null when the group is in no loop.
    /// @throws std::bad_alloc when there is no memory for it; it may be asked for again. The plans found before
    /// may be gone then.
    ExecutionPlan* Find(std::size_t group, bool counts);

private:
    /// An outermost loop: the groups from `first` up to where it is left.
    struct Range {
        std::size_t first;
        std::size_t end;
        std::unique_ptr<ExecutionPlan> plan;
    };

    void FindRanges();

    const ProgramText program_;
    std::size_t knownStatements_ = 0;  ///< the size of the program when the ranges were found
    bool counts_ = false;              ///< what the plans do
    std::vector<Range> ranges_;        ///< in order
};

}  // namespace macroengine
