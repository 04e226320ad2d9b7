#include "runtime/plan/ExecutionPlan.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/plan/LoopPlans.h"
#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::Lines;

/// What a macro leaves: the lines it reported, then its variables a to f.
Lines OutcomeOf(std::string_view text, bool usesPlans, bool stopsOnError) {
    CompiledMacro macro;
    Lines outcome = macro.Compile(std::string(text));
    macro.GetProgram().UsePlans(usesPlans);
    macro.GetProgram().SetErrorHandling(stopsOnError, nullptr, 0);
    for (const std::string& line : macro.Run())
        outcome.push_back(line);
    for (const char* variable : {"a", "b", "c", "d", "e", "f"})
        outcome.push_back(std::string(variable) + " = " + macro.ValueOf(variable));
    return outcome;
}

struct Case {
    const char* name;
    const char* text;
    Lines expected;  ///< with the errors that stop the run, and the variables that the text has
};

std::ostream& operator<<(std::ostream& stream, const Case& c) {
    return stream << c.name;
}

class PlannedLoop : public testing::TestWithParam<Case> {};

TEST_P(PlannedLoop, GivesWhatItsStatementsGive) {
    const Lines planned = OutcomeOf(GetParam().text, true, true);
    EXPECT_EQ(planned, OutcomeOf(GetParam().text, false, true));
    for (const std::string& line : GetParam().expected)
        EXPECT_NE(std::find(planned.begin(), planned.end(), line), planned.end())
            << line << " is not in\n"
            << testing::PrintToString(planned);
    EXPECT_EQ(OutcomeOf(GetParam().text, true, false), OutcomeOf(GetParam().text, false, false));
}

INSTANTIATE_TEST_SUITE_P(
    ExecutionPlan, PlannedLoop,
    testing::Values(
        Case{"ArithmeticOnIntegers",
             "a = 0\nb = 1\nc = 7\nloop a < 9\n b = b * 3 - a\n c = c << 1 | a & 5\n d = c / 3\n e = c >> 2\n"
             " a = a + 1\nendloop\n",
             {"a = integer 9", "b = integer 14767"}},
        Case{"SumsThatWrap",
             "a = 0\nb = 2147483600\nloop a < 99\n b = b + a\n a = a + 1\nendloop\n",
             {"b = integer -2147478845"}},
        Case{"QuotientsOfNegativeNumbersAreUnsigned",
             "a = 0\nloop a < 3\n b = -6 / 2\n c = 0 - a\n d = c / 2\n a = a + 1\nendloop\n",
             {"b = integer 2147483645", "d = integer 2147483647"}},
        Case{"ShiftsByTooMuch",
             "a = 30\nloop a < 35\n b = 1 << a\n c = -1 >> a\n a = a + 1\nendloop\n",
             {"b = integer 0", "c = integer 0"}},
        Case{"FloatingValues",
             "a = 0.0\nb = 1\nloop a < 5\n c = a * 2.5 - 1\n d = c / 4\n b = b + 0.9\n a = a + 1\nendloop\n",
             {"a = floating 5", "b = integer 1", "c = floating 9", "d = floating 2.25"}},
        Case{"AVariableThatChangesItsKind",
             "a = 0\nb = 1\nloop a < 6\n c = b + 1\n d = 2 + b\n if a == 1\n  b = 2.5\n elseif a == 3\n  b = "
             "4\n endif\n"
             " a = a + 1\nendloop\n",
             {"c = integer 5", "d = integer 6"}},
        Case{"ANumberThatBecomesAText",
             "a = 0\nb = 1\nloop a < 4\n c = b + 1\n if a == 1\n  b = \"x\"\n endif\n a = a + 1\nendloop\n",
             {"c = text \"x1\""}},
        Case{"ATextThatGrowsWhileOthersHoldIt",
             "a = 0\nb = \"\"\nloop a < 5\n b = b + a + \",\"\n if a == 2\n  c = b\n endif\n d = c\n e[a] = "
             "b\n"
             " a = a + 1\nendloop\n",
             {"main.mac(8): error : Didn't define valiable name[c]"}},
        Case{"TextsInAnArray",
             "a = 0\nb = \"\"\nloop a < 4\n b = b + a\n c[a] = b\n a = a + 1\nendloop\n",
             {"c = [text \"0\", text \"01\", text \"012\", text \"0123\"]"}},
        Case{"ElementsOfEveryKind",
             "a = 0\nloop a < 4\n b[a] = a\n c[a] = 1.5 + a\n d[a][1] = a\n e = d[a][1]\n f = c[a] + b[a]\n"
             " b[a] = c[a]\n d[a][0] = \"t\" + e\n a = a + 1\nendloop\n",
             {"f = floating 7.5", "b = [floating 1.5, floating 2.5, floating 3.5, floating 4.5]",
              "d = [[text \"t0\", integer 0], [text \"t1\", integer 1], [text \"t2\", integer 2], "
              "[text \"t3\", integer 3]]"}},
        Case{"AnElementThatIsMissing",
             "a = 0\nb[2] = 5\nloop a < 9\n c = b[a]\n a = a + 1\nendloop\n",
             {"main.mac(4): error : Valiable name(b[3]) isn't exist elements.", "a = integer 3"}},
        Case{"AnIndexThatIsNoInteger",
             "a = 0\nb[2] = 5\nc = 0\nloop a < 9\n d = b[c]\n c = c + 1\n if a == 1\n  c = 0.5\n endif\n a = "
             "a + 1\nendloop\n",
             {"main.mac(5): error : Array subscript isn't integer."}},
        Case{"ANegativeIndex",
             "a = 2\nb[2] = 5\nloop a > -9\n b[a] = 1\n a = a - 1\nendloop\n",
             {"main.mac(4): error : failed to update array variable",
              "b = [integer 1, integer 1, integer 1]"}},
        Case{"GapsThatAreFilled",
             "a = 0\nloop a < 20\n b[a] = a\n a = a + 3\nendloop\n",
             {"b = [integer 0, integer 0, integer 0, integer 3, integer 0, integer 0, integer 6, integer 0, "
              "integer 0, integer 9, integer 0, integer 0, integer 12, integer 0, integer 0, integer 15, "
              "integer 0, integer 0, integer 18]"}},
        Case{"ACopyOfAnArrayStaysAsItIs",
             "a = 0\nb[4] = 0\nloop a < 4\n c = b\n b[a] = a + 1\n a = a + 1\nendloop\n",
             {"b = [integer 1, integer 2, integer 3, integer 4, integer 0]",
              "c = [integer 1, integer 2, integer 3, integer 0, integer 0]"}},
        Case{"AnArrayStoredInItself",
             "a = 0\nb = 7\nloop a < 3\n b[0] = b\n a = a + 1\nendloop\n",
             {"b = [[[integer 7]]]"}},
        Case{"SharedRows",
             "a = 0\nb[1] = 3\nc[0] = b\nc[1] = b\nloop a < 2\n c[a][0] = a + 5\n a = a + 1\nendloop\n",
             {"b = [integer 0, integer 3]", "c = [[integer 5, integer 3], [integer 6, integer 3]]"}},
        Case{"ANumberThatBecomesAnArray",
             "a = 0\nb = 3\nloop a < 3\n c = b\n b[a] = a\n a = a + 1\nendloop\n",
             {"b = [integer 0, integer 1, integer 2]", "c = [integer 0, integer 1]"}},
        Case{"ADivisorThatBecomesNothing",
             "a = 3\nloop a > -3\n b = 12 / a\n a = a - 1\nendloop\n",
             {"main.mac(3): error : 0 division.", "main.mac(3): error : run time error !", "b = integer 12"}},
        Case{"AFloatingDivisorThatTruncatesToNothing",
             "a = 2.5\nloop a > -3\n b = 12 / a\n a = a - 1\nendloop\n",
             {"main.mac(3): error : 0 division."}},
        Case{"BitsOfAFloatingValue",
             "a = 0\nb = 1\nloop a < 3\n c = b & 1\n b = b * 1.5\n b = 1.5\n a = a + 1\nendloop\n",
             {"main.mac(4): error : Using \"&\" operator, the statement has to be numerical value."}},
        Case{"ComparisonsOfEveryKind",
             "a = 0\nb = \"ab\"\nc = 0\nloop a < 8\n if b < \"abc\"\n  c = c + 1\n endif\n if a >= 2.5\n  c "
             "= c + 10\n endif\n"
             " if a != 3 && a <= 6 || a == 7\n  c = c + 100\n endif\n if a == 4\n  b = \"b\"\n endif\n a = a "
             "+ 1\nendloop\n",
             {"c = integer 755"}},
        Case{"AComparisonThatFailsLater",
             "a = 0\nb = 1\nloop a < 5\n if b == 1\n  c = a\n else\n  c = 0 - a\n endif\n if a == 2\n  b = "
             "\"x\"\n endif\n a = a + 1\nendloop\n",
             {"main.mac(4): error : Can't compare string and value.", "c = integer 2"}},
        Case{"AConditionThatFailsAtTheEndOfALoop",
             "a = 0\nb = 9\nloop a < b\n a = a + 1\n if a == 3\n  b[1] = 2\n elseif a == 5\n  b = 0\n "
             "endif\nendloop\n",
             {"main.mac(3): error : Can't compare array", "a = integer 3"}},
        Case{"LoopsInLoops",
             "a = 0\nb = 0\nloop a < 7\n c = 0\n loop c < a\n  d = 0\n  loop d < c && d < 3\n   b = b + a * "
             "c - d\n   d = d + 1\n"
             "  endloop\n  c = c + 1\n endloop\n a = a + 1\nendloop\n",
             {"b = integer 427"}},
        Case{"AnEmptyLoopAndEmptyBranches",
             "a = 0\nloop a < 3\n if a == 1\n elseif a == 2\n else\n endif\n loop a > 99\n endloop\n a = a + "
             "1\nendloop\n",
             {"a = integer 3"}},
        Case{
            "ALoopThatIsEnteredAgain",
            "a = 0\nloop a < 3\n b = 5\n loop b > a\n  b = b - 1\n endloop\n c[a] = b\n a = a + 1\nendloop\n",
            {"c = [integer 0, integer 1, integer 2]"}},
        Case{"CallsOfCommands",
             "a = 0\nloop a < 3\n b = test.value(a, \"x\", c0[0])\n a = a + 1\nendloop\n",
             {"main.mac(3): error : Didn't define valiable name[c0]"}},
        Case{"CommandsThatGiveArrays",
             "a = 0\nloop a < 3\n b = array.init(2, a)\n b[0] = 9\n c[a] = b\n test.plain(b)\n a = a + "
             "1\nendloop\n",
             {"c = [[integer 9, integer 0], [integer 9, integer 1], [integer 9, integer 2]]"}},
        Case{"AVariableAddedToItself", "a = 1\nloop a < 99\n a = a + a\nendloop\n", {"a = integer 128"}},
        Case{"ALimitThatMoves",
             "a = 0\nc = 9\nloop a < c\n c = c - 1\n a = a + 1\nendloop\n",
             {"a = integer 5", "c = integer 4"}},
        Case{"LoopsThatEndAtOneValue",
             "a = 0\nc = 3\nloop a != 7\n a = a + 1\nendloop\nb = 1\nloop b == 1\n b = b + 1\nendloop\n"
             "loop a != c\n a = a - 1\nendloop\nloop b >= c\n b = b - a\nendloop\n",
             {"a = integer 3", "b = integer 2"}},
        Case{"QuotientsThatAreNotAssignedThemselves",
             "a = 3\nb = 3.0\nloop a >= 0\n c = 6.0 / b + 1\n d = 1 + 12 / a\n b = b - 1\n a = a - "
             "1\nendloop\n",
             {"main.mac(4): error : 0 division.", "c = floating 7", "d = integer 13"}},
        Case{"BitsThatAreNotAssignedThemselves",
             "a = 0\nloop a < 5\n b = (a & 3 | 8) << 1 >> 2\n c = 7 - (a * a + a)\n a = a + 1\nendloop\n",
             {"b = integer 4", "c = integer -13"}},
        Case{"FloatingValuesAgainstIntegers",
             "a = 0\nb = 0.5\nd = 0\nloop a < 4\n c = b * 2 + (b - 1) * b\n if b < a\n  d = d + 1\n endif\n"
             " if b < 2.5\n  d = d + 10\n endif\n b = b + 1\n if a == 2\n  b = 3\n endif\n a = a + "
             "1\nendloop\n",
             {"c = integer 12", "d = integer 20"}},
        Case{"RowsOfEveryKind",
             "a = 0\nb[0][0] = 1.5\nc[0][0] = \"t\"\nd[0][0] = 7\nloop a < 3\n e = b[0][0]\n f = c[0][0]\n"
             " if a == 1\n  f = d[0][0]\n endif\n c[0][0] = f\n a = a + 1\nendloop\n",
             {"e = floating 1.5", "f = integer 7"}},
        Case{"ElementsThatNeedMoreThanTwoSubscripts",
             "a = 0\nloop a < 3\n b[0][0][a] = a\n c = b[0][0][a] + 1\n a = a + 1\nendloop\n",
             {"b = [[[integer 0, integer 1, integer 2]]]", "c = integer 3"}},
        Case{"AFloatingStep",
             "a = 0.0\nloop a < 3\n a = a + 0.5\n b = b0\nendloop\n",
             {"main.mac(4): error : Didn't define valiable name[b0]"}}),
    [](const testing::TestParamInfo<Case>& test) { return test.param.name; });

TEST(ExecutionPlan, AMillionTurnsOfEveryStepNeedNoMoreStack) {
    CompiledMacro macro;
    ASSERT_EQ(
        macro.Compile(
            "a = 0\nb = 0\nc = \"\"\nd[0] = 1\nf[0][1] = 2\nh = 0.5\ng[0] = \"t\"\n"
            "loop a < 1000000\n b = b + d[0]\n e = b * 1.5\n d[0] = b - a\n"
            " if c == \"x\"\n  b = 0\n elseif h > a && a > 5\n  b = 1\n endif\n"
            " c = c + \"y\"\n f[0][1] = a\n i = f[0][1]\n h = h * 1.0\n h = h + i / 2\n j = g[0]\n"
            " g[0] = c\n k = d\n d[0] = b - a\n if e <= h\n  j = h\n endif\n l = c\n a = a + 1\nendloop\n"),
        Lines());
    EXPECT_EQ(macro.Run(), Lines());
    EXPECT_EQ(macro.ValueOf("a"), "integer 1000000");
    EXPECT_EQ(macro.ValueOf("i"), "integer 999999");
}

class AbortingCommand : public CMacroCategoryBase {
public:
    explicit AbortingCommand(CMacroPrg& program)
        : CMacroCategoryBase("test", "abort", true, false, ""), program_(program) {}

    bool Run(CMacroPropertyIF* property) override {
        int turn = 0;
        if (property->GetArgInteger(0, 0, 0, turn) && turn == 5) program_.RequestAbort();
        return true;
    }

private:
    CMacroPrg& program_;
};

TEST(ExecutionPlan, AnAbortIsSeenRightAfterTheCallThatAsksForIt) {
    for (const bool usesPlans : {true, false}) {
        CompiledMacro macro;
        AbortingCommand command(macro.GetProgram());
        macro.GetCommands().AddCategoryCommand(nullptr, &command, false);
        macro.GetProgram().UsePlans(usesPlans);
        ASSERT_EQ(macro.Compile("a = 0\nloop a < 9\n test.abort(a)\n a = a + 1\nendloop\n"), Lines());
        EXPECT_EQ(macro.Run(), Lines{"main.mac(3): error : Macro aborted."});
        EXPECT_EQ(macro.ValueOf("a"), "integer 5");
    }
}

class TellingCommand : public CMacroCategoryBase {
public:
    TellingCommand() : CMacroCategoryBase("test", "isSmall", true, false, "") {}

    bool Run(CMacroPropertyIF* property) override {
        int value = 0;
        return property->GetArgInteger(0, 0, 0, value) && property->SetResultBoolean(value < 3);
    }
};

TEST(ExecutionPlan, ConditionsOnWhatACommandTells) {
    for (const bool usesPlans : {true, false}) {
        CompiledMacro macro;
        TellingCommand command;
        macro.GetCommands().AddCategoryCommand(nullptr, &command, false);
        macro.GetProgram().UsePlans(usesPlans);
        ASSERT_EQ(macro.Compile("a = 0\nb = test.isSmall(0)\nc = test.isSmall(0)\nd = 0\n"
                                "loop b == c\n a = a + 1\n b = test.isSmall(a)\n if b != c\n  d = a\n endif\n"
                                "endloop\nloop b == c\n a = 99\nendloop\n"),
                  Lines());
        EXPECT_EQ(macro.Run(), Lines());
        EXPECT_EQ(macro.ValueOf("a"), "integer 3");
        EXPECT_EQ(macro.ValueOf("d"), "integer 3");
    }
}

/// Where the plan of a loop leaves a program that is to stop: in its first turn and, with the steps that it
/// has chosen there, in another one.
std::vector<std::uint32_t> LinesOfLeaving(const std::string& condition, const std::string& body) {
    CompiledMacro macro;
    EXPECT_EQ(macro.Compile("a = 0\nloop " + condition + "\n" + body + "endloop\na = 0\nh = 0.5\n"), Lines());
    EXPECT_EQ(macro.Run(), Lines());
    LoopPlans plans(macro.GetProgram().GetText());
    const std::size_t firstGroup = 1;
    ExecutionPlan* const plan = plans.Find(firstGroup, false);
    const std::atomic<RunState> state{RunState::Aborting};
    std::vector<std::uint32_t> lines;
    for (int turn = 0; turn < 2; ++turn) {
        std::size_t current = 0;
        const plan::Exit exit = plan->Run(firstGroup, state, current, nullptr);
        lines.push_back(macro.GetProgram().GetStatements()[exit.statement]->GetLineNumber());
    }
    return lines;
}

TEST(ExecutionPlan, AProgramThatIsToStopIsLeftAtTheEndOfATurn) {
    using Numbers = std::vector<std::uint32_t>;
    const std::string advance = " a = a + 1\n";
    for (const char* condition : {"a < 9", "a != 9", "a < 9.5", "a < 9 && a != 7", "a < 2 || a < 9"}) {
        EXPECT_EQ(LinesOfLeaving(condition, advance), (Numbers{4, 4})) << condition;
        EXPECT_EQ(LinesOfLeaving(condition, advance + " b = a\n"), (Numbers{5, 5})) << condition;
    }
    EXPECT_EQ(LinesOfLeaving("a < 9", " h = a * 0.5\n a = a + 1\n b = h\n"), (Numbers{6, 6}));
}

TEST(ExecutionPlan, AProgramThatIsToStopIsLeftBehindWhatAStatementDoesItself) {
    EXPECT_EQ(LinesOfLeaving("a < 9", " b[0][0][0] = a\n a = a + 1\n"), (std::vector<std::uint32_t>{3, 3}));
}

TEST(ExecutionPlan, ALongTurnIsLeftBeforeItsEnd) {
    std::string body;
    for (int line = 0; line < 1500; ++line)
        body += " b = a + 1\n";
    // The state is looked at after a thousand steps.
    EXPECT_EQ(LinesOfLeaving("a < 2", body + " a = a + 1\n"), (std::vector<std::uint32_t>{1002, 1002}));
}

TEST(ExecutionPlan, ProgramsThatGrowGetNewPlans) {
    CompiledMacro macro;
    ASSERT_EQ(macro.Compile("a = 0\nloop a < 3\n a = a + 1\nendloop\n"), Lines());
    EXPECT_EQ(macro.Run(), Lines());
    ASSERT_EQ(macro.Compile("b = 0\nloop b < 5\n b = b + a\nendloop\n"), Lines());
    EXPECT_EQ(macro.Run(), Lines());
    EXPECT_EQ(macro.ValueOf("b"), "integer 6");
}

}  // namespace
}  // namespace macroengine
