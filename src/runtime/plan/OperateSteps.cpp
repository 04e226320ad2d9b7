#include "runtime/plan/OperateSteps.h"

#include <new>

#include "runtime/ValueText.h"
#include "runtime/plan/StatementSteps.h"

namespace macroengine::plan {

namespace {

template <Operator op>
constexpr bool kIsArithmetic = op <= Operator::Divide;

/// Unsigned, so that sums and products wrap, quotients and shifts to the right are unsigned ones.
template <Operator op>
std::int32_t Calculate(std::int32_t leftValue, std::int32_t rightValue) {
    const auto left = static_cast<std::uint32_t>(leftValue);
    const auto right = static_cast<std::uint32_t>(rightValue);
    std::uint32_t result = 0;
    if constexpr (op == Operator::Add) result = left + right;
    if constexpr (op == Operator::Subtract) result = left - right;
    if constexpr (op == Operator::Multiply) result = left * right;
    if constexpr (op == Operator::Divide) result = left / right;
    if constexpr (op == Operator::And) result = left & right;
    if constexpr (op == Operator::Or) result = left | right;
    if constexpr (op == Operator::ShiftLeft) result = right < 32 ? left << right : 0;
    if constexpr (op == Operator::ShiftRight) result = right < 32 ? left >> right : 0;
    return static_cast<std::int32_t>(result);
}

template <Operator op>
double Calculate(double left, double right) {
    if constexpr (op == Operator::Add) return left + right;
    if constexpr (op == Operator::Subtract) return left - right;
    if constexpr (op == Operator::Multiply) return left * right;
    return left / right;
}

double ToFloating(const ValueView& number) {
    return number.eType == ValueKind::Integer ? number.integer : number.floating;
}

std::int32_t ToInteger(const ValueView& number) {
    return number.eType == ValueKind::Integer ? number.integer : TruncateToInteger(number.floating);
}

template <Operator op, bool assigns>
struct Operation {
    static Step* WithIntegers(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = *step->right;
        std::uint32_t kinds = Kind(left) | Kind(right) | Kind(*step->result);
        if constexpr (assigns) kinds |= Kind(*step->target);
        if (kinds != 0) return WithAny(step, frame);
        if constexpr (op == Operator::Divide) {
            if (right.integer == 0) return RunStatements(step, frame);
        }
        const std::int32_t value = Calculate<op>(left.integer, right.integer);
        step->result->integer = value;
        if constexpr (assigns) step->target->integer = value;
        return Continue(step + 1, frame);
    }

    static Step* WithFloating(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = *step->right;
        std::uint32_t kinds = NotFloating(left) | NotFloating(right) | NotFloating(*step->result);
        if constexpr (assigns) kinds |= NotFloating(*step->target);
        if (kinds != 0) return WithAny(step, frame);
        return FinishFloating(step, frame, left.floating, right.floating);
    }

    /// A floating value on the left and an integer on the right.
    static Step* WithFloatingAndInteger(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = *step->right;
        std::uint32_t kinds = NotFloating(left) | Kind(right) | NotFloating(*step->result);
        if constexpr (assigns) kinds |= NotFloating(*step->target);
        if (kinds != 0) return WithAny(step, frame);
        return FinishFloating(step, frame, left.floating, right.integer);
    }

    static Step* FinishFloating(Step* step, Frame& frame, double left, double right) {
        if constexpr (op == Operator::Divide) {
            if (right == 0.0) return RunStatements(step, frame);
        }
        const double value = Calculate<op>(left, right);
        step->result->floating = value;
        if constexpr (assigns) step->target->floating = value;
        return Continue(step + 1, frame);
    }

    /// Operands of any kind.
    static Step* WithAny(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = *step->right;
        if (IsNumber(left) && IsNumber(right)) return WithNumbers(step, frame);
        if constexpr (op == Operator::Add) {
            if (left.eType == ValueKind::String && right.eType <= ValueKind::Boolean) {
                return WithText(step, frame);
            }
        }
        return RunStatements(step, frame);
    }

    static Step* WithNumbers(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = *step->right;
        const bool hasIntegers = (Kind(left) | Kind(right)) == 0;
        ValueView value;
        if constexpr (kIsArithmetic<op>) {
            // A divisor that is nothing is an error, which the statement reports.
            if (op == Operator::Divide && ToFloating(right) == 0.0) return RunStatements(step, frame);
            if (left.eType == ValueKind::Integer) {
                const std::int32_t integer = ToInteger(right);
                if (op == Operator::Divide && integer == 0) return RunStatements(step, frame);
                value = ValueView::Integer(Calculate<op>(left.integer, integer));
                if (hasIntegers) step->run = WithIntegers;
            } else {
                value = ValueView::Floating(Calculate<op>(left.floating, ToFloating(right)));
                step->run = right.eType == ValueKind::Floating ? WithFloating : WithFloatingAndInteger;
            }
        } else {
            if (!hasIntegers) return RunStatements(step, frame);
            value = ValueView::Integer(Calculate<op>(left.integer, right.integer));
            step->run = WithIntegers;
        }
        AssignCell(*step->result, value);
        if constexpr (assigns) AssignCell(*step->target, value);
        return Continue(step + 1, frame);
    }

    static Step* WithText(Step* step, Frame& frame) {
        if (!Append(*step)) return RunStatements(step, frame);
        return Continue(step + 1, frame);
    }

    /// @return false when there is no memory for the text; nothing has changed then.
    static bool Append(Step& step) {
        try {
            const CMacroCommonValue whole = Concatenate(*step.left, ValueText(*step.right).Get());
            AssignCell(*step.result, whole.View());
            if constexpr (assigns) AssignCell(*step.target, whole.View());
            return true;
        } catch (const std::bad_alloc&) {
            return false;
        }
    }
};

template <bool assigns>
Handler Choose(Operator op) {
    switch (op) {
        case Operator::Add:
            return Operation<Operator::Add, assigns>::WithAny;
        case Operator::Subtract:
            return Operation<Operator::Subtract, assigns>::WithAny;
        case Operator::Multiply:
            return Operation<Operator::Multiply, assigns>::WithAny;
        case Operator::Divide:
            return Operation<Operator::Divide, assigns>::WithAny;
        case Operator::And:
            return Operation<Operator::And, assigns>::WithAny;
        case Operator::Or:
            return Operation<Operator::Or, assigns>::WithAny;
        case Operator::ShiftLeft:
            return Operation<Operator::ShiftLeft, assigns>::WithAny;
        case Operator::ShiftRight:
            return Operation<Operator::ShiftRight, assigns>::WithAny;
        default:
            return RunStatements;
    }
}

}  // namespace

Handler ChooseOperation(Operator op, bool assigns) {
    return assigns ? Choose<true>(op) : Choose<false>(op);
}

}  // namespace macroengine::plan
