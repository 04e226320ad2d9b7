#include "runtime/plan/ExecutionPlan.h"

#include "runtime/plan/PlanBuilder.h"

namespace macroengine {

using plan::Step;

ExecutionPlan::ExecutionPlan(const ProgramText& program, std::size_t firstGroup, std::size_t endGroup,
                             bool counts)
    : program_(program), firstGroup_(firstGroup), endGroup_(endGroup), counts_(counts) {
    PlanBuilder(*this).Build();
}

plan::Exit ExecutionPlan::Run(std::size_t group, const std::atomic<RunState>& state, std::size_t& current,
                              RunMeter* meter) {
    plan::Frame frame{state,           steps_.data(),
                      origins_.data(), program_.statements,
                      current,         entries_,
                      firstGroup_,     program_.groupStarts,
                      meter,           {}};
    for (Step* step = entries_[group - firstGroup_]; step != nullptr;)
        step = step->run(step, frame);
    return frame.exit;
}

}  // namespace macroengine
