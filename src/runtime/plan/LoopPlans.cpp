#include "runtime/plan/LoopPlans.h"

#include <algorithm>

#include "runtime/CMacroStatementControl.h"

namespace macroengine {

using Control = CMacroStatementControl::Control;

ExecutionPlan* LoopPlans::Find(std::size_t group, bool counts) {
    if (knownStatements_ != program_.statements.size() || counts != counts_) FindRanges();
    counts_ = counts;
    const auto behind =
        std::upper_bound(ranges_.begin(), ranges_.end(), group,
                         [](std::size_t wanted, const Range& range) { return wanted < range.first; });
    if (behind == ranges_.begin()) return nullptr;
    Range& range = *std::prev(behind);
    if (group >= range.end) return nullptr;
    if (range.plan == nullptr)
        range.plan = std::make_unique<ExecutionPlan>(program_, range.first, range.end, counts);
    return range.plan.get();
}

void LoopPlans::FindRanges() {
    ranges_.clear();
    // Nothing is known until all of them have been found.
    knownStatements_ = 0;
    const std::vector<std::uint32_t>& starts = program_.groupStarts;
    for (std::size_t group = 0; group < starts.size();) {
        const std::size_t end = group + 1 < starts.size() ? starts[group + 1] : program_.statements.size();
        std::size_t next = group + 1;
        for (std::size_t i = starts[group]; i < end; ++i) {
            const CMacroStatementBase& statement = *program_.statements[i];
            if (statement.GetKind() != CMacroStatementBase::Kind::Control) continue;
            const auto& control = static_cast<const CMacroStatementControl&>(statement);
            if (control.GetControl() != Control::Loop) continue;
            // In a program that was not loaded to its end a loop may lack its exit: it was never closed and leads
            // nowhere (to -1), or there was no memory left for the statement that it leads to.
            const auto exit = static_cast<std::size_t>(control.GetFalseTarget());
            if (exit >= starts.size()) continue;
            ranges_.push_back({group, exit, nullptr});
            next = exit;
            break;
        }
        group = next;
    }
    knownStatements_ = program_.statements.size();
}

}  // namespace macroengine
