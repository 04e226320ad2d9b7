#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/Process.h"
#include "support/ChildProcess_posix.h"
#include "support/TemporaryFolder.h"

namespace macroengine::platform {
namespace {

constexpr std::uint32_t kAmpleSeconds = 1000;

class ProcessPosix : public testing::Test {
protected:
    void WriteScript(const std::string& name, const std::string& text, mode_t mode = 0755) {
        folder_.Write(name, "#!/bin/sh\n" + text + "\n");
        chmod(folder_.PathOf(name).c_str(), mode);
    }

    ProcessResult Run(const std::string& script, const std::string& parameters = "",
                      std::uint32_t timeOutSeconds = 0) {
        WriteScript("script", script);
        return RunProcess(folder_.Path(), "script", parameters, timeOutSeconds);
    }

    /// Returns 1000 when the script has not ended by itself.
    std::uint32_t ExitCode(const std::string& script, const std::string& parameters = "") {
        const ProcessResult result = Run(script, parameters);
        return result.started && result.exitCodeKnown && !result.timedOut ? result.exitCode : 1000;
    }

    test::TemporaryFolder folder_;
};

TEST_F(ProcessPosix, TheExitCodeIsThatOfTheProgram) {
    EXPECT_EQ(ExitCode("exit 0"), 0U);
    EXPECT_EQ(ExitCode("exit 7"), 7U);
    EXPECT_EQ(ExitCode("exit 255"), 255U);
}

TEST_F(ProcessPosix, AProgramThatEndsInTimeIsNotTimedOut) {
    const ProcessResult result = Run("exit 3", "", kAmpleSeconds);
    EXPECT_TRUE(result.started);
    EXPECT_FALSE(result.timedOut);
    EXPECT_TRUE(result.exitCodeKnown);
    EXPECT_EQ(result.exitCode, 3U);
}

TEST_F(ProcessPosix, AProgramRunsWithoutAnyEnvironment) {
    WriteScript("script", "test -z \"$HOME\" && exit 4");
    EXPECT_EQ(test::RunInChild(
                  [this] {
                      clearenv();
                      return static_cast<int>(RunProcess(folder_.Path(), "script", "", 0).exitCode);
                  },
                  test::ChildEnd::Properly),
              4);
}

TEST_F(ProcessPosix, ASignalGives128AndItsNumber) {
    EXPECT_EQ(ExitCode("kill -TERM $$"), 128U + SIGTERM);
    EXPECT_EQ(ExitCode("kill -KILL $$"), 128U + SIGKILL);
}

TEST_F(ProcessPosix, TheProgramWorksInTheFolder) {
    EXPECT_EQ(ExitCode("pwd -P > out"), 0U);
    EXPECT_NE(folder_.Read("out"), "");
    folder_.MakeFolder("sub");
    WriteScript("sub/tool", "echo here > out");
    EXPECT_TRUE(RunProcess(folder_.Path() + R"(\sub)", "tool", "", 0).started);
    EXPECT_EQ(folder_.Read("sub/out"), "here\n");
}

TEST_F(ProcessPosix, ACommandMayHaveAFolderOrBeAbsolute) {
    folder_.MakeFolder("sub");
    WriteScript("sub/tool", "exit 9");
    EXPECT_EQ(RunProcess(folder_.Path(), R"(sub\tool)", "", 0).exitCode, 9U);
    EXPECT_EQ(RunProcess(folder_.Path(), folder_.PathOf("sub/tool"), "", 0).exitCode, 9U);
    EXPECT_EQ(RunProcess("", folder_.PathOf("sub/tool"), "", 0).exitCode, 9U);
}

TEST_F(ProcessPosix, ParametersArriveAsArguments) {
    EXPECT_EQ(ExitCode("printf '<%s>' \"$@\" > out", R"(one "two three" "" four\"five )"), 0U);
    EXPECT_EQ(folder_.Read("out"), "<one><two three><><four\"five>");
    EXPECT_EQ(ExitCode("exit $#", "  "), 0U);
}

TEST_F(ProcessPosix, StandardInputIsEmpty) {
    EXPECT_EQ(ExitCode("read line && exit 1; exit 0"), 0U);
}

TEST_F(ProcessPosix, TheEnvironmentIsInherited) {
    setenv("MACROENGINE_PROCESS_TEST", "passed on", 1);
    EXPECT_EQ(ExitCode("test \"$MACROENGINE_PROCESS_TEST\" = 'passed on'"), 0U);
    unsetenv("MACROENGINE_PROCESS_TEST");
}

TEST_F(ProcessPosix, NoOtherDescriptorIsInherited) {
    // In a process of its own, because these descriptors may be in use here.
    WriteScript("script", "for n in 3 4 5 6 7 8 9; do (: >&$n) 2>/dev/null && exit 1; done; exit 0");
    EXPECT_EQ(test::RunInChild([this] {
                  const int source = open("/dev/null", O_RDWR);
                  for (int descriptor = 3; descriptor < 10; ++descriptor)
                      dup2(source, descriptor);
                  const ProcessResult result = RunProcess(folder_.Path(), "script", "", 0);
                  return result.started && result.exitCodeKnown ? static_cast<int>(result.exitCode) : 99;
              }),
              0);
}

TEST_F(ProcessPosix, AHostWithoutStandardStreamsStartsProgramsToo) {
    WriteScript("script", "read line && exit 1; exit 5");
    EXPECT_EQ(test::RunInChild([this] {
                  for (int descriptor = 0; descriptor < 3; ++descriptor)
                      close(descriptor);
                  return static_cast<int>(RunProcess(folder_.Path(), "script", "", 0).exitCode);
              }),
              5);
}

TEST_F(ProcessPosix, WhatTheHostDoesWithSignalsIsNotInherited) {
    WriteScript("script", "kill -PIPE $$; exit 1");
    EXPECT_EQ(test::RunInChild([this] {
                  signal(SIGPIPE, SIG_IGN);
                  sigset_t all;
                  sigfillset(&all);
                  sigprocmask(SIG_SETMASK, &all, nullptr);
                  return static_cast<int>(RunProcess(folder_.Path(), "script", "", 0).exitCode);
              }),
              128 + SIGPIPE);
}

TEST_F(ProcessPosix, WhatCanNotBeRunIsNotStarted) {
    WriteScript("plain", "exit 0", 0644);
    folder_.MakeFolder("sub");
    folder_.Write("broken", "#!/no/such/interpreter\n");
    chmod(folder_.PathOf("broken").c_str(), 0755);
    for (const char* command : {"missing", "plain", "sub", "broken", ""}) {
        const ProcessResult result = RunProcess(folder_.Path(), command, "", 0);
        EXPECT_FALSE(result.started) << command;
        EXPECT_FALSE(result.exitCodeKnown) << command;
    }
    WriteScript("script", "exit 0");
    EXPECT_FALSE(RunProcess(folder_.PathOf("missing"), "script", "", 0).started);
    EXPECT_FALSE(RunProcess(folder_.PathOf("missing"), folder_.PathOf("script"), "", 0).started);
}

TEST_F(ProcessPosix, NoZombieStays) {
    ExitCode("exit 0");
    RunProcess(folder_.Path(), "missing", "", 0);
    Run("sleep 1000", "", 1);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(ProcessPosix, ATimeOutEndsTheWholeGroup) {
    const std::string path = folder_.PathOf("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_NE(reader, -1);

    const ProcessResult result = Run("sleep 1000 > pipe &\nsleep 1000", "", 1);
    EXPECT_TRUE(result.started);
    EXPECT_TRUE(result.timedOut);
    EXPECT_FALSE(result.exitCodeKnown);

    // The pipe hangs up once the last program that could write to it is gone.
    pollfd state{reader, POLLIN, 0};
    poll(&state, 1, 0);
    if ((state.revents & POLLHUP) == 0) poll(&state, 1, 60000);
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), 0);
    close(reader);
}

TEST_F(ProcessPosix, ProgramsLeftRunningGoOn) {
    const std::string path = folder_.PathOf("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_NE(reader, -1);
    const int gate = open(path.c_str(), O_WRONLY);
    EXPECT_EQ(ExitCode("mkfifo go; (read line < go; echo on > pipe) &\nexit 0"), 0U);

    const int go = open(folder_.PathOf("go").c_str(), O_WRONLY);
    EXPECT_EQ(write(go, "\n", 1), 1);
    pollfd state{reader, POLLIN, 0};
    EXPECT_EQ(poll(&state, 1, 60000), 1);
    char text[3] = {};
    EXPECT_EQ(read(reader, text, 2), 2);
    EXPECT_STREQ(text, "on");
    close(go);
    close(gate);
    close(reader);
}

TEST_F(ProcessPosix, TheCodeIsUnknownWhenTheHostIgnoresItsChildren) {
    WriteScript("script", "exit 3");
    EXPECT_EQ(test::RunInChild([this] {
                  signal(SIGCHLD, SIG_IGN);
                  const ProcessResult result = RunProcess(folder_.Path(), "script", "", 0);
                  return result.started && !result.timedOut && !result.exitCodeKnown ? 0 : 1;
              }),
              0);
}

}  // namespace
}  // namespace macroengine::platform
