#include "runtime/plan/LoopSteps.h"

#include "runtime/plan/Calculation.h"
#include "runtime/plan/OperateSteps.h"
#include "runtime/plan/StatementSteps.h"

namespace macroengine::plan {

namespace {

/// @tparam by     what is added or subtracted
/// @tparam limit  what the variable is compared with
template <Operator op, Right by, Operator test, Right limit>
struct Advance {
    static Step* WithIntegers(Step* step, Frame& frame) {
        Step* const testStep = step + 1;
        ValueView& variable = *step->target;
        const ValueView& change = RightOf<by>(*step);
        const ValueView& end = RightOf<limit>(*testStep);
        if ((Kind(variable) | Kind(change) | Kind(end) | Kind(*step->result)) != 0) {
            return WithAny(step, frame);
        }
        const std::int32_t value = Calculate<op>(variable.integer, change.integer);
        variable.integer = value;
        step->result->integer = value;
        if (!frame.IsRunning()) return LeaveAtJump(testStep, frame);
        // Read only now: it may be the variable that has just changed.
        const bool holds = Holds<test>(value, RightOf<limit>(*testStep).integer);
        testStep->result->eType = ValueKind::Boolean;
        testStep->result->boolean = holds;
        if (holds) return Continue(testStep->jump, frame);
        return Continue(testStep + 1, frame);
    }

    static Step* WithAny(Step* step, Frame& frame) {
        const std::uint32_t kinds =
            Kind(*step->target) | Kind(RightOf<by>(*step)) | Kind(RightOf<limit>(step[1]));
        // For values of other kinds the two are done one after the other from now on.
        if (kinds != 0) return (step->run = ChooseOperation(op, by, true))(step, frame);
        AssignCell(*step->result, ValueView::Integer(0));
        return step;
    }
};

template <Operator op, Right by, Right limit>
Handler Choose(Operator test) {
    switch (test) {
        case Operator::Equal:
            return Advance<op, by, Operator::Equal, limit>::WithIntegers;
        case Operator::NotEqual:
            return Advance<op, by, Operator::NotEqual, limit>::WithIntegers;
        case Operator::Less:
            return Advance<op, by, Operator::Less, limit>::WithIntegers;
        case Operator::LessOrEqual:
            return Advance<op, by, Operator::LessOrEqual, limit>::WithIntegers;
        case Operator::Greater:
            return Advance<op, by, Operator::Greater, limit>::WithIntegers;
        case Operator::GreaterOrEqual:
            return Advance<op, by, Operator::GreaterOrEqual, limit>::WithIntegers;
        default:
            return nullptr;
    }
}

template <Operator op>
Handler Choose(Right by, Operator test, Right limit) {
    if (by == Right::Literal) {
        return limit == Right::Literal ? Choose<op, Right::Literal, Right::Literal>(test)
                                       : Choose<op, Right::Literal, Right::Value>(test);
    }
    return limit == Right::Literal ? Choose<op, Right::Value, Right::Literal>(test)
                                   : Choose<op, Right::Value, Right::Value>(test);
}

}  // namespace

Handler ChooseAdvance(Operator op, Right by, Operator test, Right limit) {
    if (op == Operator::Add) return Choose<Operator::Add>(by, test, limit);
    if (op == Operator::Subtract) return Choose<Operator::Subtract>(by, test, limit);
    return nullptr;
}

}  // namespace macroengine::plan
