#pragma once

#include <vector>

#include "categories/CMacroCategoryCmdList.h"
#include "runtime/CMacroStatementBase.h"

namespace macroengine {

/// `category.command(arguments)`, on its own, as the source of an assignment, or assigned to.
class CMacroStatementCategory final : public CMacroStatementBase {
public:
    /// @param entry  what is called; owned by the list.
    CMacroStatementCategory(SourceUnit& unit, std::uint32_t line, CMacroCategoryCmdList& list,
                            CommandEntry& entry);

    void SetArguments(OperandList operands) { operands_ = std::move(operands); }

    /// @param operand  the value assigned to the call; a result reference without a target for none.
    void SetAssignedValue(Operand operand);

    const CommandEntry& GetEntry() const { return entry_; }
    const OperandList& GetOperands() const { return operands_; }
    const Operand& GetAssignedValue() const { return assigned_; }
    bool IsAssignedTo() const { return isAssignedTo_; }
    CMacroCommonValue& GetResult() { return result_; }

    bool vfRun() override;

private:
    bool ResolveArguments();

    bool isAssignedTo_ = true;
    CMacroCategoryCmdList& list_;
    CommandEntry& entry_;
    OperandList operands_;

    /// What the operands stand for, while the command runs; kept from the first run on so that later ones
    /// need not allocate.
    std::vector<ValueView> arguments_;
    Operand assigned_;
    CMacroCommonValue result_;
};

}  // namespace macroengine
