#include "runtime/CMacroStatementCategory.h"

#include <utility>

#include "runtime/OperandResolution.h"

namespace macroengine {

CMacroStatementCategory::CMacroStatementCategory(SourceUnit& unit, std::uint32_t line,
                                                 CMacroCategoryCmdList& list, CommandEntry& entry)
    : CMacroStatementBase(Kind::Category, unit, line), list_(list), entry_(entry) {}

void CMacroStatementCategory::SetAssignedValue(Operand operand) {
    assigned_ = std::move(operand);
    const ValueView view = assigned_.View();
    isAssignedTo_ = view.eType != ValueKind::ResultReference || view.result != nullptr;
}

bool CMacroStatementCategory::ResolveArguments() {
    arguments_.resize(operands_.size());
    ValueView* argument = arguments_.data();
    for (const Operand& operand : operands_) {
        if (!Resolve(operand, *argument++)) return false;
    }
    return true;
}

bool CMacroStatementCategory::vfRun() {
    ValueView assigned;
    if (!ResolveArguments() || (isAssignedTo_ && !Resolve(assigned_, assigned))) return false;
    const CallOperands operands{arguments_, isAssignedTo_ ? &assigned : nullptr};
    if (list_.Execute(entry_, MutableUnit(), GetLineNumber(), operands, result_)) return true;
    result_ = CMacroCommonValue::Boolean(false);
    return false;
}

}  // namespace macroengine
