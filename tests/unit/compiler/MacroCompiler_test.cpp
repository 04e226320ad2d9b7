#include "compiler/MacroCompiler.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <random>
#include <string>

#include "support/CompiledMacro.h"
#include "support/EncodedLine.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::ErrorsOf;
using test::Lines;
using test::ResultOf;

TEST(MacroCompiler, ErrorLinesNameTheFileAsItWasGiven) {
    const test::TemporaryFolder folder;
    folder.Write("a.mac", "x = )\n");
    CMacroCategoryCmdList commands("");
    for (const char* separator : {"/", "\\", "/./", "\\.\\"}) {
        const std::string path = folder.Path() + separator + "a.mac";
        CMacroPrg program;
        CErrorMessageTable errors;
        EXPECT_FALSE(MacroCompiler(program, commands, errors).CompileFile(path, nullptr));
        EXPECT_EQ(test::TakeLines(errors),
                  Lines{path + "(1): error : syntax error ')'. Can't find Variable or value."});
    }
}

TEST(MacroCompiler, AFileThatCannotBeReadLeavesTheLoadersLine) {
    CompiledMacro macro;
    macro.GetFolder().Write("empty.mac", "");
    macro.GetFolder().Write("empty.iod", "");
    EXPECT_EQ(macro.CompileFile("none.mac"), Lines{"error : File open error. (none.mac)"});
    EXPECT_EQ(macro.CompileFile("none.dat"), Lines{"error : File open error. (none.dat)"});
    EXPECT_EQ(macro.CompileFile("empty.mac"), Lines{"error : File read error. (empty.mac)"});
    EXPECT_EQ(macro.CompileFile("empty.iod"), Lines{"error : File read error. (empty.iod)"});
    EXPECT_EQ(macro.GetGroupCount(), 0);
}

TEST(MacroCompiler, ErrorsAreAddedToThoseThatAreThere) {
    const test::TemporaryFolder folder;
    CMacroCategoryCmdList commands("");
    CMacroPrg program;
    CErrorMessageTable errors;
    errors.AddError("before");
    EXPECT_FALSE(MacroCompiler(program, commands, errors).CompileFile(folder.Write("a.mac", "5"), nullptr));
    EXPECT_TRUE(
        MacroCompiler(program, commands, errors).CompileFile(folder.Write("b.mac", "x = 1"), nullptr));
    EXPECT_EQ(test::TakeLines(errors),
              (Lines{"error : before", folder.PathOf("a.mac") + "(1): error : syntax error '5'"}));
}

TEST(MacroCompiler, EveryLineEndSeparatesStatements) {
    for (const char* lineEnd : {"\n", "\r\n", "\r", "\r\r\n", "\n\r"}) {
        SCOPED_TRACE(lineEnd);
        const std::string end = lineEnd;
        const std::string block = "x = 0" + end + "if x == 0" + end + "x = 5" + end + "else" + end + "x = 6" +
                                  end + "endif" + end + "loop x < 8" + end + "x = x + 1" + end + "endloop" +
                                  end + "#define ONE 1" + end + end + "x = x + ONE";
        EXPECT_EQ(ResultOf(block, "x"), "integer 9");
        EXPECT_EQ(ResultOf(block + end, "x"), "integer 9");
    }
    EXPECT_EQ(ResultOf("x = 1\r\ny = 2\nz = 3\rx = x + y + z\r\n", "x"), "integer 6");
}

TEST(MacroCompiler, OnlyALineFeedCountsALine) {
    const std::string refused = ": error : syntax error ')'. Can't find Variable or value.";
    EXPECT_EQ(ErrorsOf("a = 1\nb = 2\nc = )\n"), Lines{"main.mac(3)" + refused});
    EXPECT_EQ(ErrorsOf("a = 1\r\nb = 2\r\nc = )\r\n"), Lines{"main.mac(3)" + refused});
    EXPECT_EQ(ErrorsOf("a = 1\rb = 2\rc = )\r"), Lines{"main.mac(1)" + refused});
    EXPECT_EQ(ErrorsOf("a = 1\r\nb = 2\rx = 3\n\nc = )\r\n"), Lines{"main.mac(4)" + refused});
    EXPECT_EQ(ErrorsOf("a = 1\r\r\nb = 2\n\rc = )"), Lines{"main.mac(3)" + refused});
}

TEST(MacroCompiler, TheFileEndsAtANul) {
    const std::string text("x = 1\nx = 2\n\0x = 3\n", 19);
    EXPECT_EQ(ResultOf(text, "x"), "integer 2");
    EXPECT_EQ(ErrorsOf(std::string("x = \0 1", 7)),
              Lines{"main.mac(1): error : syntax error '<EOF>'. Can't find Variable or value."});
    EXPECT_EQ(ErrorsOf(std::string("x = \"a\0b\"\n", 10)),
              Lines{"main.mac(1): error : Can't find [\"] for the end of string."});
    EXPECT_EQ(ErrorsOf(std::string(1, '\0')), Lines{});
    EXPECT_EQ(ErrorsOf(std::string("if 1 == 1\n\0endif", 16)),
              Lines{"main.mac(2): error : syntax error '<EOF>'"});
}

TEST(MacroCompiler, AByteOrderMarkIsNoText) {
    EXPECT_EQ(ErrorsOf("\xEF\xBB\xBFx = 1\n"), Lines{"main.mac(1): error : find invalid letter(s) in file."});
}

TEST(MacroCompiler, AnEncodedFileIsCompiledLikeAPlainOne) {
    CompiledMacro macro;
    macro.GetFolder().Write("main.iod", test::EncodedLine("x = \"\x80\"") + "\n\n" +
                                            test::EncodedLine("if x == \"\"") + "\n" +
                                            test::EncodedLine("endif )") + "\n");
    EXPECT_EQ(macro.CompileFile("main.iod"), Lines{"main.iod(4): error : syntax error ')'"});
    EXPECT_EQ(macro.Listing(), "0 L1 assign\n1 L3 compare, if false:2\n2 L4 endif\n");
}

TEST(MacroCompiler, VariablesBelongToTheProgramNotToTheFile) {
    CompiledMacro macro;
    EXPECT_EQ(macro.Compile("x = 5\n"), Lines{});
    EXPECT_EQ(macro.Compile("y = x + 1\n"), Lines{});
    EXPECT_EQ(macro.Run(), Lines{});
    EXPECT_EQ(macro.ValueOf("y"), "integer 6");
}

TEST(MacroCompiler, AnExpressionMayBeVeryLong) {
    constexpr int kOperations = 20000;
    std::string source = "x = 0";
    for (int i = 0; i < kOperations; ++i)
        source += i % 2 == 0 ? "+2" : "-1";
    EXPECT_EQ(ResultOf(source, "x"), "integer 10000");

    std::string condition = "x = 0\nif x == 0";
    for (int i = 0; i < kOperations; ++i)
        condition += i % 2 == 0 ? "&&x==0" : "||x==1";
    EXPECT_EQ(ResultOf(condition + "\nx = 7\nendif", "x"), "integer 7");
}

TEST(MacroCompiler, AChainOfBranchesMayBeVeryLong) {
    constexpr int kBranches = 5000;
    std::string source = "a = 4321\nif a == 0\n";
    for (int i = 1; i < kBranches; ++i)
        source += "elseif a == " + std::to_string(i) + "\nx = " + std::to_string(i) + "\n";
    EXPECT_EQ(ResultOf(source + "endif\n", "x"), "integer 4321");
}

TEST(MacroCompiler, SubscriptsThatFollowEachOtherAreNotNested) {
    std::string element = "x";
    for (int i = 0; i < 1000; ++i)
        element += "[0]";
    EXPECT_EQ(ResultOf(element + " = 7\ny = " + element, "y"), "integer 7");
}

TEST(MacroCompiler, AStringMayBeVeryLong) {
    const std::string text(5U << 20, 'y');
    EXPECT_EQ(ResultOf("x = \"" + text + "\"", "x"), "text \"" + text + "\"");
}

/// Compiles random text of the tokens that mean something, or of any bytes. A text that is refused leaves a
/// line, save for the one refusal that has none.
void CompileRandomText(std::minstd_rand& random, bool anyByte) {
    static const char* const kTokens[] = {
        "if",      "elseif",  "else", "endif", "loop",  "endloop", "x",   "y",     "test",  "bare",
        "value",   "1",       "-1",   "2.5",   "\"s\"", "(",       ")",   "[",     "]",     "=",
        "==",      "<",       "<<",   "+",     "-",     "*",       "&",   "&&",    "||",    ".",
        ",",       "\n",      "\n",   "\n",    "\n",    "#define", "#if", "exist", "#else", "#endif",
        "#elseif", "include", "!",    "/*",    "*/",    "//",      "\"",  "\r"};
    std::string text;
    const std::size_t length = random() % 60;
    for (std::size_t i = 0; i < length; ++i) {
        const std::size_t chosen = random() >> 8;
        text += anyByte ? std::string(1, static_cast<char>(chosen & 0xFF))
                        : kTokens[chosen % (sizeof kTokens / sizeof *kTokens)] +
                              std::string(chosen % 3 == 0 ? "" : " ");
    }
    if (text.empty()) text = "\n";
    const Lines lines = ErrorsOf(text);
    ASSERT_LE(lines.size(), 2U) << text;
    if (lines.empty() || lines[0] == "refused") return;
    // The file "s" that the text may include is none.
    if (lines.size() == 2 && lines[0] == "error : File open error. (s)") return;
    EXPECT_EQ(lines[0].compare(0, 9, "main.mac("), 0) << text;
}

TEST(MacroCompiler, RandomTextIsCompiledOrRefused) {
    std::minstd_rand random(12345);
    for (int round = 0; round < 500; ++round)
        CompileRandomText(random, round % 3 == 0);
}

}  // namespace
}  // namespace macroengine
