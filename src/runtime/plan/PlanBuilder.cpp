#include "runtime/plan/PlanBuilder.h"

#include "runtime/VariableTable.h"
#include "runtime/plan/ElementSteps.h"
#include "runtime/plan/LoopSteps.h"
#include "runtime/plan/OperateSteps.h"
#include "runtime/plan/StatementSteps.h"

// A group of statements becomes a row of steps:
//
//     a[i] = b + c[j] * 2      LoadElement c[j], Multiply, Add, StoreElement
//     loop i < n               LessThan, which jumps behind the loop when it does not hold
//     endloop                  LessThan once more, which jumps into the loop when it holds
//
// An operation whose result is assigned to a variable assigns it itself, and a comparison followed by its
// control statement branches itself. Steps that do the work of several statements carry the range of them, so
// that they can leave it to them as a whole. Statements that do nothing leave no step.
//
// A plan covers loops that have their end, and with them all that stands in them. So every jump in it knows
// where it leads, behind the comparisons of a condition comes the control statement that they decide about, and
// behind the operations of an expression comes what uses it.

namespace macroengine {

using Kind = CMacroStatementBase::Kind;
using Control = CMacroStatementControl::Control;
using plan::Branch;
using plan::StepOrigin;

namespace {

plan::Right SideOf(const ValueView& operand) {
    return operand.eType == ValueKind::Integer ? plan::Right::Literal : plan::Right::Value;
}

}  // namespace

PlanBuilder::PlanBuilder(ExecutionPlan& plan) : plan_(plan), program_(plan.program_) {}

void PlanBuilder::Build() {
    for (group_ = plan_.firstGroup_; group_ < plan_.endGroup_; ++group_) {
        groupSteps_.push_back(static_cast<std::uint32_t>(plan_.steps_.size()));
        BuildCheck();
        const std::size_t end = EndOfGroup(group_);
        countedEnd_ = 0;
        for (std::size_t i = program_.groupStarts[group_]; i < end;) {
            if (i >= countedEnd_) BuildCount(i, end);
            i = BuildStatement(i);
        }
    }
    AddExit(static_cast<std::int32_t>(plan_.endGroup_));
    Connect();
}

/// Has the state looked at now and then in a long body, as jumps backwards do in a short one.
void PlanBuilder::BuildCheck() {
    if (plan_.steps_.size() < checkFrom_) return;
    checkFrom_ = plan_.steps_.size() + kStepsPerCheck;
    AddStep(plan::CheckState);
    plan_.origins_.back().jumpStatement = program_.groupStarts[group_];
}

/// Has the statements counted that run together: those up to the next one that may lead elsewhere.
void PlanBuilder::BuildCount(std::size_t first, std::size_t end) {
    if (!plan_.counts_) return;
    std::size_t last = first;
    while (last + 1 < end && KindAt(last) != Kind::Control)
        ++last;
    countedEnd_ = last + 1;
    std::size_t count = countedEnd_ - first;
    // The end of a loop decides about the next turn with the statements of its beginning.
    if (KindAt(first) == Kind::Control) {
        const auto& control = StatementAt<CMacroStatementControl>(first);
        if (control.GetControl() == Control::EndLoop) {
            const auto loopGroup = static_cast<std::size_t>(control.GetJumpTarget());
            count += EndOfGroup(loopGroup) - program_.groupStarts[loopGroup];
        }
    }
    BeginSteps(first);
    Step& step = AddStep(plan::CountStatements);
    step.statementCount = static_cast<std::uint32_t>(count);
    plan_.origins_.back().jumpStatement = static_cast<std::uint32_t>(first);
    EndSteps(first);
    counted_ = static_cast<std::uint32_t>(count);
}

/// A group of a plan has another one behind it, as each loop has its exit behind it.
std::size_t PlanBuilder::EndOfGroup(std::size_t group) const {
    return program_.groupStarts[group + 1];
}

/// Turns the groups that steps lead to into steps, now that both are all known and stay where they are.
void PlanBuilder::Connect() {
    std::vector<StepOrigin>& origins = plan_.origins_;
    std::vector<std::uint32_t> targets(origins.size(), 0);
    const std::size_t count = origins.size();
    for (std::size_t i = 0; i < count; ++i) {
        const std::int32_t group = origins[i].jumpGroup;
        if (group < 0 || plan_.steps_[i].run == plan::LeavePlan) continue;
        targets[i] = plan_.Covers(static_cast<std::size_t>(group))
                         ? groupSteps_[static_cast<std::size_t>(group) - plan_.firstGroup_]
                         : AddExit(group);
    }
    Step* const steps = plan_.steps_.data();
    for (std::size_t i = 0; i < count; ++i) {
        if (origins[i].jumpGroup >= 0) steps[i].jump = steps + targets[i];
    }
    for (const std::uint32_t first : groupSteps_)
        plan_.entries_.push_back(steps + first);
}

// Steps

PlanBuilder::Step& PlanBuilder::AddStep(plan::Handler run) {
    plan_.origins_.emplace_back();
    Step& step = plan_.steps_.emplace_back();
    step = {run, {nullptr}, {nullptr}, nullptr, {nullptr}, nullptr};
    return step;
}

std::uint32_t PlanBuilder::AddExit(std::int32_t group) {
    const auto [exit, isNew] = exits_.emplace(group, static_cast<std::uint32_t>(plan_.steps_.size()));
    if (isNew) {
        AddStep(plan::LeavePlan);
        plan_.origins_.back().jumpGroup = group;
    }
    return exit->second;
}

void PlanBuilder::BeginSteps(std::size_t firstStatement) {
    sequenceStart_ = plan_.steps_.size();
    sequenceStatement_ = firstStatement;
}

/// Tells the steps built since BeginSteps which statements they stand for.
void PlanBuilder::EndSteps(std::size_t endStatement) {
    for (std::size_t i = sequenceStart_; i < plan_.steps_.size(); ++i) {
        plan_.origins_[i].firstStatement = static_cast<std::uint32_t>(sequenceStatement_);
        plan_.origins_[i].endStatement = static_cast<std::uint32_t>(endStatement);
        plan_.origins_[i].after = static_cast<std::uint32_t>(plan_.steps_.size());
        plan_.origins_[i].countedEnd = static_cast<std::uint32_t>(countedEnd_);
    }
}

// Operands

const ValueView* PlanBuilder::FindSlot(const ValueView& operand) {
    switch (operand.eType) {
        case ValueKind::VariableReference:
            return &operand.variable->value.View();
        case ValueKind::ResultReference:
            return &operand.result->View();
        case ValueKind::ElementReference:
            return BuildLoad(*operand.element);
        default:
            return &plan_.slots_.emplace_back(operand);
    }
}

const ValueView* PlanBuilder::BuildLoad(const ElementReference& element) {
    const ValueView* base = &element.variable->value.View();
    const OperandList& subscripts = element.subscripts;
    for (std::size_t i = 0; i < subscripts.size();) {
        const bool isNested = i + 1 < subscripts.size();
        const ValueView* const index = FindSlot(subscripts[i]);
        const ValueView* const second = isNested ? FindSlot(subscripts[i + 1]) : index;
        ValueView& loaded = plan_.slots_.emplace_back();
        Step& step = AddStep(isNested ? plan::LoadNestedElement : plan::LoadElement);
        step.left = base;
        step.right = index;
        step.second = second;
        step.target = &loaded;
        base = &loaded;
        i += isNested ? 2 : 1;
    }
    return base;
}

PlanBuilder::Operands PlanBuilder::FindOperands(const ValueView& left, const ValueView& right) {
    Operands operands;
    operands.side = SideOf(right);
    operands.literal = right.integer;
    operands.left = FindSlot(left);
    if (operands.side == plan::Right::Value) operands.right = FindSlot(right);
    return operands;
}

void PlanBuilder::SetOperands(Step& step, const Operands& operands) {
    step.left = operands.left;
    if (operands.side == plan::Right::Literal) {
        step.literal = operands.literal;
    } else {
        step.right = operands.right;
    }
}

// Statements

std::size_t PlanBuilder::BuildStatement(std::size_t index) {
    BeginSteps(index);
    switch (KindAt(index)) {
        case Kind::Operate:
            return BuildOperate(index);
        case Kind::Compare:
            return BuildCompare(index);
        case Kind::Assign:
            return BuildAssign(index);
        case Kind::Control:
            return BuildControl(index);
        case Kind::Category:
        default:
            return BuildCategory(index);
    }
}

std::size_t PlanBuilder::BuildCategory(std::size_t index) {
    Step& step = AddStep(plan::RunStatement);
    step.statement = program_.statements[index].get();
    step.statementIndex = static_cast<std::uint32_t>(index);
    EndSteps(index + 1);
    return index + 1;
}

std::size_t PlanBuilder::BuildAnyStatement(std::size_t index) {
    AddStep(plan::RunStatements);
    EndSteps(index + 1);
    return index + 1;
}

std::size_t PlanBuilder::BuildOperate(std::size_t index) {
    auto& operate = StatementAt<CMacroStatementOperate>(index);
    const Operands operands = FindOperands(operate.GetLeft().View(), operate.GetRight().View());
    Variable* target = nullptr;
    if (KindAt(index + 1) == Kind::Assign) {
        const ValueView destination = StatementAt<CMacroStatementAssign>(index + 1).GetDestination().View();
        if (destination.eType == ValueKind::VariableReference) target = destination.variable;
    }
    Step& step = AddStep(plan::ChooseOperation(operate.GetOperator(), operands.side, target != nullptr));
    SetOperands(step, operands);
    step.result = &operate.GetResult().Cell();
    if (target != nullptr) step.target = &target->value.Cell();
    const std::size_t next = target != nullptr ? index + 2 : index + 1;
    EndSteps(next);
    return next;
}

std::size_t PlanBuilder::BuildAssign(std::size_t index) {
    const auto& assign = StatementAt<CMacroStatementAssign>(index);
    const ValueView destination = assign.GetDestination().View();
    if (destination.eType == ValueKind::VariableReference) {
        BuildAssignToVariable(assign, destination.variable->value.Cell());
    } else if (destination.element->subscripts.size() <= 2) {
        BuildAssignToElement(assign, *destination.element);
    } else {
        return BuildAnyStatement(index);
    }
    EndSteps(index + 1);
    return index + 1;
}

void PlanBuilder::BuildAssignToVariable(const CMacroStatementAssign& assign, ValueView& target) {
    const ValueView* const source = FindSlot(assign.GetSource());
    if (assign.GetSource().GetType() == ValueKind::ElementReference) {
        // The load of the last subscript can assign the element itself.
        Step& load = plan_.steps_.back();
        load.run = load.run == plan::LoadElement ? plan::CopyElement : plan::CopyNestedElement;
        load.target = &target;
        return;
    }
    Step& step = AddStep(plan::CopyValue);
    step.left = source;
    step.target = &target;
}

void PlanBuilder::BuildAssignToElement(const CMacroStatementAssign& assign, const ElementReference& element) {
    const bool isNested = element.subscripts.size() == 2;
    const ValueView* const source = FindSlot(assign.GetSource());
    const ValueView* const first = FindSlot(element.subscripts[0]);
    const ValueView* const second = isNested ? FindSlot(element.subscripts[1]) : nullptr;
    Step& step = AddStep(isNested ? plan::StoreNestedElement : plan::StoreElement);
    step.target = &element.variable->value.Cell();
    step.left = first;
    step.right = source;
    step.second = second;
}

std::size_t PlanBuilder::BuildCompare(std::size_t index) {
    auto& compare = StatementAt<CMacroStatementCompare>(index);
    const bool branches = KindAt(index + 1) == Kind::Control;
    BuildComparison(compare, branches ? Branch::IfFalse : Branch::None);
    if (branches) {
        plan_.origins_.back().jumpGroup = StatementAt<CMacroStatementControl>(index + 1).GetFalseTarget();
    }
    const std::size_t next = branches ? index + 2 : index + 1;
    EndSteps(next);
    return next;
}

void PlanBuilder::BuildComparison(CMacroStatementCompare& compare, Branch branch) {
    const Operands operands = FindOperands(compare.GetLeft().View(), compare.GetRight().View());
    Step& step = AddStep(plan::ChooseComparison(compare.GetOperator(), operands.side, branch));
    SetOperands(step, operands);
    step.result = &compare.GetResult().Cell();
}

std::size_t PlanBuilder::BuildControl(std::size_t index) {
    const std::int32_t target = StatementAt<CMacroStatementControl>(index).GetJumpTarget();
    if (target != CMacroStatementBase::kNextInOrder) BuildJump(index, static_cast<std::size_t>(target));
    return index + 1;
}

void PlanBuilder::BuildJump(std::size_t index, std::size_t group) {
    if (group < group_) {
        BuildLoopEnd(index, group);
        return;
    }
    AddStep(plan::Jump);
    plan_.origins_.back().jumpGroup = static_cast<std::int32_t>(group);
}

/// Joins the operation in the last line of a loop with the loop's test, the last step.
void PlanBuilder::JoinAdvance(std::size_t endLoop, const CMacroStatementCompare& compare) {
    if (KindAt(endLoop - 2) != Kind::Operate) return;
    const std::size_t last = plan_.steps_.size() - 1;
    Step& advance = plan_.steps_[last - 1];
    const bool isWholeLine = plan_.origins_[last - 1].firstStatement == endLoop - 2;
    if (!isWholeLine || advance.left != advance.target || plan_.steps_[last].left != advance.target) return;
    const auto& operate = StatementAt<CMacroStatementOperate>(endLoop - 2);
    const plan::Handler joined =
        plan::ChooseAdvance(operate.GetOperator(), SideOf(operate.GetRight().View()), compare.GetOperator(),
                            SideOf(compare.GetRight().View()));
    if (joined != nullptr) advance.run = joined;
}

/// Builds the condition of a loop once more at its end, where it decides about the next turn.
void PlanBuilder::BuildLoopEnd(std::size_t index, std::size_t loopGroup) {
    const std::size_t start = plan_.steps_.size();
    const std::size_t loop = EndOfGroup(loopGroup) - 1;
    for (std::size_t i = program_.groupStarts[loopGroup]; i < loop; ++i) {
        BeginSteps(i);
        const bool isLast = i + 1 == loop;
        BuildComparison(StatementAt<CMacroStatementCompare>(i), isLast ? Branch::BackIfTrue : Branch::None);
        EndSteps(isLast ? loop + 1 : i + 1);
        // They were counted up to the loop's own statement.
        for (std::size_t s = sequenceStart_; s < plan_.steps_.size(); ++s)
            plan_.origins_[s].countedEnd = plan_.counts_ ? static_cast<std::uint32_t>(loop + 1) : 0;
    }
    plan_.origins_.back().jumpGroup = static_cast<std::int32_t>(loopGroup + 1);
    plan_.origins_.back().jumpStatement = static_cast<std::uint32_t>(index);
    plan_.origins_.back().countedByJump = counted_;
    if (plan_.steps_.size() == start + 1) {
        JoinAdvance(index, StatementAt<CMacroStatementCompare>(loop - 1));
    }
    // When the statements run instead, they go on in order behind the loop's own ones.
    for (std::size_t i = sequenceStart_; i < plan_.steps_.size(); ++i)
        plan_.origins_[i].after = groupSteps_[loopGroup + 1 - plan_.firstGroup_];
}

}  // namespace macroengine
