#include "runtime/CMacroStatementOperate.h"

#include <new>

#include "runtime/ValueText.h"

namespace macroengine {

namespace {

constexpr const char* kInternalError = "internal error : CMacroStatementOperate::vfRun";
constexpr const char* kZeroDivision = "0 division.";

bool IsBitOperator(Operator op) {
    return op == Operator::And || op == Operator::Or || op == Operator::ShiftLeft ||
           op == Operator::ShiftRight;
}

bool IsZero(const ValueView& value) {
    return (value.eType == ValueKind::Integer && value.integer == 0) ||
           (value.eType == ValueKind::Floating && value.floating == 0.0);
}

}  // namespace

CMacroStatementOperate::CMacroStatementOperate(SourceUnit& unit, std::uint32_t line)
    : CMacroStatementBase(Kind::Operate, unit, line) {}

bool CMacroStatementOperate::vfRun() {
    ValueView left;
    ValueView right;
    if (!Resolve(left_, left) || !Resolve(right_, right)) return false;
    const bool hasText = left.eType == ValueKind::String || right.eType == ValueKind::String;
    if (hasText && operator_ != Operator::Add) {
        return Fail(
            "Can't execute subtraction, multiplication or division, because the source values include both "
            "string and "
            "integer.");
    }
    if (left.eType == ValueKind::Array || right.eType == ValueKind::Array) {
        return Fail("Array variable cannot be calculated.");
    }
    if (hasText) return OperateText(left, right);
    if (IsBitOperator(operator_) && (left.eType != ValueKind::Integer || right.eType != ValueKind::Integer)) {
        return FailOnBits();
    }
    if (operator_ == Operator::Divide && IsZero(right)) return Fail(kZeroDivision);
    // The kind of the left operand decides about the kind of the result.
    if (left.eType == ValueKind::Integer) return OperateIntegers(left.integer, right);
    if (left.eType == ValueKind::Floating) return OperateFloating(left.floating, right);
    return OperateBoolean();
}

bool CMacroStatementOperate::FailOnBits() {
    const char* const text = operator_ == Operator::And         ? "&"
                             : operator_ == Operator::Or        ? "|"
                             : operator_ == Operator::ShiftLeft ? "<<"
                                                                : ">>";
    return Fail(
        std::string("Using \"").append(text).append("\" operator, the statement has to be numerical value."));
}

bool CMacroStatementOperate::OperateText(const ValueView& left, const ValueView& right) {
    try {
        if (left.eType == ValueKind::String) {
            result_ = Concatenate(left, ValueText(right).Get());
        } else {
            result_ = Concatenate(CMacroCommonValue::String(ValueText(left).Get()).View(), right.Text());
        }
        return true;
    } catch (const std::bad_alloc&) {
        return Fail("Memory allocation error");
    }
}

bool CMacroStatementOperate::OperateIntegers(std::int32_t leftValue, const ValueView& rightValue) {
    std::int32_t rightInteger = 0;
    if (rightValue.eType == ValueKind::Integer) {
        rightInteger = rightValue.integer;
    } else if (rightValue.eType == ValueKind::Floating) {
        rightInteger = TruncateToInteger(rightValue.floating);
    } else if (operator_ <= Operator::Divide) {
        return Fail(kInternalError);
    }
    // Unsigned, so that sums and products wrap, quotients and shifts to the right are unsigned ones.
    const auto left = static_cast<std::uint32_t>(leftValue);
    const auto right = static_cast<std::uint32_t>(rightInteger);
    std::uint32_t result = 0;
    switch (operator_) {
        case Operator::Add:
            result = left + right;
            break;
        case Operator::Subtract:
            result = left - right;
            break;
        case Operator::Multiply:
            result = left * right;
            break;
        case Operator::Divide:
            if (right == 0) return Fail(kZeroDivision);
            result = left / right;
            break;
        case Operator::And:
            result = left & right;
            break;
        case Operator::Or:
            result = left | right;
            break;
        case Operator::ShiftLeft:
            result = right < 32 ? left << right : 0;
            break;
        case Operator::ShiftRight:
            result = right < 32 ? left >> right : 0;
            break;
        default:
            break;
    }
    result_.Assign(ValueView::Integer(static_cast<std::int32_t>(result)));
    return true;
}

bool CMacroStatementOperate::OperateFloating(double left, const ValueView& rightValue) {
    if (operator_ <= Operator::Divide && rightValue.eType == ValueKind::Boolean) return Fail(kInternalError);
    const double right = rightValue.eType == ValueKind::Integer ? rightValue.integer : rightValue.floating;
    double result = 0.0;
    switch (operator_) {
        case Operator::Add:
            result = left + right;
            break;
        case Operator::Subtract:
            result = left - right;
            break;
        case Operator::Multiply:
            result = left * right;
            break;
        case Operator::Divide:
            result = left / right;
            break;
        default:
            break;
    }
    result_.Assign(ValueView::Floating(result));
    return true;
}

/// A boolean on the left can't be calculated with; what comes of it is the empty text.
bool CMacroStatementOperate::OperateBoolean() {
    if (operator_ == Operator::Add) return Fail(kInternalError);
    result_ = CMacroCommonValue::String("");
    return true;
}

}  // namespace macroengine
