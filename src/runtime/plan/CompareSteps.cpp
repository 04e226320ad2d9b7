#include "runtime/plan/CompareSteps.h"

#include "runtime/plan/Calculation.h"
#include "runtime/plan/StatementSteps.h"

namespace macroengine::plan {

namespace {

template <Operator op, Right rightSide, Branch branch>
struct Comparison {
    // The quick ways for numbers are taken only after the general one has made the result a boolean, which it
    // stays.

    static Step* WithIntegers(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = RightOf<rightSide>(*step);
        if ((Kind(left) | Kind(right)) != 0) return WithAny(step, frame);
        return Finish(step, frame, Holds<op>(left.integer, right.integer));
    }

    static Step* WithFloating(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = RightOf<rightSide>(*step);
        if ((NotFloating(left) | NotFloating(right)) != 0) return WithAny(step, frame);
        return Finish(step, frame, Holds<op>(left.floating, right.floating));
    }

    /// For the logical operators, whose operands are the results of comparisons that have just been done.
    static Step* WithBooleans(Step* step, Frame& frame) {
        step->result->eType = ValueKind::Boolean;
        return Finish(step, frame, Holds<op>(step->left->boolean, step->right->boolean));
    }

    static Step* WithAny(Step* step, Frame& frame) {
        const ValueView& left = *step->left;
        const ValueView& right = RightOf<rightSide>(*step);
        bool holds = false;
        if (IsNumber(left) && IsNumber(right)) {
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
        if constexpr (branch == Branch::BackIfTrue) {
            if (!frame.IsRunning()) return LeaveAtJump(step, frame);
        }
        step->result->boolean = holds;
        return IsTaken(holds) ? step->jump : step + 1;
    }

    static Step* Finish(Step* step, Frame& frame, bool holds) {
        if constexpr (branch == Branch::BackIfTrue) {
            if (!frame.IsRunning()) return LeaveAtJump(step, frame);
        }
        step->result->boolean = holds;
        if (IsTaken(holds)) return Continue(step->jump, frame);
        return Continue(step + 1, frame);
    }

    static bool IsTaken(bool holds) {
        return branch != Branch::None && holds == (branch == Branch::BackIfTrue);
    }
};

template <Right right, Branch branch>
Handler Choose(Operator op) {
    switch (op) {
        case Operator::Equal:
            return Comparison<Operator::Equal, right, branch>::WithAny;
        case Operator::NotEqual:
            return Comparison<Operator::NotEqual, right, branch>::WithAny;
        case Operator::Less:
            return Comparison<Operator::Less, right, branch>::WithAny;
        case Operator::LessOrEqual:
            return Comparison<Operator::LessOrEqual, right, branch>::WithAny;
        case Operator::Greater:
            return Comparison<Operator::Greater, right, branch>::WithAny;
        case Operator::GreaterOrEqual:
            return Comparison<Operator::GreaterOrEqual, right, branch>::WithAny;
        case Operator::LogicalAnd:
            return Comparison<Operator::LogicalAnd, right, branch>::WithBooleans;
        case Operator::LogicalOr:
            return Comparison<Operator::LogicalOr, right, branch>::WithBooleans;
        default:
            return RunStatements;
    }
}

template <Right right>
Handler Choose(Operator op, Branch branch) {
    switch (branch) {
        case Branch::IfFalse:
            return Choose<right, Branch::IfFalse>(op);
        case Branch::BackIfTrue:
            return Choose<right, Branch::BackIfTrue>(op);
        default:
            return Choose<right, Branch::None>(op);
    }
}

}  // namespace

Handler ChooseComparison(Operator op, Right right, Branch branch) {
    return right == Right::Literal ? Choose<Right::Literal>(op, branch) : Choose<Right::Value>(op, branch);
}

}  // namespace macroengine::plan
