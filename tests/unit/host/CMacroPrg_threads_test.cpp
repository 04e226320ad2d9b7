#include <atomic>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <thread>

#include "host/CMacroPrg.h"
#include "platform/Clock.h"
#include "support/CompiledMacro.h"
#include "unit/host/ScriptedProgram.h"

namespace macroengine {
namespace {

using test::ScriptedProgram;
using test::ScriptedStatement;

/// Runs a program on a thread of its own; a test looks at its errors and its trace only when the run is over.
class RunOnThread {
public:
    explicit RunOnThread(ScriptedProgram& program)
        : program_(program), thread_([this] { trace_ = program_.Run(); }) {}
    ~RunOnThread() {
        if (thread_.joinable()) thread_.join();
    }
    RunOnThread(const RunOnThread&) = delete;
    RunOnThread& operator=(const RunOnThread&) = delete;

    /// Waits until the program is paused.
    void AwaitPause() const {
        while (program_.GetState() != 5)
            platform::SleepMilliseconds(1);
    }

    /// Waits until the run is over. @return the names of the statements that have run.
    const std::string& Join() {
        thread_.join();
        return trace_;
    }

private:
    ScriptedProgram& program_;
    std::string trace_;
    std::thread thread_;
};

TEST(CMacroPrgPause, ABreakFlagPausesBeforeItsGroup) {
    ScriptedProgram program;
    std::atomic<int> count{0};
    const auto step = [&](ScriptedStatement&) { return ++count > 0; };
    program.Add(1, "a", step);
    program.Add(2, "b", step).SetBreakFlag(true);
    program.Add(3, "c", step);
    RunOnThread run(program);
    run.AwaitPause();
    EXPECT_EQ(count, 1);
    program.SetState(3);
    EXPECT_EQ(run.Join(), "a b c");
    EXPECT_TRUE(program.HasSucceeded());
    EXPECT_EQ(program.GetState(), 6);
    EXPECT_EQ(program.TakeErrors(), "");
}

TEST(CMacroPrgPause, ABreakFlagPausesEachTimeItsGroupIsReached) {
    ScriptedProgram program;
    int rounds = 0;
    program.Add(1, "a").SetBreakFlag(true);
    program.Add(2, "b", [&](ScriptedStatement& self) {
        self.SetNextIndex(++rounds < 3 ? 0 : -1);
        return true;
    });
    RunOnThread run(program);
    for (int i = 0; i < 3; ++i) {
        run.AwaitPause();
        program.SetState(3);
        // The pause is over once the state has been seen; the flag sets it again in the next round.
    }
    EXPECT_EQ(run.Join(), "a b a b a b");
    EXPECT_TRUE(program.HasSucceeded());
}

TEST(CMacroPrgPause, AStepRunsOneGroup) {
    ScriptedProgram program;
    std::atomic<int> count{0};
    const auto step = [&](ScriptedStatement&) { return ++count > 0; };
    program.Add(1, "a", step).SetBreakFlag(true);
    program.Add(1, "b", step);
    program.Add(2, "c", step);
    program.Add(3, "d", step);
    program.Add(4, "e", step);
    RunOnThread run(program);
    int expected = 0;
    for (const int groupSize : {2, 1, 1}) {
        run.AwaitPause();
        EXPECT_EQ(count, expected);
        program.SetState(4);
        expected += groupSize;
        while (count < expected)
            platform::SleepMilliseconds(1);
    }
    run.AwaitPause();
    EXPECT_EQ(count, 4);
    program.SetState(4);
    EXPECT_EQ(run.Join(), "a b c d e");
    EXPECT_TRUE(program.HasSucceeded());
    EXPECT_EQ(program.GetState(), 6);
}

/// Has the program pause behind its call with the given number, as if that had been a step.
class PauseCommand : public CMacroCategoryBase {
public:
    PauseCommand(CMacroPrg& program, int call)
        : CMacroCategoryBase("pause", "at", false, false, ""), program_(program), callsLeft_(call) {}

    bool Run(CMacroPropertyIF*) override {
        if (--callsLeft_ == 0) program_.SetState(CMacroPrg::State::StepRunning);
        return true;
    }

private:
    CMacroPrg& program_;
    int callsLeft_;
};

TEST(CMacroPrgPause, StepsLeadThroughALoopThatHasRunForLong) {
    test::CompiledMacro macro;
    CMacroPrg& program = macro.GetProgram();
    PauseCommand pause(program, 500);
    macro.GetCommands().AddCategoryCommand(nullptr, &pause, false);
    ASSERT_EQ(macro.Compile("i = 0\nloop i < 1000\n  pause.at()\n  i = i + 1\n  j = i\nendloop\n"),
              test::Lines());
    std::thread runner([&] { EXPECT_EQ(macro.Run(), test::Lines()); });
    const auto awaitPause = [&] {
        while (program.GetState() != CMacroPrg::State::Breaking)
            platform::SleepMilliseconds(1);
    };
    awaitPause();
    EXPECT_EQ(macro.ValueOf("i") + ", " + macro.ValueOf("j"), "integer 499, integer 499");
    // The increment, the assignment, the end of the loop, its condition, the command, and the increment again.
    for (const char* const expected :
         {"integer 500, integer 499", "integer 500, integer 500", "integer 500, integer 500",
          "integer 500, integer 500", "integer 500, integer 500", "integer 501, integer 500"}) {
        program.SetState(CMacroPrg::State::StepRunning);
        awaitPause();
        EXPECT_EQ(macro.ValueOf("i") + ", " + macro.ValueOf("j"), expected);
    }
    program.SetState(CMacroPrg::State::Running);
    runner.join();
    EXPECT_EQ(macro.ValueOf("j"), "integer 1000");
}

TEST(CMacroPrgPause, AnAbortEndsAPausedRun) {
    ScriptedProgram program;
    program.Add(1, "a");
    program.Add(2, "b").SetBreakFlag(true);
    RunOnThread run(program);
    run.AwaitPause();
    EXPECT_TRUE(program->RequestAbort());
    EXPECT_EQ(run.Join(), "a");
    EXPECT_FALSE(program.HasSucceeded());
    EXPECT_EQ(program.TakeErrors(), "error : Macro aborted.");
    EXPECT_EQ(program.GetState(), 7);
}

TEST(CMacroPrgPause, TheStateAbortedEndsAPausedRunToo) {
    ScriptedProgram program;
    program.Add(1, "a").SetBreakFlag(true);
    RunOnThread run(program);
    run.AwaitPause();
    program.SetState(8);
    EXPECT_EQ(run.Join(), "");
    EXPECT_EQ(program.TakeErrors(), "error : Macro aborted.");
    EXPECT_EQ(program.GetState(), 8);
}

TEST(CMacroPrgPause, AnyOtherStateEndsAPausedRunAsAtTheGate) {
    const struct {
        int state;
        bool succeeds;
        const char* expected;
    } cases[] = {
        {6, true, ""}, {42, false, "error : internal error."}, {2, false, "error : internal error."}};
    for (const auto& c : cases) {
        ScriptedProgram program;
        program.Add(1, "a").SetBreakFlag(true);
        RunOnThread run(program);
        run.AwaitPause();
        program.SetState(c.state);
        EXPECT_EQ(run.Join(), "");
        EXPECT_EQ(program.HasSucceeded(), c.succeeds);
        EXPECT_EQ(program.TakeErrors(), c.expected);
        EXPECT_EQ(program.GetState(), c.state);
    }
}

TEST(CMacroPrgAbort, EveryAbortThatIsAcceptedEndsItsRun) {
    for (int round = 0; round < 1000; ++round) {
        ScriptedProgram program;
        // Runs of every length.
        int left = round % 50;
        program.Add(1, "", [&](ScriptedStatement& self) {
            self.SetNextIndex(--left > 0 ? 0 : -1);
            return true;
        });
        RunOnThread run(program);
        bool accepted = false;
        for (int i = 0; i < round % 7 && !accepted; ++i)
            accepted = program->RequestAbort();
        run.Join();
        ASSERT_EQ(program.HasSucceeded(), !accepted) << round;
        ASSERT_EQ(program.GetState(), accepted ? 7 : 6) << round;
        const std::string errors = program.TakeErrors();
        ASSERT_TRUE(accepted
                        ? errors == "error : Macro aborted." || errors == "a.mac(1): error : Macro aborted."
                        : errors.empty())
            << errors;
    }
}

TEST(CMacroPrgAbort, AsManyRunsEndAbortedAsAbortsAreAccepted) {
    // Short runs, so that many an abort comes at the very end of one: it is either seen or not accepted.
    ScriptedProgram program;
    program.Add(1, "");
    program.Add(2, "");
    std::atomic<bool> isOver{false};
    int aborted = 0;
    std::thread runner([&] {
        for (int round = 0; round < 20000; ++round) {
            program.Run();
            if (!program.HasSucceeded()) {
                ++aborted;
                program.SetState(2);
                program->GetErrors().Clear();
            }
        }
        isOver = true;
    });
    int accepted = 0;
    std::minstd_rand random(4711);
    while (!isOver) {
        for (std::atomic<unsigned int> pause{static_cast<unsigned int>(random() % 200)}; pause > 0;)
            --pause;
        if (program->RequestAbort()) ++accepted;
    }
    runner.join();
    EXPECT_EQ(aborted, accepted);
}

}  // namespace
}  // namespace macroengine
