#include "macroengine/MacroCalls.h"

#include <deque>
#include <string>
#include <vector>

#include "host/CMacroFile.h"
#include "runtime/CMacroStatementCategory.h"

namespace macroengine {

namespace {

/// A call in the form that the visitor sees, with the texts that it points to.
class VisitedCall {
public:
    explicit VisitedCall(const CMacroStatementCategory& statement) {
        for (const Operand& operand : statement.GetOperands())
            arguments_.push_back(Describe(operand.View()));
        call_.file = statement.GetFileName().c_str();
        call_.line = statement.GetLineNumber();
        call_.category = statement.GetEntry().category.c_str();
        call_.command = statement.GetEntry().property.c_str();
        call_.argumentCount = static_cast<unsigned int>(arguments_.size());
        call_.arguments = arguments_.data();
        call_.assigned = nullptr;
        if (statement.IsAssignedTo()) {
            assigned_ = Describe(statement.GetAssignedValue().View());
            call_.assigned = &assigned_;
        }
    }
    VisitedCall(const VisitedCall&) = delete;
    VisitedCall& operator=(const VisitedCall&) = delete;

    const MacroCall& Get() const { return call_; }

private:
    MacroCallArgument Describe(const ValueView& operand) {
        MacroCallArgument argument{static_cast<int>(ValueKind::None), 0, 0.0, ""};
        if (!IsConcrete(operand.eType)) return argument;
        argument.type = static_cast<int>(operand.eType);
        if (operand.eType == ValueKind::Integer) argument.integer = operand.integer;
        if (operand.eType == ValueKind::Floating) argument.floating = operand.floating;
        if (operand.eType == ValueKind::String) argument.text = texts_.emplace_back(operand.Text()).c_str();
        return argument;
    }

    std::deque<std::string> texts_;
    std::vector<MacroCallArgument> arguments_;
    MacroCallArgument assigned_{};
    MacroCall call_{};
};

bool VisitCalls(const CMacroPrg& program, MacroCallVisitor visit, void* context) {
    for (const auto& statement : program.GetStatements()) {
        if (statement->GetKind() != CMacroStatementBase::Kind::Category) continue;
        const VisitedCall call(static_cast<const CMacroStatementCategory&>(*statement));
        if (!visit(call.Get(), context)) return false;
    }
    return true;
}

}  // namespace

}  // namespace macroengine

bool VisitMacroCalls(CMacroFileIF* file, MacroCallVisitor visit, void* context) {
    const auto* const macro = dynamic_cast<const macroengine::CMacroFile*>(file);
    return macro != nullptr && visit != nullptr &&
           macroengine::VisitCalls(macro->GetProgram(), visit, context);
}
