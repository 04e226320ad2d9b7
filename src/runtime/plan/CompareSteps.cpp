#include "runtime/plan/CompareSteps.h"

#include "runtime/plan/StatementSteps.h"

namespace macroengine::plan {

namespace {

template <Operator op, class Value>
bool Holds(Value left, Value right) {
    if constexpr (op == Operator::Equal) return left == right;
    if constexpr (op == Operator::NotEqual) return left != right;
    if constexpr (op == Operator::Less) return left < right;
    if constexpr (op == Operator::LessOrEqual) return left <= right;
    if constexpr (op == Operator::Greater) return left > right;
    if constexpr (op == Operator::GreaterOrEqual) return left >= right;
    if constexpr (op == Operator::LogicalAnd) return left && right;
    if constexpr (op == Operator::LogicalOr) return left || right;
}

template <Operator op>
constexpr bool kIsLogical = op == Operator::LogicalAnd || op == Operator::LogicalOr;

template <Operator op, Branch branch>
struct Comparison {
    // The quick ways are taken only after the general one has made the result a boolean, which it stays.

    static Step* WithIntegers(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = *step->right;
        if ((Kind(left) | Kind(right)) != 0) return WithAny(step, frame);
        return Finish(step, frame, Holds<op>(left.integer, right.integer));
    }

    static Step* WithFloating(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = *step->right;
        if ((NotFloating(left) | NotFloating(right)) != 0) return WithAny(step, frame);
        return Finish(step, frame, Holds<op>(left.floating, right.floating));
    }

    static Step* WithBooleans(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = *step->right;
        if (left.eType != ValueKind::Boolean || right.eType != ValueKind::Boolean)
            return WithAny(step, frame);
        return Finish(step, frame, Holds<op>(left.boolean, right.boolean));
    }

    static Step* WithAny(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = *step->right;
        bool holds = false;
        if constexpr (kIsLogical<op>) {
            if (left.eType != ValueKind::Boolean || right.eType != ValueKind::Boolean) {
                return RunStatements(step, frame);
            }
            holds = Holds<op>(left.boolean, right.boolean);
            step->run = WithBooleans;
        } else if (IsNumber(left) && IsNumber(right)) {
            if ((Kind(left) | Kind(right)) == 0) {
                holds = Holds<op>(left.integer, right.integer);
                step->run = WithIntegers;
            } else {
                holds = Holds<op>(ToFloating(left), ToFloating(right));
                step->run = left.eType == right.eType ? WithFloating : WithAny;
            }
        } else if (left.eType == ValueKind::String && right.eType == ValueKind::String) {
            holds = Holds<op>(left.Text(), right.Text());
        } else {
            return RunStatements(step, frame);
        }
        step->result->eType = ValueKind::Boolean;
        return Finish(step, frame, holds);
    }

    static double ToFloating(const ValueView& number) {
        return number.eType == ValueKind::Integer ? number.integer : number.floating;
    }

    static Step* Finish(Step* step, Frame& frame, bool holds) {
        if constexpr (branch == Branch::BackIfTrue) {
            if (!frame.IsRunning()) return LeaveAtJump(step, frame);
        }
        step->result->boolean = holds;
        if constexpr (branch == Branch::None) return Continue(step + 1, frame);
        if (holds == (branch == Branch::BackIfTrue)) return Continue(step->jump, frame);
        return Continue(step + 1, frame);
    }
};

template <Branch branch>
Handler Choose(Operator op) {
    switch (op) {
        case Operator::Equal:
            return Comparison<Operator::Equal, branch>::WithAny;
        case Operator::NotEqual:
            return Comparison<Operator::NotEqual, branch>::WithAny;
        case Operator::Less:
            return Comparison<Operator::Less, branch>::WithAny;
        case Operator::LessOrEqual:
            return Comparison<Operator::LessOrEqual, branch>::WithAny;
        case Operator::Greater:
            return Comparison<Operator::Greater, branch>::WithAny;
        case Operator::GreaterOrEqual:
            return Comparison<Operator::GreaterOrEqual, branch>::WithAny;
        case Operator::LogicalAnd:
            return Comparison<Operator::LogicalAnd, branch>::WithAny;
        case Operator::LogicalOr:
            return Comparison<Operator::LogicalOr, branch>::WithAny;
        default:
            return RunStatements;
    }
}

}  // namespace

Handler ChooseComparison(Operator op, Branch branch) {
    switch (branch) {
        case Branch::IfFalse:
            return Choose<Branch::IfFalse>(op);
        case Branch::BackIfTrue:
            return Choose<Branch::BackIfTrue>(op);
        default:
            return Choose<Branch::None>(op);
    }
}

}  // namespace macroengine::plan
