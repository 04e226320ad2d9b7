#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/Environment.h"
#include "platform/Process.h"
#include "support/Probe_win32.h"
#include "support/TemporaryFolder.h"

namespace macroengine::platform {
namespace {

constexpr std::uint32_t kAmpleSeconds = 1000;

/// What is no exit code of a probe.
constexpr std::uint32_t kNoCode = 1000;

std::uint32_t ExitCode(const ProcessResult& result) {
    return result.started && result.exitCodeKnown && !result.timedOut ? result.exitCode : kNoCode;
}

std::vector<std::string> Lines(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

class ProcessWin32 : public testing::Test {
protected:
    std::uint32_t RunProbe(const std::string& parameters) {
        return ExitCode(RunProcess(folder_.Path(), test::ProbePath(), parameters, 0));
    }

    /// The probe under a name of its own.
    void CopyProbe(const std::string& path) const {
        CopyFileA(test::ProbePath().c_str(), path.c_str(), FALSE);
    }

    test::TemporaryFolder folder_;
};

TEST_F(ProcessWin32, TheExitCodeIsThatOfTheProgram) {
    for (const std::uint32_t code : {0U, 7U, 255U, 256U, 70000U, 0xFFFFFFFEU})
        EXPECT_EQ(RunProbe("exit " + std::to_string(code)), code);
}

TEST_F(ProcessWin32, AProgramThatEndsInTimeIsNotTimedOut) {
    const ProcessResult result = RunProcess(folder_.Path(), test::ProbePath(), "exit 3", kAmpleSeconds);
    EXPECT_TRUE(result.started);
    EXPECT_FALSE(result.timedOut);
    EXPECT_TRUE(result.exitCodeKnown);
    EXPECT_EQ(result.exitCode, 3U);
}

TEST_F(ProcessWin32, TheProgramWorksInTheFolder) {
    EXPECT_EQ(RunProbe("report out"), 0U);
    EXPECT_EQ(Lines(folder_.PathOf("out")), std::vector<std::string>{folder_.Path()});
}

TEST_F(ProcessWin32, ACommandIsAFileOfTheFolder) {
    folder_.MakeFolder("my tools");
    CopyProbe(folder_.PathOf("my tools\\the tool.exe"));
    EXPECT_EQ(ExitCode(RunProcess(folder_.PathOf("my tools"), "the tool.exe", "exit 9", 0)), 9U);
    EXPECT_EQ(ExitCode(RunProcess(folder_.Path(), R"(my tools\the tool.exe)", "exit 9", 0)), 9U);
}

TEST_F(ProcessWin32, AnAbsoluteCommandNeedsNoFolder) {
    EXPECT_EQ(ExitCode(RunProcess("", test::ProbePath(), "exit 9", 0)), 9U);
}

// What the engine does with a parameter line on other systems is what the C runtime does with it on this one.
TEST_F(ProcessWin32, ParametersArriveAsTheyAreSplitElsewhere) {
    for (const char* line : {"", "  ", "one two ", R"("one two" three )", R"("" a)", R"("a  b"c "d)",
                             R"(four\"five)", R"(\\server\share "C:\my folder\\" x)", R"(a\\\"b a\\\\"b c")",
                             R"("say ""hi""")", "'one two'", "a;b %PATH%"}) {
        EXPECT_EQ(RunProbe(std::string("report out ") + line), 0U) << line;
        std::vector<std::string> expected = SplitParameterLine(line);
        expected.insert(expected.begin(), folder_.Path());
        EXPECT_EQ(Lines(folder_.PathOf("out")), expected) << line;
    }
}

TEST_F(ProcessWin32, TheEnvironmentIsInherited) {
    folder_.Write("tool.bat", "@exit %MACROENGINE_PROCESS_TEST%\r\n");
    ASSERT_TRUE(SetEnvironmentText("MACROENGINE_PROCESS_TEST", "42"));
    EXPECT_EQ(ExitCode(RunProcess(folder_.Path(), "tool.bat", "", 0)), 42U);
    SetEnvironmentText("MACROENGINE_PROCESS_TEST", "");
}

TEST_F(ProcessWin32, WhatCanNotBeRunIsNotStarted) {
    folder_.Write("broken.exe", "no program");
    for (const char* command : {"missing.exe", R"(missing\tool.exe)", "broken.exe"}) {
        const ProcessResult result = RunProcess(folder_.Path(), command, "", 0);
        EXPECT_FALSE(result.started) << command;
        EXPECT_FALSE(result.exitCodeKnown) << command;
    }
}

TEST_F(ProcessWin32, ATimeOutEndsTheProgram) {
    const std::string path = folder_.PathOf("held");
    const ProcessResult result = RunProcess(folder_.Path(), test::ProbePath(), "hold held", 2);
    EXPECT_TRUE(result.started);
    EXPECT_TRUE(result.timedOut);
    EXPECT_FALSE(result.exitCodeKnown);

    // The program kept the file to itself. The system takes a moment to take it back.
    bool isFree = false;
    for (int i = 0; i < 1000 && !isFree; ++i) {
        isFree = DeleteFileA(path.c_str()) != FALSE;
        if (!isFree) SleepMilliseconds(20);
    }
    EXPECT_TRUE(isFree);
}

}  // namespace
}  // namespace macroengine::platform
