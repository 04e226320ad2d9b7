#include "host/CMacroPrg.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "support/ScopedCodePage.h"
#include "support/ValueDescription.h"
#include "unit/host/ScriptedProgram.h"

namespace macroengine {
namespace {

using test::FailWith;
using test::GoTo;
using test::ScopedCodePage;
using test::ScriptedProgram;
using test::ScriptedStatement;

using Grouping = CMacroPrg::Grouping;

HWND Window(std::uintptr_t number) {
    return reinterpret_cast<HWND>(number);
}

TEST(CMacroPrgInsertion, StatementsOfOneSourceLineFormAGroup) {
    ScriptedProgram program;
    EXPECT_EQ(program->GetGroupCount(), 0);
    program.Add(1, "a");
    program.Add(1, "b");
    program.Add(1, "c");
    EXPECT_EQ(program->GetGroupCount(), 1);
    program.Add(2, "d");
    EXPECT_EQ(program->GetGroupCount(), 2);
    program.Add(2, "e");
    EXPECT_EQ(program->GetGroupCount(), 2);
    // A line that comes again later is another step.
    program.Add(1, "f");
    EXPECT_EQ(program->GetGroupCount(), 3);
    EXPECT_EQ(program.Run(), "a b c d e f");
}

TEST(CMacroPrgInsertion, AnIncludedFileBeginsAGroupOnTheSameLine) {
    ScriptedProgram program;
    SourceUnit& included = program->AddSourceUnit("inner.mac", 1);
    SourceUnit& itself = program->AddSourceUnit("a.mac", 1);
    SourceUnit& other = program->AddSourceUnit("b.mac", 0);
    SourceUnit& same = program->AddSourceUnit("a.mac", 0);
    program.Add(3, "outer");
    const struct {
        SourceUnit& unit;
        std::int32_t groups;
    } steps[] = {{included, 2}, {itself, 3}, {itself, 3}, {other, 4}, {program.GetUnit(), 5}, {same, 5}};
    for (const auto& step : steps) {
        program.Add(step.unit, 3, "x");
        EXPECT_EQ(program->GetGroupCount(), step.groups);
    }
}

TEST(CMacroPrgInsertion, TheModeChoosesTheGroup) {
    ScriptedProgram program;
    SourceUnit& unit = program.GetUnit();
    // Whatever its mode, the first statement begins the first group.
    program.Add(unit, 5, "a", nullptr, Grouping::WithLastGroup);
    EXPECT_EQ(program->GetGroupCount(), 1);
    program.Add(unit, 5, "b", nullptr, Grouping::Alone);
    EXPECT_EQ(program->GetGroupCount(), 2);
    const ScriptedStatement& c = program.Add(unit, 9, "c", nullptr, Grouping::WithLastGroup);
    EXPECT_EQ(program->GetGroupCount(), 2);
    EXPECT_EQ(c.GetLineNumber(), 5U);
    const ScriptedStatement& d = program.Add(unit, 9, "d", nullptr, static_cast<Grouping>(3));
    EXPECT_EQ(program->GetGroupCount(), 2);
    EXPECT_EQ(d.GetLineNumber(), 9U);
    program.Add(unit, 9, "e");
    EXPECT_EQ(program->GetGroupCount(), 3);
    const ScriptedStatement& f = program.Add(unit, 12, "f", nullptr, Grouping::WithLastGroup);
    EXPECT_EQ(f.GetLineNumber(), 5U);
    EXPECT_EQ(program->GetGroupCount(), 3);
    EXPECT_EQ(program.Run(), "a b c d e f");
}

TEST(CMacroPrgInsertion, AnExpectedTextNeedNotCome) {
    CMacroPrg program;
    program.ExpectText(0);
    program.ExpectText(SIZE_MAX);
    EXPECT_EQ(program.GetGroupCount(), 0);
    EXPECT_EQ(program.GetState(), CMacroPrg::State::Empty);
}

TEST(CMacroPrgInsertion, TheFirstStatementKeepsItsLine) {
    for (const Grouping grouping : {Grouping::BySourceLine, Grouping::Alone, Grouping::WithLastGroup}) {
        ScriptedProgram program;
        const ScriptedStatement& first = program.Add(program.GetUnit(), 7, "a", nullptr, grouping);
        EXPECT_EQ(first.GetLineNumber(), 7U);
        EXPECT_EQ(program->GetGroupCount(), 1);
    }
}

TEST(CMacroPrgInsertion, LeavesTheProgramLoadedWhateverItsState) {
    for (const int state : {0, 1, 2, 6, 7, 8, 9, 42}) {
        ScriptedProgram program;
        EXPECT_EQ(program.GetState(), 0);
        program.SetState(state);
        program.Add(1, "a");
        EXPECT_EQ(program.GetState(), 2) << state;
        EXPECT_EQ(program.Run(), "a");
    }
}

TEST(CMacroPrgInsertion, NoStatementIsReportedAndLeavesTheStateAlone) {
    for (const int state : {0, 2, 6, 7, 9, 42}) {
        for (const Grouping grouping : {Grouping::BySourceLine, Grouping::Alone, Grouping::WithLastGroup}) {
            ScriptedProgram program;
            program.SetState(state);
            EXPECT_FALSE(program->InsertMacroNode(nullptr, grouping));
            EXPECT_EQ(program.TakeErrors(),
                      "error : internal error: NULL macro registerd at CMacroPrg::InsertMacroNode()");
            EXPECT_EQ(program.GetState(), state);
            EXPECT_EQ(program->GetGroupCount(), 0);
        }
    }
}

/// Counts how many of its kind are alive.
class Counted : public ScriptedStatement {
public:
    Counted(SourceUnit& unit, int& alive)
        : ScriptedStatement(unit, 1, [](ScriptedStatement&) { return true; }), alive_(alive) {
        ++alive_;
    }
    ~Counted() override { --alive_; }

private:
    int& alive_;
};

TEST(CMacroPrgInsertion, TheProgramDestroysItsStatements) {
    int alive = 0;
    {
        CMacroPrg program;
        SourceUnit& unit = program.AddSourceUnit("a.mac", 0);
        for (int i = 0; i < 10; ++i)
            program.InsertMacroNode(std::make_unique<Counted>(unit, alive), Grouping::BySourceLine);
        EXPECT_EQ(alive, 10);
    }
    EXPECT_EQ(alive, 0);
}

TEST(CMacroPrgRunRequest, IsAnsweredByTheState) {
    const struct {
        int state;
        bool runs;
        const char* expected;
    } cases[] = {
        {0, false, "error : Nothing macro sequence."},
        {1, false, "error : Can't run macro, because file is loading now.."},
        {2, true, ""},
        {3, false, "error : internal error. Recieve run-request during running."},
        {4, false, "error : internal error. Recieve run-request during step-running."},
        {5, false, "error : internal error. Recieve run-request during breaking."},
        {6, true, ""},
        {7, false, "error : internal error. Recieve run-request during aborting."},
        {8, true, ""},
        {9, true, ""},
        {10, false, ""},
        {42, false, ""},
        {INT32_MAX, false, ""},
    };
    for (const auto& c : cases) {
        ScriptedProgram program;
        program.Add(1, "a");
        program.SetState(c.state);
        EXPECT_EQ(program.Run(), c.runs ? "a" : "") << c.state;
        EXPECT_EQ(program.HasSucceeded(), c.runs) << c.state;
        EXPECT_EQ(program.TakeErrors(), c.expected) << c.state;
        EXPECT_EQ(program.GetState(), c.runs ? 6 : c.state);
    }
}

TEST(CMacroPrgRunRequest, WithoutAStatementThereIsNothingToRun) {
    ScriptedProgram program;
    EXPECT_EQ(program.Run(), "");
    EXPECT_FALSE(program.HasSucceeded());
    EXPECT_EQ(program.TakeErrors(), "error : Nothing macro sequence.");
    EXPECT_EQ(program.GetState(), 0);
    for (const int state : {2, 6, 8, 9}) {
        program.SetState(state);
        EXPECT_EQ(program.Run(), "");
        EXPECT_FALSE(program.HasSucceeded());
        EXPECT_EQ(program.TakeErrors(), "error : Nothing macro sequence.\nerror : run time error !");
        EXPECT_EQ(program.GetState(), state);
    }
}

TEST(CMacroPrgRunRequest, IsRefusedByAStatementThatRuns) {
    ScriptedProgram program;
    bool answer = true;
    program.Add(1, "a", [&](ScriptedStatement&) {
        answer = program->Run();
        return true;
    });
    EXPECT_EQ(program.Run(), "a");
    EXPECT_TRUE(program.HasSucceeded());
    EXPECT_FALSE(answer);
    EXPECT_EQ(program.TakeErrors(), "error : internal error. Recieve run-request during running.");
}

TEST(CMacroPrgRun, IsRunningWhileItRunsAndFinishedAfterwards) {
    ScriptedProgram program;
    int during = 0;
    program.Add(1, "a", [&](ScriptedStatement&) {
        during = program.GetState();
        return true;
    });
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(program.Run(), "a");
        EXPECT_TRUE(program.HasSucceeded());
        EXPECT_EQ(during, 3);
        EXPECT_EQ(program.GetState(), 6);
    }
}

TEST(CMacroPrgRun, KeepsVariablesFromRunToRun) {
    ScriptedProgram program;
    Variable& x = program->GetVariables().Bind("x");
    program.Add(1, "a", [&](ScriptedStatement&) {
        const std::int32_t before = x.value.GetType() == ValueKind::Integer ? x.value.View().integer : 0;
        x.value = test::Integer(before + 1);
        return true;
    });
    for (int i = 1; i <= 3; ++i) {
        program.Run();
        EXPECT_EQ(test::Describe(x.value), "integer " + std::to_string(i));
    }
}

TEST(CMacroPrgRun, AJumpLeadsToAGroupAndSkipsTheRestOfItsOwn) {
    ScriptedProgram program;
    program.Add(1, "a");
    program.Add(1, "b", GoTo(2));
    program.Add(1, "skipped");
    program.Add(2, "over");
    program.Add(3, "c");
    program.Add(3, "d");
    EXPECT_EQ(program.Run(), "a b c d");
    EXPECT_TRUE(program.HasSucceeded());
}

TEST(CMacroPrgRun, AJumpToGroupZeroStartsOver) {
    ScriptedProgram program;
    int rounds = 0;
    program.Add(1, "a");
    program.Add(2, "b", [&](ScriptedStatement& self) {
        self.SetNextIndex(++rounds < 3 ? 0 : -1);
        return true;
    });
    program.Add(3, "c");
    EXPECT_EQ(program.Run(), "a b a b a b c");
    EXPECT_TRUE(program.HasSucceeded());
    EXPECT_EQ(program.GetState(), 6);
}

TEST(CMacroPrgRun, AJumpBeyondTheLastGroupEndsTheProgram) {
    // The index is an unsigned number.
    for (const std::int32_t beyond : {3, 4, 1000, INT32_MAX, -2, INT32_MIN}) {
        ScriptedProgram program;
        program.Add(1, "a", GoTo(beyond));
        program.Add(2, "b");
        program.Add(3, "c");
        EXPECT_EQ(program.Run(), "a") << beyond;
        EXPECT_TRUE(program.HasSucceeded()) << beyond;
        EXPECT_EQ(program.GetState(), 6) << beyond;
    }
}

TEST(CMacroPrgRun, AJumpToItsOwnGroupRunsItAgain) {
    ScriptedProgram program;
    int rounds = 0;
    program.Add(1, "a", [&](ScriptedStatement& self) {
        self.SetNextIndex(++rounds < 100000 ? 0 : 1);
        return true;
    });
    program.Run();
    EXPECT_EQ(rounds, 100000);
    EXPECT_TRUE(program.HasSucceeded());
}

TEST(CMacroPrgErrors, TheRunStopsAtAFailedStatement) {
    ScriptedProgram program;
    program.Add(1, "a");
    program.Add(2, "b", FailWith("no such thing"));
    program.Add(2, "c");
    program.Add(3, "d");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(program.Run(), "a b");
        EXPECT_FALSE(program.HasSucceeded());
        EXPECT_EQ(program.GetState(), 9);
        EXPECT_EQ(program.TakeErrors(),
                  "a.mac(2): error : no such thing\na.mac(2): error : run time error !");
    }
}

TEST(CMacroPrgErrors, EveryLineOfTheStatementComesBeforeTheRunTimeError) {
    ScriptedProgram program;
    SourceUnit& included = program->AddSourceUnit("sub\\inner.mac", 1);
    program.Add(included, 40, "a", [](ScriptedStatement& self) {
        self.Fail("first");
        self.Fail("second");
        return self.Fail("third");
    });
    program.Run();
    EXPECT_EQ(program.TakeErrors(),
              "sub\\inner.mac(40): error : first\nsub\\inner.mac(40): error : second\n"
              "sub\\inner.mac(40): error : third\nsub\\inner.mac(40): error : run time error !");
    // They have moved: the next run does not report them again.
    program.Run();
    EXPECT_EQ(program.TakeErrors(),
              "sub\\inner.mac(40): error : first\nsub\\inner.mac(40): error : second\n"
              "sub\\inner.mac(40): error : third\nsub\\inner.mac(40): error : run time error !");
}

TEST(CMacroPrgErrors, AStatementMayFailWithoutALine) {
    ScriptedProgram program;
    program.Add(6, "a", [](ScriptedStatement&) { return false; });
    program.Run();
    EXPECT_EQ(program.TakeErrors(), "a.mac(6): error : run time error !");
}

TEST(CMacroPrgErrors, WithoutStopOnErrorTheRunGoesOn) {
    ScriptedProgram program;
    program->SetErrorHandling(false, nullptr, 5);
    program.Add(1, "a", FailWith("one"));
    program.Add(1, "b");
    program.Add(2, "c", FailWith("two"));
    program.Add(3, "d");
    EXPECT_EQ(program.Run(), "a b c d");
    EXPECT_FALSE(program.HasSucceeded());
    EXPECT_EQ(program.GetState(), 9);
    EXPECT_EQ(program.TakeErrors(),
              "a.mac(1): error : one\na.mac(1): error : run time error !\n"
              "a.mac(2): error : two\na.mac(2): error : run time error !");
}

TEST(CMacroPrgErrors, AnErrorPassedOverCountsForItsOwnRunOnly) {
    ScriptedProgram program;
    program->SetErrorHandling(false, nullptr, 0);
    bool fails = true;
    program.Add(1, "a", [&](ScriptedStatement& self) { return !fails || self.Fail("sometimes"); });
    program.Run();
    EXPECT_FALSE(program.HasSucceeded());
    EXPECT_EQ(program.GetState(), 9);
    program.TakeErrors();
    fails = false;
    program.Run();
    EXPECT_TRUE(program.HasSucceeded());
    EXPECT_EQ(program.GetState(), 6);
    EXPECT_EQ(program.TakeErrors(), "");
}

TEST(CMacroPrgErrors, WithATargetTheLinesOfAnErrorPassedOverAreDropped) {
    ScriptedProgram program;
    program->SetErrorHandling(false, Window(1), 0);
    program.Add(1, "a", FailWith("one"));
    program.Add(2, "b", FailWith("two"));
    program.Add(3, "c");
    program->InsertMacroNode(nullptr, Grouping::Alone);
    EXPECT_EQ(program.Run(), "a b c");
    EXPECT_FALSE(program.HasSucceeded());
    EXPECT_EQ(program.GetState(), 9);
    // And with them whatever the program had to say before.
    EXPECT_EQ(program.TakeErrors(), "");
}

TEST(CMacroPrgErrors, ATargetDropsNothingWhenTheRunStops) {
    ScriptedProgram program;
    program->SetErrorHandling(true, Window(1), 0);
    program.Add(1, "a", FailWith("one"));
    program.Run();
    EXPECT_EQ(program.TakeErrors(), "a.mac(1): error : one\na.mac(1): error : run time error !");
}

TEST(CMacroPrgErrors, AFailedStatementMayStillJump) {
    ScriptedProgram program;
    program->SetErrorHandling(false, nullptr, 0);
    program.Add(1, "a", [](ScriptedStatement& self) {
        self.SetNextIndex(2);
        return self.Fail("one");
    });
    program.Add(2, "b");
    program.Add(3, "c");
    EXPECT_EQ(program.Run(), "a c");
}

TEST(CMacroPrgAbort, IsSeenBehindTheStatement) {
    ScriptedProgram program;
    bool answer = false;
    program.Add(4, "a", [&](ScriptedStatement&) {
        answer = program->RequestAbort();
        return true;
    });
    program.Add(4, "b");
    program.Add(5, "c");
    EXPECT_EQ(program.Run(), "a");
    EXPECT_TRUE(answer);
    EXPECT_FALSE(program.HasSucceeded());
    EXPECT_EQ(program.TakeErrors(), "a.mac(4): error : Macro aborted.");
    EXPECT_EQ(program.GetState(), 7);
    // Until something resets the state.
    EXPECT_EQ(program.Run(), "");
    EXPECT_EQ(program.TakeErrors(), "error : internal error. Recieve run-request during aborting.");
    program.Add(6, "d");
    program.SetState(2);
    EXPECT_EQ(program.Run(), "a");
}

TEST(CMacroPrgAbort, IsSeenBehindTheLastStatement) {
    ScriptedProgram program;
    program.Add(1, "a", [&](ScriptedStatement&) { return program->RequestAbort(); });
    EXPECT_EQ(program.Run(), "a");
    EXPECT_FALSE(program.HasSucceeded());
    EXPECT_EQ(program.TakeErrors(), "a.mac(1): error : Macro aborted.");
}

TEST(CMacroPrgAbort, ComesAfterAnErrorThatIsPassedOver) {
    ScriptedProgram program;
    program->SetErrorHandling(false, nullptr, 0);
    program.Add(1, "a", [&](ScriptedStatement& self) {
        program->RequestAbort();
        return self.Fail("one");
    });
    program.Add(2, "b");
    EXPECT_EQ(program.Run(), "a");
    EXPECT_EQ(program.TakeErrors(),
              "a.mac(1): error : one\na.mac(1): error : run time error !\na.mac(1): error : Macro aborted.");
    EXPECT_EQ(program.GetState(), 7);
}

TEST(CMacroPrgAbort, AnErrorThatStopsTheRunComesFirst) {
    ScriptedProgram program;
    program.Add(1, "a", [&](ScriptedStatement& self) {
        program->RequestAbort();
        return self.Fail("one");
    });
    EXPECT_EQ(program.Run(), "a");
    EXPECT_EQ(program.TakeErrors(), "a.mac(1): error : one\na.mac(1): error : run time error !");
    EXPECT_EQ(program.GetState(), 9);
}

TEST(CMacroPrgAbort, IsPossibleInThreeStates) {
    for (const int state : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, -1}) {
        ScriptedProgram program;
        program.SetState(state);
        const bool possible = state == 3 || state == 4 || state == 5;
        EXPECT_EQ(program->RequestAbort(), possible) << state;
        EXPECT_EQ(program.GetState(), possible ? 7 : state);
        EXPECT_EQ(program.TakeErrors(), "");
    }
}

TEST(CMacroPrgAbort, TheStateAbortedEndsTheRunAndAllowsTheNext) {
    ScriptedProgram program;
    program.Add(1, "a", [&](ScriptedStatement&) {
        program.SetState(8);
        return true;
    });
    program.Add(2, "b");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(program.Run(), "a");
        EXPECT_FALSE(program.HasSucceeded());
        EXPECT_EQ(program.TakeErrors(), "a.mac(1): error : Macro aborted.");
        EXPECT_EQ(program.GetState(), 8);
    }
}

TEST(CMacroPrgGate, AStateThatDoesNotBelongToARunIsAnInternalError) {
    for (const int state : {0, 1, 2, 9, 10, 42, INT32_MAX, -1}) {
        ScriptedProgram program;
        program.Add(1, "a", [&](ScriptedStatement&) {
            program.SetState(state);
            return true;
        });
        program.Add(1, "b");
        program.Add(2, "c");
        // The gate stands before a group, not before a statement.
        EXPECT_EQ(program.Run(), "a b") << state;
        EXPECT_FALSE(program.HasSucceeded()) << state;
        EXPECT_EQ(program.TakeErrors(), "error : internal error.") << state;
        EXPECT_EQ(program.GetState(), state);
    }
}

TEST(CMacroPrgGate, TheStateFinishedEndsTheRunWithSuccess) {
    ScriptedProgram program;
    program.Add(1, "a", [&](ScriptedStatement&) {
        program.SetState(6);
        return true;
    });
    program.Add(2, "b");
    EXPECT_EQ(program.Run(), "a");
    EXPECT_TRUE(program.HasSucceeded());
    EXPECT_EQ(program.TakeErrors(), "");
    EXPECT_EQ(program.GetState(), 6);
}

TEST(CMacroPrgGate, ABreakFlagDoesNotPauseARunThatIsOver) {
    ScriptedProgram program;
    program.Add(1, "a", [&](ScriptedStatement&) {
        program.SetState(6);
        return true;
    });
    program.Add(2, "b").SetBreakFlag(true);
    EXPECT_EQ(program.Run(), "a");
    EXPECT_TRUE(program.HasSucceeded());
    EXPECT_EQ(program.GetState(), 6);
}

TEST(CMacroPrgGate, BehindTheLastGroupThereIsNoGate) {
    for (const int state : {0, 2, 4, 5, 9, 42}) {
        ScriptedProgram program;
        program.Add(1, "a", [&](ScriptedStatement&) {
            program.SetState(state);
            return true;
        });
        EXPECT_EQ(program.Run(), "a") << state;
        EXPECT_TRUE(program.HasSucceeded()) << state;
        EXPECT_EQ(program.GetState(), 6) << state;
    }
}

TEST(CMacroPrgGate, ABreakFlagInsideAGroupIsNotLookedAt) {
    ScriptedProgram program;
    program.Add(1, "a");
    program.Add(1, "b").SetBreakFlag(true);
    EXPECT_EQ(program.Run(), "a b");
    EXPECT_TRUE(program.HasSucceeded());
}

TEST(CMacroPrgWorkDirectory, ARelativeOneIsTakenFromTheFolderOfTheSource) {
    const struct {
        int codePage;
        const char* source;
        const char* directory;
        const char* first;
        const char* second;
    } cases[] = {
        // An absolute one stays.
        {0, "C:\\m\\a.mac", "D:\\work", "D:\\work", "D:\\work"},
        {0, "C:\\m\\a.mac", "\\work", "\\work", "\\work"},
        {0, "C:\\m\\a.mac", "\\\\server\\share", "\\\\server\\share", "\\\\server\\share"},
        {0, "C:\\m\\a.mac", "D:", "D:", "D:"},
        {0, "C:\\m\\a.mac", "/work", "/work", "/work"},
        {0, "C:\\m\\a.mac", "/", "/", "/"},
        // The doubled backslash of the join is meant.
        {0, "C:\\m\\a.mac", "", "C:\\m\\\\", "C:\\m\\\\"},
        {0, "C:\\m\\a.mac", "sub", "C:\\m\\\\sub", "C:\\m\\\\sub"},
        {0, "C:\\m\\a.mac", "d", "C:\\m\\\\d", "C:\\m\\\\d"},
        {0, "C:\\m\\a.mac", "\\", "C:\\m\\\\\\", "C:\\m\\\\\\"},
        {0, "/m/a.mac", "sub", "/m/\\sub", "/m/\\sub"},
        {0, "/a.mac", "", "/\\", "/\\"},
        // Doubled ones of the source are undone.
        {0, "C:\\\\m\\\\a.mac", "sub", "C:\\m\\\\sub", "C:\\m\\\\sub"},
        {0, "\\\\\\\\server\\\\m\\\\a.mac", "sub", "\\\\server\\m\\\\sub", "\\\\server\\m\\\\sub"},
        {0, "\\\\server\\m\\a.mac", "sub", "\\server\\m\\\\sub", "\\server\\m\\\\sub"},
        // From a relative source it grows with every run.
        {0, "a.mac", "", ".\\\\", ".\\\\.\\\\"},
        {0, "a.mac", "sub", ".\\\\sub", ".\\\\.\\\\sub"},
        {0, "m\\a.mac", "sub", "m\\\\sub", "m\\\\m\\\\sub"},
        {0, "", "sub", ".\\\\sub", ".\\\\.\\\\sub"},
        // The second byte of a double-byte character is no separator.
        {932, "m\\\x83\\a.mac", "sub", "m\\\\sub", "m\\\\m\\\\sub"},
        {0, "m\\\x83\\a.mac", "sub", "m\\\x83\\\\sub", "m\\\x83\\\\m\\\x83\\\\sub"},
        {932, "C:\\\x83\\\\\\a.mac", "sub", "C:\\\x83\\\\\\sub", "C:\\\x83\\\\\\sub"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.source) + " + " + c.directory);
        const ScopedCodePage codePage(c.codePage);
        ScriptedProgram program;
        std::string seen;
        program.Add(1, "a", [&](ScriptedStatement& self) {
            seen = *self.GetUnit().workFolder;
            return true;
        });
        program->SetSourcePath(c.source);
        program->SetWorkDirectory(c.directory);
        program.Run();
        EXPECT_EQ(seen, c.first);
        EXPECT_EQ(program->GetWorkDirectory(), c.first);
        program.Run();
        EXPECT_EQ(seen, c.second);
        EXPECT_EQ(program->GetWorkDirectory(), c.second);
    }
}

TEST(CMacroPrgWorkDirectory, IsTheRunsOwnCopy) {
    ScriptedProgram program;
    std::vector<std::string> seen;
    SourceUnit& included = program->AddSourceUnit("sub\\inner.mac", 1);
    const auto look = [&](ScriptedStatement& self) {
        seen.push_back(*self.GetUnit().workFolder);
        program->SetWorkDirectory("D:\\later");
        return true;
    };
    program.Add(1, "a", look);
    program.Add(included, 1, "b", look);
    program->SetSourcePath("C:\\m\\a.mac");
    program->SetWorkDirectory("D:\\first");
    program.Run();
    program.Run();
    EXPECT_EQ(seen, (std::vector<std::string>{"D:\\first", "D:\\first", "D:\\later", "D:\\later"}));
}

TEST(CMacroPrgSettings, LineNotificationChangesNothing) {
    const struct {
        std::uint32_t code;
        HWND target;
        std::uint32_t enableCount;
    } settings[] = {
        {0, nullptr, 0}, {1024, Window(1), 0}, {1024, Window(1), 1}, {~0U, Window(~std::uintptr_t{0}), ~0U}};
    for (const auto& setting : settings) {
        ScriptedProgram program;
        program->SetLineNotification(setting.code, setting.target, setting.enableCount);
        program.Add(1, "a");
        program.Add(2, "b", FailWith("one"));
        EXPECT_EQ(program.Run(), "a b");
        EXPECT_EQ(program.TakeErrors(), "a.mac(2): error : one\na.mac(2): error : run time error !");
        EXPECT_EQ(program.GetState(), 9);
    }
}

}  // namespace
}  // namespace macroengine
