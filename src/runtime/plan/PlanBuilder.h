#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

#include "runtime/CMacroStatementAssign.h"
#include "runtime/CMacroStatementCompare.h"
#include "runtime/CMacroStatementControl.h"
#include "runtime/CMacroStatementOperate.h"
#include "runtime/plan/CompareSteps.h"
#include "runtime/plan/ExecutionPlan.h"

namespace macroengine {

/// Turns statements into the steps of a plan.
class PlanBuilder {
public:
    explicit PlanBuilder(ExecutionPlan& plan);

    void Build();

private:
    using Step = plan::Step;

    // Statements. Each of these builds the steps of the statement at an index and of those behind it that
    // share its steps, and returns the index of the next one.
    std::size_t BuildStatement(std::size_t index);
    std::size_t BuildOperate(std::size_t index);
    std::size_t BuildCompare(std::size_t index);
    std::size_t BuildAssign(std::size_t index);
    std::size_t BuildControl(std::size_t index);
    std::size_t BuildCategory(std::size_t index);
    std::size_t BuildAnyStatement(std::size_t index);

    void BuildAssignToVariable(const CMacroStatementAssign& assign, ValueView& target);
    void BuildAssignToElement(const CMacroStatementAssign& assign, const ElementReference& element);
    void BuildComparison(CMacroStatementCompare& compare, plan::Branch branch);
    void BuildJump(std::size_t index, std::size_t group);
    void BuildLoopEnd(std::size_t index, std::size_t loopGroup);
    void JoinAdvance(std::size_t endLoop, const CMacroStatementCompare& compare);
    void BuildCheck();
    void BuildCount(std::size_t first, std::size_t end);

    // Operands: each of these returns where a step finds the value.
    const ValueView* FindSlot(const ValueView& operand);
    const ValueView* FindSlot(const Operand& operand) { return FindSlot(operand.View()); }
    const ValueView* BuildLoad(const ElementReference& element);

    struct Operands {
        const ValueView* left = nullptr;
        plan::Right side = plan::Right::Value;
        const ValueView* right = nullptr;
        std::int32_t literal = 0;
    };

    Operands FindOperands(const ValueView& left, const ValueView& right);
    static void SetOperands(Step& step, const Operands& operands);

    Step& AddStep(plan::Handler run);
    void BeginSteps(std::size_t firstStatement);
    void EndSteps(std::size_t endStatement);
    void Connect();
    std::uint32_t AddExit(std::int32_t group);

    template <class Statement>
    Statement& StatementAt(std::size_t index) const {
        return static_cast<Statement&>(*program_.statements[index]);
    }

    CMacroStatementBase::Kind KindAt(std::size_t index) const {
        return program_.statements[index]->GetKind();
    }
    std::size_t EndOfGroup(std::size_t group) const;

    static constexpr std::size_t kStepsPerCheck = 1000;

    ExecutionPlan& plan_;
    const ProgramText& program_;
    std::size_t group_ = 0;                   ///< the one being built
    std::size_t checkFrom_ = kStepsPerCheck;  ///< the number of steps from which on a check is due
    std::size_t sequenceStart_ = 0;           ///< the first step of the statements being built
    std::size_t sequenceStatement_ = 0;       ///< the first of those statements
    std::size_t countedEnd_ = 0;              ///< the end of the statements that were counted
    std::uint32_t counted_ = 0;               ///< how many that were
    std::vector<std::uint32_t> groupSteps_;   ///< for each group the index of its first step
    std::map<std::int32_t, std::uint32_t> exits_;
};

}  // namespace macroengine
