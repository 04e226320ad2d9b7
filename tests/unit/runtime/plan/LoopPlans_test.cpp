#include "runtime/plan/LoopPlans.h"

#include <gtest/gtest.h>

#include "runtime/CMacroStatementControl.h"
#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

using test::CompiledMacro;

TEST(LoopPlans, ALoopSharesThePlanOfTheOneAroundIt) {
    CompiledMacro macro;
    macro.Compile(
        "a = 0\nloop a < 2\n b = 0\n loop b < 2\n  b = b + 1\n endloop\n a = a + 1\nendloop\nc = 1\n");
    LoopPlans plans(macro.GetProgram().GetText());
    EXPECT_EQ(plans.Find(0, false), nullptr);
    ExecutionPlan* const plan = plans.Find(1, false);
    ASSERT_NE(plan, nullptr);
    EXPECT_EQ(plans.Find(3, false), plan);
    EXPECT_TRUE(plan->Covers(1));
    EXPECT_FALSE(plan->Covers(0));
    EXPECT_FALSE(plan->Covers(static_cast<std::size_t>(macro.GetGroupCount()) - 1));
    EXPECT_EQ(plans.Find(static_cast<std::size_t>(macro.GetGroupCount()) - 1, false), nullptr);
}

TEST(LoopPlans, LoopsThatFollowEachOtherHavePlansOfTheirOwn) {
    CompiledMacro macro;
    macro.Compile("loop 1 > 2\nendloop\nloop 1 > 2\nendloop\n");
    LoopPlans plans(macro.GetProgram().GetText());
    ASSERT_NE(plans.Find(0, false), nullptr);
    ASSERT_NE(plans.Find(3, false), nullptr);
    EXPECT_NE(plans.Find(0, false), plans.Find(3, false));
}

TEST(LoopPlans, ALoopThatWasNeverClosedHasNone) {
    CompiledMacro macro;
    macro.Compile("a = 1\nloop a < 2\n a = 2\n");
    LoopPlans plans(macro.GetProgram().GetText());
    EXPECT_EQ(plans.Find(1, false), nullptr);
}

TEST(LoopPlans, ALoopWhoseExitDoesNotStandBehindItHasNone) {
    CompiledMacro macro;
    macro.Compile("a = 1\nloop a < 2\n a = 2\n");
    auto& loop = static_cast<CMacroStatementControl&>(*macro.GetProgram().GetStatements()[2]);
    LoopPlans plans(macro.GetProgram().GetText());
    loop.SetFalseTarget(macro.GetGroupCount());
    EXPECT_EQ(plans.Find(1, false), nullptr);
}

}  // namespace
}  // namespace macroengine
