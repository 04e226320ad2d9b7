#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

#include "runtime/plan/Step.h"

namespace macroengine {

/// A program as its runner holds it: its statements, and for each group the index of its first one.
struct ProgramText {
    const plan::Statements& statements;
    const std::vector<std::uint32_t>& groupStarts;
};

/// The quick way to run the groups of a loop, derived from their statements.
///
/// A plan does what its statements would do, and leaves to them whatever is not usual: an error, a state of
/// the program other than running, values of kinds that it has no step for. It then stops where they are to go on.
/// The results that statements keep are up to date whenever a statement runs.
class ExecutionPlan {
public:
    /// Derives the plan of the groups from `firstGroup` up to `endGroup`, which is where the loop is left.
    /// @param counts  whether its statements are counted, for a run that has limits.
    ExecutionPlan(const ProgramText& program, std::size_t firstGroup, std::size_t endGroup, bool counts);
    ExecutionPlan(const ExecutionPlan&) = delete;
    ExecutionPlan& operator=(const ExecutionPlan&) = delete;

    bool Covers(std::size_t group) const { return group >= firstGroup_ && group < endGroup_; }

    /// Runs from the start of a group that the plan covers.
    ///
    /// @param state    the state of the program; the plan stops when it is no longer running.
    /// @param current  receives the statement under way when an exception leaves it.
    /// @param meter    of a run that has limits, for a plan that counts; else null.
    /// @return where the plan has stopped.
    plan::Exit Run(std::size_t group, const std::atomic<RunState>& state, std::size_t& current,
                   RunMeter* meter);

private:
    friend class PlanBuilder;

    const ProgramText program_;
    std::size_t firstGroup_;
    std::size_t endGroup_;
    bool counts_;
    std::vector<plan::Step> steps_;
    std::vector<plan::StepOrigin> origins_;  ///< of the steps
    std::vector<plan::Step*> entries_;       ///< for each group its first step
    std::deque<ValueView> slots_;  ///< literals, and elements on their way from one step to the next
};

}  // namespace macroengine
