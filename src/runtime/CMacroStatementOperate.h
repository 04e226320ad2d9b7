#pragma once

#include "runtime/CMacroStatementBase.h"
#include "runtime/Operator.h"

namespace macroengine {

/// `left operator right` of an arithmetic expression.
class CMacroStatementOperate final : public CMacroStatementBase {
public:
    CMacroStatementOperate(SourceUnit& unit, std::uint32_t line);

    void SetLeft(Operand operand) { left_ = std::move(operand); }
    void SetRight(Operand operand) { right_ = std::move(operand); }
    void SetOperator(std::string_view text) { operator_ = OperatorFromText(text); }

    const Operand& GetLeft() const { return left_; }
    const Operand& GetRight() const { return right_; }
    Operator GetOperator() const { return operator_; }
    CMacroCommonValue& GetResult() { return result_; }

    bool vfRun() override;

private:
    bool OperateText(const ValueView& left, const ValueView& right);
    bool OperateIntegers(std::int32_t left, const ValueView& right);
    bool OperateFloating(double left, const ValueView& right);
    bool OperateBoolean();
    bool FailOnBits();

    Operator operator_ = Operator::Unknown;
    Operand left_;
    Operand right_;
    CMacroCommonValue result_;
};

}  // namespace macroengine
