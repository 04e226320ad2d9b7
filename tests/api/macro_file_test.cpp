#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include <macroengine/CMacroCategoryBase.h>
#include <macroengine/CMacroFileIF.h>

#include "api/MacroHost.h"

namespace macroengine {
namespace {

using test::MacroHost;
using test::ProbeCommand;

HWND Window(std::uintptr_t number) {
    return reinterpret_cast<HWND>(number);
}

TEST(MacroFileErrors, ThereAreNoneAtFirst) {
    MacroHost host;
    EXPECT_EQ(host->GetErrorCount(), 0U);
    EXPECT_STREQ(host->GetErrorMessage(0), "");
}

TEST(MacroFileErrors, AnyOtherIndexGivesTheEmptyText) {
    MacroHost host;
    host->Run();
    ASSERT_EQ(host->GetErrorCount(), 1U);
    EXPECT_STREQ(host->GetErrorMessage(0), "error : Nothing macro sequence.");
    for (const std::uint32_t index : {1U, 2U, 1000U, 0x7FFFFFFFU, 0xFFFFFFFFU})
        EXPECT_STREQ(host->GetErrorMessage(index), "") << index;
}

TEST(MacroFileErrors, LinesGatherUntilTheyAreCleared) {
    MacroHost host;
    const std::string missing = host.GetFolder().PathOf("missing.mac");
    EXPECT_FALSE(host->Load(missing.c_str()));
    EXPECT_FALSE(host->Run());
    EXPECT_TRUE(host.Load("x = 1\n"));
    EXPECT_TRUE(host->Run());
    EXPECT_FALSE(host.Load("x = = 1\n", "bad.mac"));
    EXPECT_TRUE(host.Load("y = z\n", "fails.mac"));
    EXPECT_FALSE(host->Run());
    EXPECT_FALSE(host->Abort());
    EXPECT_EQ(host->GetErrorCount(), 5U);
    EXPECT_EQ(host.TakeErrors(),
              "error : File open error. (missing.mac)\n"
              "error : Nothing macro sequence.\n"
              "bad.mac(1): error : syntax error '='. Can't find Variable or value.\n"
              "fails.mac(1): error : Didn't define valiable name[z]\n"
              "fails.mac(1): error : run time error !");
    EXPECT_EQ(host->GetErrorCount(), 0U);
    EXPECT_STREQ(host->GetErrorMessage(0), "");
    host->ClearErrors();
    EXPECT_EQ(host->GetErrorCount(), 0U);
}

TEST(MacroFileLoad, AFileThatCanNotBeReadIsReported) {
    MacroHost host;
    EXPECT_FALSE(host->Load(host.GetFolder().PathOf("missing.mac").c_str()));
    EXPECT_EQ(host.TakeErrors(), "error : File open error. (missing.mac)");
    EXPECT_FALSE(host->Load(""));
    EXPECT_EQ(host.TakeErrors(), "error : File open error. ()");
    EXPECT_FALSE(host->Load(nullptr));
    EXPECT_EQ(host.TakeErrors(), "error : File open error. ()");
    EXPECT_FALSE(host.Load(""));
    EXPECT_EQ(host.TakeErrors(), "error : File read error. (a.mac)");
}

TEST(MacroFileLoad, AGoodFileLoadsAfterAMissingOne) {
    MacroHost host;
    EXPECT_FALSE(host->Load(host.GetFolder().PathOf("missing.mac").c_str()));
    EXPECT_TRUE(host.Load("test.put(\"ran\")\n"));
    EXPECT_TRUE(host->Run());
    EXPECT_EQ(host.TakeOutput(), "ran");
    EXPECT_EQ(host.TakeErrors(), "error : File open error. (missing.mac)");
}

TEST(MacroFileLoad, EveryLoadAddsToTheProgram) {
    MacroHost host;
    EXPECT_TRUE(host.Load("test.put(1)\n", "one.mac"));
    EXPECT_TRUE(host.Load("test.put(2)\n", "two.mac"));
    EXPECT_TRUE(host.Load("test.put(2)\n", "two.mac"));
    EXPECT_TRUE(host->Run());
    EXPECT_EQ(host.TakeOutput(), "1\n2\n2");
    EXPECT_TRUE(host.Load("test.put(3)\n", "three.mac"));
    EXPECT_TRUE(host->Run());
    EXPECT_EQ(host.TakeOutput(), "1\n2\n2\n3");
}

TEST(MacroFileLoad, ALoopOfALaterFileStaysInThatFile) {
    MacroHost host;
    EXPECT_TRUE(host.Load("test.put(\"first\")\n", "one.mac"));
    EXPECT_TRUE(host.Load("i = 0\nloop i < 2\ntest.put(i)\ni = i + 1\nendloop\n", "two.mac"));
    EXPECT_TRUE(host->Run());
    EXPECT_EQ(host.TakeOutput(), "first\n0\n1");
}

TEST(MacroFileLoad, AFailedOneKeepsTheStatementsBeforeTheError) {
    MacroHost host;
    EXPECT_FALSE(host.Load("test.put(1)\ntest.put(2)\nx = = 1\ntest.put(3)\n"));
    EXPECT_EQ(host.TakeErrors(), "a.mac(3): error : syntax error '='. Can't find Variable or value.");
    EXPECT_TRUE(host->Run());
    EXPECT_EQ(host.TakeOutput(), "1\n2");
}

TEST(MacroFileLoad, AFileWithoutAStatementLeavesNothingToRun) {
    MacroHost host;
    EXPECT_TRUE(host.Load("// nothing\n"));
    EXPECT_FALSE(host->Run());
    EXPECT_EQ(host.TakeErrors(), "error : Nothing macro sequence.");
}

TEST(MacroFileRun, BeforeAnyLoadThereIsNothingToRun) {
    MacroHost host;
    EXPECT_FALSE(host->Run());
    EXPECT_FALSE(host->Run());
    EXPECT_EQ(host.TakeErrors(), "error : Nothing macro sequence.\nerror : Nothing macro sequence.");
}

TEST(MacroFileRun, VariablesKeepWhatTheRunBeforeLeft) {
    MacroHost host;
    int runs = 0;
    ProbeCommand probe([&](CMacroPropertyIF* property) { return property->SetResultInteger(++runs); });
    host->RegisterCategory(nullptr, &probe, false);
    ASSERT_TRUE(
        host.Load("run = probe.call()\n"
                  "if run == 1\n"
                  "n = 10\n"
                  "list[0] = \"first\"\n"
                  "endif\n"
                  "n = n + run\n"
                  "list[run] = n\n"
                  "test.put(list)\n"));
    for (const char* expected : {R"(["first", 11])", R"(["first", 11, 13])", R"(["first", 11, 13, 16])"}) {
        EXPECT_TRUE(host->Run());
        EXPECT_EQ(host.TakeOutput(), expected);
    }
    ASSERT_TRUE(host.Load("test.put(n)\n", "more.mac"));
    EXPECT_TRUE(host->Run());
    EXPECT_EQ(host.TakeOutput(), "[\"first\", 11, 13, 16, 20]\n20");
}

TEST(MacroFileRun, MayBeRepeatedAfterARunTimeError) {
    MacroHost host;
    bool fails = true;
    ProbeCommand probe([&](CMacroPropertyIF* property) {
        if (!fails) return true;
        property->AddErrorMessage("no answer");
        return false;
    });
    host->RegisterCategory(nullptr, &probe, false);
    ASSERT_TRUE(host.Load("test.put(\"before\")\nprobe.call()\ntest.put(\"after\")\n"));
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(host->Run());
        EXPECT_EQ(host.TakeOutput(), "before");
        EXPECT_EQ(host.TakeErrors(), "a.mac(2): error : no answer\na.mac(2): error : run time error !");
    }
    fails = false;
    EXPECT_TRUE(host->Run());
    EXPECT_EQ(host.TakeOutput(), "before\nafter");
    EXPECT_EQ(host.TakeErrors(), "");
    fails = true;
    EXPECT_FALSE(host->Run());
    EXPECT_EQ(host.TakeErrors(), "a.mac(2): error : no answer\na.mac(2): error : run time error !");
}

TEST(MacroFileRun, AfterAnAbortItIsRefusedUntilSomethingIsLoaded) {
    MacroHost host;
    bool aborts = true;
    ProbeCommand probe([&](CMacroPropertyIF*) {
        if (aborts) {
            EXPECT_TRUE(host->Abort());
        }
        return true;
    });
    host->RegisterCategory(nullptr, &probe, false);
    ASSERT_TRUE(host.Load("test.put(1)\nprobe.call()\ntest.put(2)\n"));
    EXPECT_FALSE(host->Run());
    EXPECT_EQ(host.TakeOutput(), "1");
    EXPECT_EQ(host.TakeErrors(), "a.mac(2): error : Macro aborted.");
    aborts = false;
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(host->Run());
        EXPECT_FALSE(host->Abort());
        EXPECT_EQ(host.TakeErrors(), "error : internal error. Recieve run-request during aborting.");
    }
    ASSERT_TRUE(host.Load("test.put(3)\n", "more.mac"));
    EXPECT_TRUE(host->Run());
    EXPECT_EQ(host.TakeOutput(), "1\n2\n3");
    EXPECT_EQ(host.TakeErrors(), "");
}

TEST(MacroFileRun, ACommandCanNeitherRunNorLoadItsOwnFile) {
    MacroHost host;
    ProbeCommand probe([&](CMacroPropertyIF*) {
        EXPECT_FALSE(host->Run());
        EXPECT_FALSE(host.Load("test.put(\"loaded\")\n", "other.mac"));
        return true;
    });
    host->RegisterCategory(nullptr, &probe, false);
    ASSERT_TRUE(host.Load("probe.call()\ntest.put(\"went on\")\n"));
    EXPECT_TRUE(host->Run());
    EXPECT_EQ(host.TakeOutput(), "went on");
    EXPECT_EQ(host.TakeErrors(),
              "error : internal error. Recieve run-request during running.\n"
              "error : Can't load file, because macro is loading or running now.");
}

TEST(MacroFileRun, ACommandMayRunAnotherFile) {
    MacroHost inner;
    ASSERT_TRUE(inner.Load("test.put(\"inner\")\nx = y\n", "inner.mac"));
    MacroHost outer;
    ProbeCommand probe([&](CMacroPropertyIF* property) { return property->SetResultBoolean(inner->Run()); });
    outer->RegisterCategory(nullptr, &probe, false);
    EXPECT_EQ(outer.Output("y = 1\nok = probe.call()\ntest.put(ok)\n"), "false");
    EXPECT_EQ(inner.TakeOutput(), "inner");
    EXPECT_EQ(inner.TakeErrors(),
              "inner.mac(2): error : Didn't define valiable name[y]\ninner.mac(2): error : run time error !");
}

TEST(MacroFileAbort, WithoutARunItDoesNothing) {
    MacroHost host;
    EXPECT_FALSE(host->Abort());
    host.Load("x = 1\n");
    EXPECT_FALSE(host->Abort());
    EXPECT_TRUE(host->Run());
    EXPECT_FALSE(host->Abort());
    EXPECT_TRUE(host->Run());
    host.Load("x = y\n");
    EXPECT_FALSE(host->Run());
    EXPECT_EQ(host.TakeErrors(),
              "a.mac(1): error : Didn't define valiable name[y]\na.mac(1): error : run time error !");
    EXPECT_FALSE(host->Abort());
    EXPECT_EQ(host.TakeErrors(), "");
    EXPECT_FALSE(host->Run());
}

TEST(MacroFileAbort, AFailingStatementComesFirst) {
    MacroHost host;
    ProbeCommand probe([&](CMacroPropertyIF* property) {
        EXPECT_TRUE(host->Abort());
        EXPECT_FALSE(host->Abort());
        property->AddErrorMessage("gave up");
        return false;
    });
    host->RegisterCategory(nullptr, &probe, false);
    ASSERT_TRUE(host.Load("probe.call()\n"));
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(host->Run());
        EXPECT_EQ(host.TakeErrors(), "a.mac(1): error : gave up\na.mac(1): error : run time error !");
    }
    host->SetErrorHandling(false, nullptr, 0);
    EXPECT_FALSE(host->Run());
    EXPECT_EQ(
        host.TakeErrors(),
        "a.mac(1): error : gave up\na.mac(1): error : run time error !\na.mac(1): error : Macro aborted.");
}

TEST(MacroFileErrorHandling, WithoutStopOnErrorTheRunGoesOnAndFailsAtItsEnd) {
    const std::string text =
        "x = 1 / 0\n"
        "test.put(\"a\")\n"
        "y = string.int2dec(\"7\")\n"
        "test.put(y)\n"
        "z = u\n"
        "test.put(\"b\")\n";
    MacroHost host;
    EXPECT_TRUE(host->SetErrorHandling(false, nullptr, 77));
    ASSERT_TRUE(host.Load(text));
    EXPECT_FALSE(host->Run());
    // A failed command is the boolean false.
    EXPECT_EQ(host.TakeOutput(), "a\nfalse\nb");
    EXPECT_EQ(host.TakeErrors(),
              "a.mac(1): error : 0 division.\n"
              "a.mac(1): error : run time error !\n"
              // The assignment has no result to take.
              "a.mac(1): error : invalied destination value in assign statement.\n"
              "a.mac(1): error : run time error !\n"
              "a.mac(3): error : string.int2dec() argument error. (argument[0] type isn't interger)\n"
              "a.mac(3): error : run time error !\n"
              "a.mac(5): error : Didn't define valiable name[u]\n"
              "a.mac(5): error : run time error !");
    EXPECT_TRUE(host->SetErrorHandling(true, nullptr, 0));
    EXPECT_FALSE(host->Run());
    EXPECT_EQ(host.TakeErrors(), "a.mac(1): error : 0 division.\na.mac(1): error : run time error !");
}

TEST(MacroFileErrorHandling, WithATargetThePassedOverLinesAreDropped) {
    MacroHost host;
    EXPECT_TRUE(host->SetErrorHandling(false, Window(1), 77));
    ASSERT_TRUE(host.Load("z = u\ntest.put(\"went on\")\nz = u\n"));
    EXPECT_FALSE(host->Run());
    EXPECT_EQ(host.TakeOutput(), "went on");
    EXPECT_EQ(host.TakeErrors(), "");
    // A target alone drops nothing.
    EXPECT_TRUE(host->SetErrorHandling(true, Window(1), 77));
    EXPECT_FALSE(host->Run());
    EXPECT_EQ(host.TakeErrors(),
              "a.mac(1): error : Didn't define valiable name[u]\na.mac(1): error : run time error !");
}

TEST(MacroFileErrorHandling, AnAbortIsReportedInSpiteOfATarget) {
    MacroHost host;
    ProbeCommand probe([&](CMacroPropertyIF*) { return host->Abort(); });
    host->RegisterCategory(nullptr, &probe, false);
    host->SetErrorHandling(false, Window(1), 0);
    EXPECT_EQ(host.Output("z = u\nprobe.call()\n"), "a.mac(2): error : Macro aborted.");
}

}  // namespace
}  // namespace macroengine
