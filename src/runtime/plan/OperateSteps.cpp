#include "runtime/plan/OperateSteps.h"

#include <new>
#include <string_view>

#include "runtime/ValueText.h"
#include "runtime/plan/Calculation.h"
#include "runtime/plan/StatementSteps.h"

namespace macroengine::plan {

namespace {

template <Operator op>
constexpr bool kIsArithmetic = op <= Operator::Divide;

std::int32_t ToInteger(const ValueView& number) {
    return number.eType == ValueKind::Integer ? number.integer : TruncateToInteger(number.floating);
}

template <Operator op, Right rightSide, bool assigns>
struct Operation {
    static Step* WithIntegers(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = RightOf<rightSide>(*step);
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
        const ValueView& right = RightOf<rightSide>(*step);
        std::uint32_t kinds = NotFloating(left) | NotFloating(right) | NotFloating(*step->result);
        if constexpr (assigns) kinds |= NotFloating(*step->target);
        if (kinds != 0) return WithAny(step, frame);
        return FinishFloating(step, frame, left.floating, right.floating);
    }

    /// A floating value on the left and an integer on the right.
    static Step* WithFloatingAndInteger(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = RightOf<rightSide>(*step);
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
        const ValueView& right = RightOf<rightSide>(*step);
        if (IsNumber(left) && IsNumber(right)) return WithNumbers(step, frame);
        if constexpr (op == Operator::Add) {
            if (IsAppend(left, right)) {
                step->run = WithText;
                return WithText(step, frame);
            }
        }
        return RunStatements(step, frame);
    }

    static Step* WithNumbers(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = RightOf<rightSide>(*step);
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
        return step + 1;
    }

    static Step* WithText(Step* step, Frame& frame) {
        const ValueView& right = RightOf<rightSide>(*step);
        if (!IsAppend(*step->left, right)) return WithAny(step, frame);
        const bool done = right.eType == ValueKind::String ? Append(*step, right.Text())
                                                           : Append(*step, ValueText(right).Get());
        return done ? step + 1 : RunStatements(step, frame);
    }

    static bool IsAppend(const ValueView& left, const ValueView& right) {
        return left.eType == ValueKind::String && right.eType <= ValueKind::Boolean;
    }

    /// @return false when there is no memory for the text; nothing has changed then.
    static bool Append(Step& step, std::string_view text) {
        const ValueView left = *step.left;
        if (left.text != nullptr && left.text->Extend(left.length, text)) {
            const auto length = static_cast<std::uint32_t>(left.length + text.size());
            AssignStart(*step.result, left.text, length);
            if constexpr (assigns) AssignStart(*step.target, left.text, length);
            return true;
        }
        try {
            const CMacroCommonValue whole = Concatenate(left, text);
            AssignCell(*step.result, whole.View());
            if constexpr (assigns) AssignCell(*step.target, whole.View());
            return true;
        } catch (const std::bad_alloc&) {
            return false;
        }
    }

    /// Makes a cell the text of a length at the start of a block.
    static void AssignStart(ValueView& cell, SharedText* block, std::uint32_t length) {
        // Mostly it holds a shorter one of the same block.
        if (cell.eType != ValueKind::String || cell.text != block) {
            block->AddReference();
            Release(cell);
            cell.eType = ValueKind::String;
            cell.text = block;
        }
        cell.length = length;
    }
};

template <Right right, bool assigns>
Handler Choose(Operator op) {
    switch (op) {
        case Operator::Add:
            return Operation<Operator::Add, right, assigns>::WithAny;
        case Operator::Subtract:
            return Operation<Operator::Subtract, right, assigns>::WithAny;
        case Operator::Multiply:
            return Operation<Operator::Multiply, right, assigns>::WithAny;
        case Operator::Divide:
            return Operation<Operator::Divide, right, assigns>::WithAny;
        case Operator::And:
            return Operation<Operator::And, right, assigns>::WithAny;
        case Operator::Or:
            return Operation<Operator::Or, right, assigns>::WithAny;
        case Operator::ShiftLeft:
            return Operation<Operator::ShiftLeft, right, assigns>::WithAny;
        case Operator::ShiftRight:
            return Operation<Operator::ShiftRight, right, assigns>::WithAny;
        default:
            return RunStatements;
    }
}

}  // namespace

Handler ChooseOperation(Operator op, Right right, bool assigns) {
    if (right == Right::Literal) {
        return assigns ? Choose<Right::Literal, true>(op) : Choose<Right::Literal, false>(op);
    }
    return assigns ? Choose<Right::Value, true>(op) : Choose<Right::Value, false>(op);
}

}  // namespace macroengine::plan
