#include "runtime/CMacroStatementCategory.h"

#include <utility>

#include "runtime/OperandResolution.h"

namespace macroengine {

namespace {

/// Lets the arguments of a call go when it is over, whatever ended it: as long as an argument is held, a
/// write to the variable it came from would have to copy the array.
class ArgumentsInUse {
public:
    explicit ArgumentsInUse(std::vector<CMacroCommonValue>& arguments) : arguments_(arguments) {}
    ArgumentsInUse(const ArgumentsInUse&) = delete;
    ArgumentsInUse& operator=(const ArgumentsInUse&) = delete;
    ~ArgumentsInUse() {
        for (CMacroCommonValue& argument : arguments_)
            argument.Clear();
    }

private:
    std::vector<CMacroCommonValue>& arguments_;
};

}  // namespace

CMacroStatementCategory::CMacroStatementCategory(SourceUnit& unit, std::uint32_t line,
                                                 CMacroCategoryCmdList& list, CommandEntry& entry)
    : CMacroStatementBase(Kind::Category, unit, line), list_(list), entry_(entry) {}

void CMacroStatementCategory::SetArguments(std::vector<CMacroCommonValue> operands) {
    operands_ = std::move(operands);
    arguments_.resize(operands_.size());
}

bool CMacroStatementCategory::IsAssignedTo() const {
    return assigned_.GetType() != ValueKind::ResultReference || assigned_.View().result != nullptr;
}

bool CMacroStatementCategory::ResolveArguments() {
    for (std::size_t i = 0; i < operands_.size(); ++i) {
        ValueView value;
        if (!Resolve(operands_[i], value)) return false;
        arguments_[i].Assign(value);
    }
    return true;
}

bool CMacroStatementCategory::ResolveAssigned(CMacroCommonValue& value) {
    if (!IsAssignedTo()) return true;
    ValueView view;
    if (!Resolve(assigned_, view)) return false;
    value.Assign(view);
    return true;
}

bool CMacroStatementCategory::vfRun() {
    CMacroCommonValue assigned;
    const ArgumentsInUse inUse(arguments_);
    if (!ResolveArguments() || !ResolveAssigned(assigned)) return false;
    const CallOperands operands{arguments_, IsAssignedTo() ? &assigned : nullptr};
    if (list_.Execute(entry_, MutableUnit(), GetLineNumber(), operands, result_)) return true;
    result_ = CMacroCommonValue::Boolean(false);
    return false;
}

}  // namespace macroengine
