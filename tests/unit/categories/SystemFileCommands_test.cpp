#include "categories/SystemFileCommands.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "platform/File.h"
#include "support/CommandCaller.h"
#include "support/ScopedCodePage.h"
#include "support/TemporaryFolder.h"

namespace macroengine::test {
namespace {

/// Commands of a macro that has a temporary folder as its work folder.
class SystemFileCommands : public testing::Test {
protected:
    std::string Call(const std::string& name, const std::vector<CMacroCommonValue>& arguments,
                     const CMacroCommonValue* assigned = nullptr) {
        return caller_.Call(name, arguments, assigned);
    }
    std::string Write(int mode, const std::string& name, const std::string& text) {
        return Call("system.file_write", {Integer(mode), Text(name), Text(text)});
    }
    std::string MakeFolder(const std::string& name) { return Call("system.mkdir", {Text(name)}); }
    std::string Find(const std::string& pattern, int step) {
        return Call("system.find_file", {Text(pattern), Integer(step)});
    }
    /// What a message calls a file of the work folder.
    std::string FullPath(const std::string& name) const { return folder_.Path() + "\\" + name; }

    TemporaryFolder folder_;
    CommandCaller caller_{folder_.Path()};
    const CMacroCommonValue assigned_ = Integer(1);
};

using FileWrite = SystemFileCommands;
using MkDir = SystemFileCommands;
using FindFile = SystemFileCommands;

TEST_F(FileWrite, OverwritesOrAppends) {
    EXPECT_EQ(Write(0, "a.txt", "one"), "boolean true");
    EXPECT_EQ(folder_.Read("a.txt"), "one");
    EXPECT_EQ(Write(1, "a.txt", "two"), "boolean true");
    EXPECT_EQ(folder_.Read("a.txt"), "onetwo");
    EXPECT_EQ(Write(0, "a.txt", "3"), "boolean true");
    EXPECT_EQ(folder_.Read("a.txt"), "3");
    EXPECT_EQ(Write(0, "a.txt", ""), "boolean true");
    EXPECT_EQ(folder_.Read("a.txt"), "");
    EXPECT_EQ(Write(1, "b.txt", "new"), "boolean true");
    EXPECT_EQ(folder_.Read("b.txt"), "new");
}

TEST_F(FileWrite, ReplacesItsEscapes) {
    const ScopedCodePage codePage(0);
    const std::string lineEnd(platform::kLineEnd);
    const struct {
        std::string text;
        std::string written;
    } cases[] = {
        {R"(a\nb\n)", "a" + lineEnd + "b" + lineEnd},
        {R"(a\tb)", "a\tb"},
        {R"(a\\b)", R"(a\b)"},
        {R"(a\\nb)", R"(a\nb)"},
        {R"(a\\\nb)", R"(a\)" + lineEnd + "b"},
        {R"(\r\q\0\")", R"(\r\q\0\")"},
        {"ends in \\", "ends in \\"},
        {R"(ends in \\)", "ends in \\"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Write(0, "a.txt", c.text), "boolean true");
        EXPECT_EQ(folder_.Read("a.txt"), c.written) << c.text;
    }
}

TEST_F(FileWrite, ABackslashInsideACharacterIsNoEscape) {
    const ScopedCodePage codePage(932);
    EXPECT_EQ(Write(0, "a.txt", "\x83\\n\\t"), "boolean true");
    EXPECT_EQ(folder_.Read("a.txt"), "\x83\\n\t");
}

TEST_F(FileWrite, TakesRelativeAndAbsolutePaths) {
    folder_.MakeFolder("sub");
    EXPECT_EQ(Write(0, R"(sub\a.txt)", "1"), "boolean true");
    EXPECT_EQ(Write(0, R"(sub\\b.txt)", "2"), "boolean true");
    EXPECT_EQ(Write(0, "sub/c.txt", "3"), "boolean true");
    EXPECT_EQ(Write(0, folder_.PathOf("sub/d.txt"), "4"), "boolean true");
    for (const char* name : {"a", "b", "c", "d"})
        EXPECT_NE(folder_.Read(std::string("sub/") + name + ".txt"), "") << name;
}

TEST_F(FileWrite, SaysFalseWhenItFails) {
    const std::string name = "system.file_write() argument error. ";
    const std::string count = Error(name + "(argument count is invalid)");
    const struct {
        std::vector<CMacroCommonValue> arguments;
        std::string expected;
    } cases[] = {
        {{}, count},
        {{Integer(0), Text("a")}, count},
        {{Integer(0), Text("a"), Text("b"), Text("c")}, count},
        {{Text("0"), Text("a"), Text("b")}, Error(name + "(argument[0] type isn't interger)")},
        {{Integer(2), Text("a"), Text("b")}, Error(name + "(argument[0] is out of range.)")},
        {{Integer(-1), Text("a"), Text("b")}, Error(name + "(argument[0] is out of range.)")},
        {{Integer(0), Integer(1), Text("b")}, Error(name + "(argument[1] type isn't string)")},
        {{Integer(0), Text(""), Integer(1)}, Error("filename is null string.")},
        {{Integer(0), Text("a"), Integer(1)}, Error(name + "(argument[2] type isn't string)")},
        {{Integer(0), Text("no/a.txt"), Text("b")}, Error("File open error. (" + FullPath("no/a.txt") + ")")},
        {{Integer(1), Text(R"(no\\a)"), Text("b")}, Error("File open error. (" + FullPath(R"(no\a)") + ")")},
        {{Integer(0), Text("."), Text("b")}, Error("File open error. (" + FullPath(".") + ")")},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Call("system.file_write", c.arguments), c.expected);
        EXPECT_EQ(caller_.ResultOfFailure(), "boolean false") << c.expected;
    }
    EXPECT_EQ(Call("system.file_write", {Integer(0), Text("a"), Text("b")}, &assigned_),
              Error("assigned value isn't needed at system.file_write()"));
    EXPECT_EQ(caller_.ResultOfFailure(), "boolean false");
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(MkDir, MakesOneLevel) {
    EXPECT_EQ(MakeFolder("sub"), "none");
    EXPECT_TRUE(std::filesystem::is_directory(folder_.PathOf("sub")));
    EXPECT_EQ(MakeFolder("sub"), "none");
    EXPECT_EQ(MakeFolder(R"(sub\inner)"), "none");
    EXPECT_TRUE(std::filesystem::is_directory(folder_.PathOf("sub/inner")));
    EXPECT_EQ(MakeFolder(folder_.PathOf("absolute")), "none");
    EXPECT_TRUE(std::filesystem::is_directory(folder_.PathOf("absolute")));
    EXPECT_EQ(MakeFolder("no/sub"), Error("Failed to create directory."));
}

TEST_F(MkDir, RefusesTheNameOfAFile) {
    folder_.Write("file", "kept");
    EXPECT_EQ(MakeFolder("file"), Error("Failed to create directory, because same filename is exist."));
    EXPECT_EQ(MakeFolder("file/sub"), Error("Failed to create directory."));
    EXPECT_EQ(folder_.Read("file"), "kept");
}

TEST_F(MkDir, RefusesArguments) {
    const std::string name = "system.mkdir() argument error. ";
    EXPECT_EQ(Call("system.mkdir", {}), Error(name + "(argument count is invalid)"));
    EXPECT_EQ(Call("system.mkdir", {Text("a"), Text("b")}), Error(name + "(argument count is invalid)"));
    EXPECT_EQ(Call("system.mkdir", {Integer(1)}), Error(name + "(argument[0] type isn't string)"));
    EXPECT_EQ(Call("system.mkdir", {Text("")}), Error("Error: target directory is null string"));
    EXPECT_EQ(Call("system.mkdir", {Text("")}, &assigned_), Error("Error: target directory is null string"));
    EXPECT_EQ(Call("system.mkdir", {Text("a")}, &assigned_),
              Error("assigned value isn't needed at system.mkdir()"));
    EXPECT_FALSE(std::filesystem::exists(folder_.PathOf("a")));
}

TEST_F(FindFile, GivesOneNameAfterTheOther) {
    folder_.Write("b.txt", "");
    folder_.Write("A.TXT", "");
    folder_.Write("c.csv", "");
    folder_.MakeFolder("d.txt");
    EXPECT_EQ(Find("*.txt", 0), "text \"A.TXT\"");
    EXPECT_EQ(Find("*.txt", 1), "text \"b.txt\"");
    // Only the step counts from here on.
    EXPECT_EQ(Find("*.csv", -5), "text \"d.txt\"");
    EXPECT_EQ(Find("*.txt", 1), "text \"\"");
    EXPECT_EQ(Find("*.txt", 1), "text \"\"");
    EXPECT_EQ(Find("*.txt", 0), "text \"A.TXT\"");
    EXPECT_EQ(Find("*.csv", 0), "text \"c.csv\"");
    EXPECT_EQ(Find("*.csv", 1), "text \"\"");
}

TEST_F(FindFile, GivesTheEmptyTextWhenThereIsNothing) {
    EXPECT_EQ(Find("*", 1), "text \"\"");
    EXPECT_EQ(Find("*", 0), "text \"\"");
    EXPECT_EQ(Find("no/*", 0), "text \"\"");
    EXPECT_EQ(Find("no/*", 1), "text \"\"");
}

TEST_F(FindFile, TakesFoldersInThePattern) {
    folder_.MakeFolder("sub");
    folder_.Write("sub/a.txt", "");
    EXPECT_EQ(Find(R"(sub\*.*)", 0), "text \"a.txt\"");
    EXPECT_EQ(Find("sub/?.txt", 0), "text \"a.txt\"");
    EXPECT_EQ(Find(folder_.PathOf("sub/a*"), 0), "text \"a.txt\"");
    EXPECT_EQ(Find("*", 0), "text \"sub\"");
}

TEST_F(FindFile, BelongsToItsMacroFile) {
    folder_.Write("a", "");
    folder_.Write("b", "");
    CommandCaller other(folder_.Path());
    EXPECT_EQ(Find("*", 0), "text \"a\"");
    EXPECT_EQ(other.Call("system.find_file", {Text("*"), Integer(1)}), "text \"\"");
    EXPECT_EQ(Find("*", 1), "text \"b\"");
}

TEST_F(FindFile, RefusesArguments) {
    const std::string name = "system.find_file() argument error. ";
    const struct {
        std::vector<CMacroCommonValue> arguments;
        std::string expected;
    } cases[] = {
        {{}, Error(name + "(argument count is invalid)")},
        {{Text("*")}, Error(name + "(argument count is invalid)")},
        {{Text("*"), Integer(0), Integer(0)}, Error(name + "(argument count is invalid)")},
        {{Integer(0), Text("*")}, Error(name + "(argument[0] type isn't string)")},
        {{Text(""), Text("*")}, Error("filename is null string.")},
        {{Text("*"), Text("0")}, Error(name + "(argument[1] type isn't interger)")},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Call("system.find_file", c.arguments), c.expected);
        EXPECT_EQ(caller_.ResultOfFailure(), "text \"\"") << c.expected;
    }
}

}  // namespace
}  // namespace macroengine::test
