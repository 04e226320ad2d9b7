#pragma once

#include "runtime/CMacroStatementBase.h"
#include "runtime/Operator.h"

namespace macroengine {

/// `left operator right` of a condition. Its result is a boolean.
class CMacroStatementCompare final : public CMacroStatementBase {
public:
    CMacroStatementCompare(SourceUnit& unit, std::uint32_t line);

    void SetLeft(Operand operand) { left_ = std::move(operand); }
    void SetRight(Operand operand) { right_ = std::move(operand); }
    void SetOperator(std::string_view text) { operator_ = OperatorFromText(text); }

    const Operand& GetLeft() const { return left_; }
    const Operand& GetRight() const { return right_; }
    Operator GetOperator() const { return operator_; }
    CMacroCommonValue& GetResult() { return result_; }

    bool vfRun() override;

private:
    bool CompareLikes(const ValueView& left, const ValueView& right, bool& result);
    bool CompareTexts(std::string_view left, std::string_view right, bool& result);

    Operator operator_ = Operator::Unknown;
    Operand left_;
    Operand right_;
    CMacroCommonValue result_;
};

}  // namespace macroengine
