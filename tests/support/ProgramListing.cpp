#include "support/ProgramListing.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "runtime/CMacroStatementControl.h"

namespace macroengine::test {

namespace {

using Statements = CMacroPrg::Statements;
using GroupStarts = std::vector<std::uint32_t>;

// What a program consists of is nobody's business but its own, and yet it is what a compiler is there for. An
// explicit instantiation may name private members; this one hands them to the functions declared here.

const Statements& StatementsOf(const CMacroPrg& program);
const GroupStarts& GroupStartsOf(const CMacroPrg& program);

template <Statements CMacroPrg::*statements, GroupStarts CMacroPrg::*groupStarts>
struct ProgramMembers {
    friend const Statements& StatementsOf(const CMacroPrg& program) { return program.*statements; }
    friend const GroupStarts& GroupStartsOf(const CMacroPrg& program) { return program.*groupStarts; }
};
template struct ProgramMembers<&CMacroPrg::statements_, &CMacroPrg::groupStarts_>;

std::string ListControl(const CMacroStatementControl& control) {
    using Control = CMacroStatementControl::Control;
    constexpr const char* kNames[] = {"if",      "elseif", "else",       "endif",  "loop",
                                      "endloop", "exit",   "branch end", "unknown"};
    std::string name = kNames[static_cast<int>(control.GetControl())];
    switch (control.GetControl()) {
        case Control::If:
        case Control::ElseIf:
        case Control::Loop:
            // A condition that holds lets the program go on in order.
            if (control.GetJumpTarget() != -1) name += " true:" + std::to_string(control.GetJumpTarget());
            return name + " false:" + std::to_string(control.GetFalseTarget());
        case Control::EndLoop:
        case Control::BranchEnd:
            return name + " to:" + std::to_string(control.GetJumpTarget());
        default:
            return name;
    }
}

std::string ListStatement(const CMacroStatementBase& statement) {
    switch (statement.GetKind()) {
        case CMacroStatementBase::Kind::Assign:
            return "assign";
        case CMacroStatementBase::Kind::Operate:
            return "operate";
        case CMacroStatementBase::Kind::Compare:
            return "compare";
        case CMacroStatementBase::Kind::Control:
            return ListControl(static_cast<const CMacroStatementControl&>(statement));
        case CMacroStatementBase::Kind::Category:
            return "call";
    }
    return "unknown";
}

}  // namespace

std::string ListProgram(const CMacroPrg& program) {
    const Statements& statements = StatementsOf(program);
    const GroupStarts& starts = GroupStartsOf(program);
    std::string listing;
    for (std::size_t group = 0; group < starts.size(); ++group) {
        const std::size_t begin = starts[group];
        const std::size_t end = group + 1 < starts.size() ? starts[group + 1] : statements.size();
        const CMacroStatementBase& first = *statements[begin];
        listing += std::to_string(group) + " L" + std::to_string(first.GetLineNumber()) +
                   std::string(first.GetCompileNumber(), '+');
        for (std::size_t i = begin; i < end; ++i)
            listing.append(i > begin ? ", " : " ").append(ListStatement(*statements[i]));
        listing += "\n";
    }
    return listing;
}

}  // namespace macroengine::test
