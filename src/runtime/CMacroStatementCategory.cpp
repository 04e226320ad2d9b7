#include "runtime/CMacroStatementCategory.h"

#include <utility>

#include "runtime/OperandResolution.h"

namespace macroengine {

CMacroStatementCategory::CMacroStatementCategory(SourceUnit& unit, std::uint32_t line,
                                                 CMacroCategoryCmdList& list, CommandEntry& entry)
    : CMacroStatementBase(Kind::Category, unit, line), list_(list), entry_(entry) {}

bool CMacroStatementCategory::IsAssignedTo() const {
    return assigned_.GetType() != ValueKind::ResultReference || assigned_.View().result != nullptr;
}

bool CMacroStatementCategory::ResolveArguments() {
    arguments_.resize(operands_.size());
    for (std::size_t i = 0; i < operands_.size(); ++i) {
        if (!Resolve(operands_[i], arguments_[i])) return false;
    }
    return true;
}

bool CMacroStatementCategory::vfRun() {
    ValueView assigned;
    const bool isAssignedTo = IsAssignedTo();
    if (!ResolveArguments() || (isAssignedTo && !Resolve(assigned_, assigned))) return false;
    const CallOperands operands{arguments_, isAssignedTo ? &assigned : nullptr};
    if (list_.Execute(entry_, MutableUnit(), GetLineNumber(), operands, result_)) return true;
    result_ = CMacroCommonValue::Boolean(false);
    return false;
}

}  // namespace macroengine
