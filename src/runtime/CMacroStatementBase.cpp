#include "runtime/CMacroStatementBase.h"

#include "runtime/OperandResolution.h"

namespace macroengine {

CMacroStatementBase::CMacroStatementBase(Kind kind, SourceUnit& unit, std::uint32_t line)
    : unit_(&unit), line_(line), kind_(kind), breakFlag_(false), isInArena_(false) {}

CMacroStatementBase::~CMacroStatementBase() = default;

bool CMacroStatementBase::vfRun() {
    return false;
}

bool CMacroStatementBase::IsBreakStatement() const {
    return false;
}

std::int32_t CMacroStatementBase::GetNextIndex() const {
    return kNextInOrder;
}

bool CMacroStatementBase::Fail(std::string_view text) {
    unit_->errors.AddLocatedError(unit_->fileName.c_str(), static_cast<std::int32_t>(line_), text);
    return false;
}

bool CMacroStatementBase::ResolveReference(const ValueView& operand, ValueView& value) {
    std::string error;
    return ResolveOperand(operand, value, error) || Fail(error);
}

}  // namespace macroengine
