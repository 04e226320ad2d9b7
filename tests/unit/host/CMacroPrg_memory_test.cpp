#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <string>

#include "host/CMacroPrg.h"
#include "support/CompiledMacro.h"
#include "support/FailingAllocation.h"
#include "unit/host/ScriptedProgram.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::FailingAllocation;
using test::Lines;
using test::ScriptedProgram;
using test::ScriptedStatement;

TEST(CMacroPrgMemory, AStatementThatRunsOutOfMemoryFails) {
    ScriptedProgram program;
    program.Add(1, "a");
    program.Add(2, "b", [](ScriptedStatement&) -> bool { throw std::bad_alloc(); });
    program.Add(3, "c");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(program.Run(), "a b");
        EXPECT_FALSE(program.HasSucceeded());
        EXPECT_EQ(program.TakeErrors(),
                  "a.mac(2): error : Memory allocation error\na.mac(2): error : run time error !");
        EXPECT_EQ(program.GetState(), 9);
    }
}

TEST(CMacroPrgMemory, ARunThatCanNotBeginFailsAndMayBeTriedAgain) {
    const std::string longName(200, 'd');
    ScriptedProgram program;
    program.Add(1, "a");
    program->SetSourcePath("C:\\" + longName + "\\a.mac");
    // The second time the program has already been at its end once.
    for (int round = 0; round < 2; ++round) {
        bool succeeded = false;
        for (long allowed = 0; !succeeded; ++allowed) {
            ASSERT_LT(allowed, 100);
            program->SetWorkDirectory(longName);
            program.TakeErrors();
            try {
                const FailingAllocation failing(allowed);
                program.Run();
                succeeded = program.HasSucceeded();
                if (!succeeded) {
                    ASSERT_EQ(program.GetState(), 9) << allowed;
                }
            } catch (const std::bad_alloc&) {
                // There was no memory even for the message.
                ASSERT_EQ(program.GetState(), 9) << allowed;
            }
        }
        EXPECT_EQ(program.GetState(), 6);
    }
}

TEST(CMacroPrgMemory, ALoopRunsWithoutThePlanThatThereIsNoMemoryFor) {
    bool hasFailed = false;
    bool isWhole = false;
    for (long allowed = 0; !isWhole; ++allowed) {
        ASSERT_LT(allowed, 100);
        CompiledMacro macro;
        ASSERT_EQ(
            macro.Compile("a = 0\nloop a < 9\n a = a + 1\nendloop\nb = 0\nloop b < 9\n b = b + 1\nendloop\n"),
            Lines());
        macro.GetProgram().UsePlans(true);
        bool succeeded = false;
        try {
            const FailingAllocation failing(allowed);
            succeeded = macro.GetProgram().Run();
            isWhole = FailingAllocation::GetFailures() == 0;
        } catch (const std::bad_alloc&) {
        }
        // Without the memory to begin with, no statement has run.
        if (macro.ValueOf("a") == "undefined") continue;
        hasFailed = hasFailed || !isWhole;
        ASSERT_TRUE(succeeded) << allowed;
        ASSERT_EQ(macro.ValueOf("b"), "integer 9") << allowed;
        // Another run has the memory.
        ASSERT_EQ(macro.Run(), Lines()) << allowed;
    }
    EXPECT_TRUE(hasFailed);
}

TEST(CMacroPrgMemory, AnInsertionThatFailsLeavesTheProgramAsItWas) {
    ScriptedProgram program;
    SourceUnit& unit = program.GetUnit();
    int count = 0;
    while (count < 100) {
        auto statement = std::make_unique<ScriptedStatement>(unit, static_cast<std::uint32_t>(count + 1),
                                                             [](ScriptedStatement&) { return true; });
        const std::int32_t groups = program->GetGroupCount();
        const int state = program.GetState();
        bool inserted = true;
        try {
            const FailingAllocation failing(count % 3);
            program->InsertMacroNode(std::move(statement), CMacroPrg::Grouping::BySourceLine);
        } catch (const std::bad_alloc&) {
            inserted = false;
        }
        ASSERT_EQ(program->GetGroupCount(), groups + (inserted ? 1 : 0));
        ASSERT_EQ(program.GetState(), inserted ? 2 : state);
        ++count;
    }
    program.Add(1000, "last");
    EXPECT_EQ(program.Run(), "last");
    EXPECT_TRUE(program.HasSucceeded());
}

}  // namespace
}  // namespace macroengine
