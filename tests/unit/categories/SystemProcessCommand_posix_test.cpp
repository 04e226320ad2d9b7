#include <gtest/gtest.h>
#include <signal.h>
#include <string>
#include <sys/stat.h>

#include "support/ChildProcess_posix.h"
#include "support/CommandCaller.h"
#include "support/TemporaryFolder.h"

namespace macroengine::test {
namespace {

class CommandExec : public testing::Test {
protected:
    void WriteScript(const std::string& name, const std::string& text, mode_t mode = 0755) {
        folder_.Write(name, "#!/bin/sh\n" + text + "\n");
        chmod(folder_.PathOf(name).c_str(), mode);
    }
    std::string Call(const std::vector<CMacroCommonValue>& arguments) {
        return caller_.Call("system.command_exec", arguments);
    }

    TemporaryFolder folder_;
    CommandCaller caller_{folder_.Path()};
};

TEST_F(CommandExec, GivesTheExitCode) {
    WriteScript("tool", "exit $1");
    for (const char* code : {"0", "1", "7", "255"}) {
        EXPECT_EQ(Call({Integer(0), Text(""), Text("tool"), Text(code)}), "integer " + std::string(code));
        EXPECT_EQ(Call({Integer(100), Text(""), Text("tool"), Text(code)}), "integer " + std::string(code));
    }
    EXPECT_EQ(Call({Integer(-1), Text(""), Text("tool"), Text("3")}), "integer 3");
}

TEST_F(CommandExec, CollectsTheTextsAmongTheParameters) {
    WriteScript("tool", "printf '<%s>' \"$@\" > out");
    EXPECT_EQ(Call({Integer(0), Text(""), Text("tool"), Text("a"), Integer(1), Text("b c"), Floating(2.5),
                    ArrayOf({Text("d")}), Boolean(true), Text("\"e f\""), Text("")}),
              "integer 0");
    EXPECT_EQ(folder_.Read("out"), "<a><b><c><e f>");
    // A parameter that is no text is not complained of, even when the command fails.
    EXPECT_EQ(Call({Integer(0), Text(""), Text(""), Integer(1)}),
              Error("system.command_exec() : Command is null string"));
    EXPECT_EQ(Call({Integer(0), Text(""), Text("."), Integer(1)}),
              Error("system.command_exec() : Command is directory."));
}

TEST_F(CommandExec, WorksInTheFolder) {
    folder_.MakeFolder("my tools");
    WriteScript("my tools/tool", "echo here > out");
    EXPECT_EQ(Call({Integer(0), Text("my tools"), Text("tool")}), "integer 0");
    EXPECT_EQ(folder_.Read("my tools/out"), "here\n");
    EXPECT_EQ(Call({Integer(0), Text(""), Text(R"(my tools\tool)")}), "integer 0");
    EXPECT_EQ(folder_.Read("out"), "here\n");
    EXPECT_EQ(Call({Integer(0), Text(folder_.Path() + R"(\\my tools)"), Text("tool")}), "integer 0");
}

TEST_F(CommandExec, NamesTheCommandThatIsNotThere) {
    const std::string path = folder_.Path();
    EXPECT_EQ(Call({Integer(0), Text("sub"), Text("tool")}),
              Error("system.command_exec() : Command(" + path + "\\sub\\tool) is not find."));
    EXPECT_EQ(Call({Integer(0), Text(path), Text("no tool")}),
              Error("system.command_exec() : Command(" + path + "\\no tool) is not find."));
    // The command is looked for in the working directory and nowhere else.
    EXPECT_EQ(Call({Integer(0), Text(path), Text("/bin/sh")}),
              Error("system.command_exec() : Command(" + path + "\\/bin/sh) is not find."));
}

TEST_F(CommandExec, SaysWhyThereIsNoExitCode) {
    folder_.MakeFolder("sub");
    WriteScript("plain", "exit 0", 0644);
    WriteScript("slow", "sleep 1000");
    EXPECT_EQ(Call({Integer(0), Text(""), Text("sub")}),
              Error("system.command_exec() : Command is directory."));
    EXPECT_EQ(Call({Integer(0), Text(""), Text("plain")}),
              Error("system.command_exec() : failed to run command."));
    EXPECT_EQ(Call({Integer(1), Text(""), Text("slow")}), Error("system.command_exec() : command timeout."));
    EXPECT_EQ(caller_.ResultOfFailure(), "none");
    WriteScript("tool", "exit 3");
    EXPECT_EQ(RunInChild([this] {
                  signal(SIGCHLD, SIG_IGN);
                  const std::string outcome = Call({Integer(0), Text(""), Text("tool")});
                  return outcome == Error("system.command_exec() : can't get exitcode.") ? 0 : 1;
              }),
              0);
}

TEST_F(CommandExec, RefusesArguments) {
    const std::string name = "system.command_exec() argument error. ";
    EXPECT_EQ(Call({}), Error(name + "(argument count is invalid)"));
    EXPECT_EQ(Call({Integer(0), Text("")}), Error(name + "(argument count is invalid)"));
    EXPECT_EQ(Call({Text("0"), Integer(0), Integer(0)}), Error(name + "(argument[0] type isn't interger)"));
    EXPECT_EQ(Call({Integer(0), Integer(0), Integer(0)}), Error(name + "(argument[1] type isn't string)"));
    EXPECT_EQ(Call({Integer(0), Text(""), Integer(0)}), Error(name + "(argument[2] type isn't string)"));
    const CMacroCommonValue assigned = Integer(1);
    EXPECT_EQ(caller_.Call("system.command_exec", {Integer(0), Text(""), Text("tool")}, &assigned),
              Error("assigned value isn't needed at system.command_exec()"));
}

}  // namespace
}  // namespace macroengine::test
