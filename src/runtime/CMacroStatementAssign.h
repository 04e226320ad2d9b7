#pragma once

#include "runtime/CMacroStatementBase.h"

namespace macroengine {

/// `variable = source` and `variable[subscript]... = source`.
class CMacroStatementAssign final : public CMacroStatementBase {
public:
    CMacroStatementAssign(SourceUnit& unit, std::uint32_t line);

    void SetSource(CMacroCommonValue operand) { source_ = std::move(operand); }

    /// @param operand  a variable reference or an element reference.
    void SetDestination(CMacroCommonValue operand) { destination_ = std::move(operand); }

    const CMacroCommonValue& GetSource() const { return source_; }
    const CMacroCommonValue& GetDestination() const { return destination_; }

    bool vfRun() override;

private:
    CMacroCommonValue source_;
    CMacroCommonValue destination_;
};

}  // namespace macroengine
