#pragma once

#include "runtime/CMacroStatementBase.h"

namespace macroengine {

/// `variable = source` and `variable[subscript]... = source`.
class CMacroStatementAssign final : public CMacroStatementBase {
public:
    CMacroStatementAssign(SourceUnit& unit, std::uint32_t line);

    void SetSource(Operand operand) { source_ = std::move(operand); }

    /// @param operand  a variable reference or an element reference.
    void SetDestination(Operand operand) { destination_ = std::move(operand); }

    const Operand& GetSource() const { return source_; }
    const Operand& GetDestination() const { return destination_; }

    bool vfRun() override;

private:
    Operand source_;
    Operand destination_;
};

}  // namespace macroengine
