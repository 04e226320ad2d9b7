#include "runtime/CMacroStatementControl.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include "runtime/VariableTable.h"
#include "unit/runtime/StatementOutcome.h"

namespace macroengine {
namespace {

using test::ArrayOf;
using test::Boolean;
using test::Describe;
using test::Floating;
using test::Integer;
using test::TakeErrorText;
using test::Text;
using test::UnitOfFile;

using Control = CMacroStatementControl::Control;

const Control kConditional[] = {Control::If, Control::ElseIf, Control::Loop};

class CMacroStatementControlTest : public testing::Test {
protected:
    /// Runs a control statement with the targets 11 and 22.
    /// @return where it leads, or what it has reported.
    std::string Run(Control control, const CMacroCommonValue& condition) {
        CMacroStatementControl statement(unit_, 8);
        statement.SetControl(control);
        statement.SetCondition(condition);
        statement.SetJumpTarget(11);
        statement.SetFalseTarget(22);
        const bool succeeded = statement.vfRun();
        const std::string lines = TakeErrorText(statement.GetErrors());
        EXPECT_EQ(succeeded, lines.empty());
        return succeeded ? "to " + std::to_string(statement.GetNextIndex()) : lines;
    }

    SourceUnit unit_ = UnitOfFile("a.mac");
};

TEST_F(CMacroStatementControlTest, KindsHaveTheirNumbers) {
    const struct {
        Control control;
        int number;
    } cases[] = {
        {Control::If, 0},       {Control::ElseIf, 1},    {Control::Else, 2},
        {Control::EndIf, 3},    {Control::Loop, 4},      {Control::EndLoop, 5},
        {Control::LoopExit, 6}, {Control::BranchEnd, 7}, {Control::Unknown, 8},
    };
    for (const auto& c : cases)
        EXPECT_EQ(static_cast<int>(c.control), c.number);
}

TEST_F(CMacroStatementControlTest, AConditionChoosesTheTarget) {
    for (const Control control : kConditional) {
        EXPECT_EQ(Run(control, Boolean(true)), "to 11");
        EXPECT_EQ(Run(control, Boolean(false)), "to 22");
    }
}

TEST_F(CMacroStatementControlTest, TheConditionMayBeAnyOperand) {
    VariableTable variables;
    Variable& flag = variables.Bind("flag");
    flag.value = Boolean(false);
    Variable& flags = variables.Bind("flags");
    flags.value = ArrayOf({Boolean(true)});
    CMacroCommonValue result = Boolean(true);
    for (const Control control : kConditional) {
        EXPECT_EQ(Run(control, CMacroCommonValue::VariableReference(flag)), "to 22");
        EXPECT_EQ(Run(control, CMacroCommonValue::Element(flags, {Integer(0)})), "to 11");
        EXPECT_EQ(Run(control, CMacroCommonValue::ResultReference(&result)), "to 11");
    }
}

TEST_F(CMacroStatementControlTest, AConditionThatIsNoBooleanIsAnInternalError) {
    for (const CMacroCommonValue& condition : {Integer(1), Integer(0), Floating(1.0), Text("true"), Text(""),
                                               ArrayOf({Boolean(true)}), ArrayOf({})}) {
        const char* const inIf =
            "a.mac(8): error : internal error : invalid eType at CMacroStatementControl::RunIf";
        EXPECT_EQ(Run(Control::If, condition), inIf) << Describe(condition);
        EXPECT_EQ(Run(Control::ElseIf, condition), inIf) << Describe(condition);
        EXPECT_EQ(Run(Control::Loop, condition),
                  "a.mac(8): error : internal error : invalid eType at CMacroStatementControl::RunLoop")
            << Describe(condition);
    }
}

TEST_F(CMacroStatementControlTest, AConditionThatCanNotBeResolvedIsReported) {
    VariableTable variables;
    const CMacroCommonValue undefined = CMacroCommonValue::VariableReference(variables.Bind("u"));
    for (const Control control : kConditional) {
        EXPECT_EQ(Run(control, undefined), "a.mac(8): error : Didn't define valiable name[u]");
        EXPECT_EQ(Run(control, CMacroCommonValue()),
                  "a.mac(8): error : invalied destination value in assign statement.");
        EXPECT_EQ(Run(control, CMacroCommonValue::ResultReference(nullptr)),
                  "a.mac(8): error : value is null.");
    }
}

TEST_F(CMacroStatementControlTest, AJumpLeadsToItsTarget) {
    for (const Control control : {Control::EndLoop, Control::BranchEnd}) {
        EXPECT_EQ(Run(control, CMacroCommonValue()), "to 11");
        EXPECT_EQ(Run(control, Boolean(false)), "to 11");
    }
}

TEST_F(CMacroStatementControlTest, TheOthersGoOnInOrder) {
    for (const Control control : {Control::Else, Control::EndIf, Control::LoopExit}) {
        EXPECT_EQ(Run(control, CMacroCommonValue()), "to -1");
        EXPECT_EQ(Run(control, Boolean(true)), "to -1");
    }
}

TEST_F(CMacroStatementControlTest, AnUnknownKindIsRefused) {
    const char* const unknown = "a.mac(8): error : unknown control operand.";
    EXPECT_EQ(Run(Control::Unknown, Boolean(true)), unknown);
    for (const int number : {9, 100, 255})
        EXPECT_EQ(Run(static_cast<Control>(number), Boolean(true)), unknown) << number;
}

TEST_F(CMacroStatementControlTest, IsUnknownWithoutTargetsAtConstruction) {
    CMacroStatementControl statement(unit_, 8);
    EXPECT_EQ(static_cast<int>(statement.GetControl()), 8);
    EXPECT_EQ(statement.GetJumpTarget(), -1);
    EXPECT_EQ(statement.GetFalseTarget(), -1);
    EXPECT_EQ(statement.GetNextIndex(), -1);
    EXPECT_EQ(static_cast<int>(statement.GetKind()), 3);
    EXPECT_FALSE(statement.IsBreakStatement());
    EXPECT_FALSE(statement.vfRun());
    EXPECT_EQ(TakeErrorText(statement.GetErrors()), "a.mac(8): error : unknown control operand.");
}

TEST_F(CMacroStatementControlTest, ALoopEvaluatesItsConditionEveryTime) {
    CMacroCommonValue result;
    CMacroStatementControl loop(unit_, 8);
    loop.SetControl(Control::Loop);
    loop.SetCondition(CMacroCommonValue::ResultReference(&result));
    loop.SetJumpTarget(11);
    loop.SetFalseTarget(22);
    for (const bool holds : {true, true, false, true, false}) {
        result = Boolean(holds);
        ASSERT_TRUE(loop.vfRun());
        EXPECT_EQ(loop.GetNextIndex(), holds ? 11 : 22);
    }
}

TEST_F(CMacroStatementControlTest, AConditionThatHoldsWithoutATargetGoesOnInOrder) {
    CMacroStatementControl statement(unit_, 8);
    statement.SetControl(Control::If);
    statement.SetCondition(Boolean(true));
    statement.SetFalseTarget(5);
    ASSERT_TRUE(statement.vfRun());
    EXPECT_EQ(statement.GetNextIndex(), -1);
}

}  // namespace
}  // namespace macroengine
