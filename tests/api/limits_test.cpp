#include "macroengine/Limits.h"

#include <cstdint>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <new>
#include <string>

#include "api/MacroHost.h"

namespace {

using macroengine::test::MacroHost;

/// Runs a loaded macro under limits. @return its error lines, or "ran".
std::string RunWith(MacroHost& host, const MacroLimits& limits) {
    EXPECT_TRUE(SetMacroLimits(host.Get(), limits));
    return host->Run() ? "ran" : host.TakeErrors();
}

std::string RunText(const std::string& text, const MacroLimits& limits) {
    MacroHost host;
    EXPECT_TRUE(host.Load(text)) << host.TakeErrors();
    return RunWith(host, limits);
}

MacroLimits Statements(std::uint64_t count) {
    MacroLimits limits;
    limits.statements = count;
    return limits;
}

MacroLimits Bytes(std::uint64_t count) {
    MacroLimits limits;
    limits.valueBytes = count;
    return limits;
}

TEST(Limits, EachStatementCounts) {
    // Two assignments, one operation with its assignment.
    const std::string text = "a = 1\nb = 2\nc = a + b\n";
    EXPECT_EQ(RunText(text, Statements(4)), "ran");
    EXPECT_EQ(RunText(text, Statements(3)), "a.mac(3): error : Macro aborted. (limit of 3 statements)");
    EXPECT_EQ(RunText(text, Statements(1)), "a.mac(2): error : Macro aborted. (limit of 1 statements)");
}

TEST(Limits, ALoopCountsAllTurns) {
    // One assignment; each turn: comparison, loop, operation, assignment, endloop; at the end comparison, loop, exit.
    const std::string text = "i = 0\nloop i < 10\n  i = i + 1\nendloop\n";
    EXPECT_EQ(RunText(text, Statements(54)), "ran");
    EXPECT_EQ(RunText(text, Statements(53)), "a.mac(4): error : Macro aborted. (limit of 53 statements)");
    EXPECT_EQ(RunText(text, Statements(52)), "a.mac(2): error : Macro aborted. (limit of 52 statements)");
    EXPECT_EQ(RunText(text, Statements(50)), "a.mac(4): error : Macro aborted. (limit of 50 statements)");
    EXPECT_EQ(RunText(text, Statements(49)), "a.mac(3): error : Macro aborted. (limit of 49 statements)");
}

TEST(Limits, BranchesCountWhatRuns) {
    const std::string text =
        "i = 0\nloop i < 5\n  if i == 2\n    a = i\n  elseif i < 2 && i != 7\n  else\n    a = 0 - i\n  "
        "endif\n"
        "  i = i + 1\nendloop\n";
    std::uint64_t needed = 1;
    while (RunText(text, Statements(needed)) != "ran")
        ++needed;
    // 1 + 5 x (comparison, loop, comparison, if, operation, assignment, endloop, endif) + 2 x (3 comparisons, elseif,
    // jump) + (assignment, jump) + 2 x (3 comparisons, elseif, else, operation, assignment) + comparison, loop, exit
    EXPECT_EQ(needed, 1U + 40 + 10 + 2 + 14 + 3);
}

TEST(Limits, ARunUnderALimitCanNotBeRepeated) {
    MacroHost host;
    ASSERT_TRUE(host.Load("i = 0\nloop i < 1\nendloop\n"));
    EXPECT_EQ(RunWith(host, Statements(1)), "a.mac(2): error : Macro aborted. (limit of 1 statements)");
    EXPECT_EQ(RunWith(host, {}), "error : internal error. Recieve run-request during aborting.");
}

TEST(Limits, TheClockEndsALoop) {
    MacroLimits limits;
    limits.seconds = 0.01;
    for (const char* text :
         {"i = 0\nloop i < 1\n  a = i\nendloop\n", "i = 0\nloop i < 9\n  wait_ms(5)\nendloop\n"}) {
        EXPECT_THAT(RunText(text, limits),
                    testing::HasSubstr("): error : Macro aborted. (limit of 0.01 seconds)"));
    }
}

TEST(Limits, TheClockIsLookedAtAfterEachCommand) {
    MacroLimits limits;
    limits.seconds = 0.01;
    EXPECT_EQ(RunText("wait_ms(50)\nwait_ms(50)\n", limits),
              "a.mac(2): error : Macro aborted. (limit of 0.01 seconds)");
}

TEST(Limits, ATimeThatNeverEndsIsNone) {
    MacroLimits limits;
    limits.seconds = std::numeric_limits<double>::infinity();
    EXPECT_EQ(RunText("a = 1\n", limits), "ran");
}

TEST(Limits, ATextGrowsToTheLimitAndNotBeyond) {
    const std::string text = "a = \"0123456789\"\nloop a != \"\"\n  a = a + a\nendloop\n";
    EXPECT_EQ(RunText(text, Bytes(1 << 20)),
              "a.mac(3): error : Macro aborted. (limit of 1048576 bytes of values)");
}

TEST(Limits, AnArrayGrowsToTheLimitAndNotBeyond) {
    EXPECT_EQ(RunText("a[10000000] = 1\n", Bytes(1 << 20)),
              "a.mac(1): error : Macro aborted. (limit of 1048576 bytes of values)");
    EXPECT_EQ(
        RunText("i = 0\nloop i < 10000000\n  a[i][0] = \"x\" + i\n  i = i + 1\nendloop\n", Bytes(1 << 20)),
        "a.mac(3): error : Macro aborted. (limit of 1048576 bytes of values)");
}

TEST(Limits, AnArrayOfAnyFormGrowsToTheLimitAndNotBeyond) {
    for (const char* const value : {"i", "i + 0.5", "\"\""}) {
        const std::string assignment = std::string("  a[i] = ") + value + "\n";
        EXPECT_EQ(
            RunText("i = 0\nloop i < 10000000\n" + assignment + "  i = i + 1\nendloop\n", Bytes(1 << 20)),
            "a.mac(3): error : Macro aborted. (limit of 1048576 bytes of values)");
    }
}

TEST(Limits, WhatIsGivenBackDoesNotCount) {
    EXPECT_EQ(RunText("i = 0\nloop i < 1000\n  a = 0\n  a[1000] = \"x\" + i\n  b = a\n  b[0] = i\n  i = i + "
                      "1\nendloop\n",
                      Bytes(1 << 20)),
              "ran");
}

TEST(Limits, WhatEarlierRunsHaveLeftCounts) {
    MacroHost host;
    ASSERT_TRUE(host.Load("a[100000] = 1\nb = a\nb[0] = 1\n"));
    EXPECT_EQ(RunWith(host, {}), "ran");
    EXPECT_EQ(RunWith(host, Bytes(600000)),
              "a.mac(3): error : Macro aborted. (limit of 600000 bytes of values)");
}

TEST(Limits, ACommandThatHidesTheLimitEndsTheRunAtTheNextStatement) {
    MacroHost host;
    macroengine::test::ProbeCommand hide([](CMacroPropertyIF* property) {
        try {
            property->SetResultString(std::string(5000, 'x').c_str());
        } catch (const std::bad_alloc&) {
            // As if there were nothing to tell.
        }
        return true;
    });
    ASSERT_TRUE(host->RegisterCategory(nullptr, &hide, false));
    ASSERT_TRUE(host.Load("probe.call()\nx = 1\n"));
    EXPECT_EQ(RunWith(host, Bytes(1000)), "a.mac(2): error : Macro aborted. (limit of 1000 bytes of values)");
}

TEST(Limits, WhatStatementsHoldOfEarlierRunsCounts) {
    int turns = 16;
    MacroHost host;
    macroengine::test::ProbeCommand probe(
        [&](CMacroPropertyIF* property) { return property->SetResultInteger(turns); });
    ASSERT_TRUE(host->RegisterCategory(nullptr, &probe, false));
    ASSERT_TRUE(
        host.Load("n = probe.call()\ni = 0\ns = \"0123456789\"\n"
                  "loop i < n\n  s = s + s\n  i = i + 1\nendloop\ns = 0\n"));
    EXPECT_EQ(RunWith(host, {}), "ran");
    // The last text of 640 KB, which is still the result of its statement, is gone when the next ones grow: it is no
    // credit to them.
    turns = 17;
    EXPECT_EQ(RunWith(host, Bytes(2500000)),
              "a.mac(5): error : Macro aborted. (limit of 2500000 bytes of values)");
}

TEST(Limits, ARunInsideOfAnotherHasItsOwn) {
    const struct {
        std::uint64_t limit;
        const char* result;
    } inners[] = {{0, "ran"},
                  {1000000, "ran"},
                  {1000, "inner.mac(1): error : Macro aborted. (limit of 1000 bytes of values)"}};
    for (const auto& expected : inners) {
        MacroHost inner;
        ASSERT_TRUE(inner.Load("a[100000] = 1\n", "inner.mac"));
        MacroHost outer;
        macroengine::test::ProbeCommand probe([&](CMacroPropertyIF* property) {
            return property->SetResultString(RunWith(inner, Bytes(expected.limit)).c_str());
        });
        ASSERT_TRUE(outer->RegisterCategory(nullptr, &probe, false));
        ASSERT_TRUE(outer.Load("x = probe.call()\ntest.put(x)\na[1000] = 1\na[10000] = 1\n"));
        EXPECT_EQ(RunWith(outer, Bytes(10000)),
                  "a.mac(4): error : Macro aborted. (limit of 10000 bytes of values)");
        EXPECT_EQ(outer.TakeOutput(), expected.result);
    }
}

TEST(Limits, ErrorsThatArePassedOverCountOnce) {
    const std::string text = "i = 0\nloop i < 10\n  a = 1 / i\n  i = i + 1\nendloop\n";
    for (const std::uint64_t count : {std::uint64_t{70}, std::uint64_t{74}, std::uint64_t{75}}) {
        MacroHost host;
        ASSERT_TRUE(host.Load(text));
        host->SetErrorHandling(false, nullptr, 0);
        const std::string last = RunWith(host, Statements(count));
        // The division by nothing fails the run at its end; 1 + 10 x 7 + 3 statements.
        EXPECT_EQ(last.find("Macro aborted.") == std::string::npos, count >= 74) << last;
    }
}

TEST(Limits, NothingIsSetForWhatIsNoFileOrNoTime) {
    MacroHost host;
    EXPECT_FALSE(SetMacroLimits(nullptr, {}));
    MacroLimits limits;
    limits.seconds = -1.0;
    EXPECT_FALSE(SetMacroLimits(host.Get(), limits));
    limits.seconds = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(SetMacroLimits(host.Get(), limits));
    limits.seconds = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(SetMacroLimits(host.Get(), limits));
}

}  // namespace
