#include <gtest/gtest.h>
#include <string>

#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::Lines;
using test::ResultOf;

/// @return the listing of the compiled program, or the lines that were reported.
std::string ListingOf(const std::string& text) {
    CompiledMacro macro;
    const Lines lines = macro.Compile(text);
    std::string all;
    for (const std::string& line : lines)
        all += line + "\n";
    return lines.empty() ? macro.Listing() : all;
}

TEST(StatementParser, AFileMayHaveNoStatements) {
    for (const char* source : {"\n", "\r\n\r\n", "\r", " \t", "// nothing", "/* nothing\n*/", "#define A 1",
                               "#if exist nothing\nx = 1\n#endif", "#endif\n"}) {
        EXPECT_EQ(ListingOf(source), "") << source;
    }
}

TEST(StatementParser, EachStatementIsAGroupOnItsLine) {
    EXPECT_EQ(ListingOf("x = 1\n\n// comment\ny = x + 1\r\n#define A 5\n\ttest.plain(x)\n/* a\nb */ z = A"),
              "0 L1 assign\n"
              "1 L4 operate, assign\n"
              "2 L6 call\n"
              "3 L8 assign\n");
}

TEST(StatementParser, AStatementEndsWithTheLineOrTheFile) {
    EXPECT_EQ(ResultOf("x = 1", "x"), "integer 1");
    EXPECT_EQ(ResultOf("x = 1 ", "x"), "integer 1");
    EXPECT_EQ(ResultOf("x = 1 // end", "x"), "integer 1");
    EXPECT_EQ(ResultOf("x = 1 /* end", "x"), "integer 1");
    // A comment over several lines does not end it.
    EXPECT_EQ(ResultOf("x = 1 /*\n\n*/ + 2\n", "x"), "integer 3");
    EXPECT_EQ(ResultOf("x /*\n*/ = /*\n*/ 1", "x"), "integer 1");
}

TEST(StatementParser, AnIfGoesOnBehindItsEndif) {
    EXPECT_EQ(ListingOf("if a == 1\nx = 1\nendif\n"),
              "0 L1 compare, if false:2\n"
              "1 L2 assign\n"
              "2 L3 endif\n");
}

TEST(StatementParser, EachBranchLeadsToTheNextAndEndsBehindTheBlock) {
    EXPECT_EQ(ListingOf("if a == 1\nx = 1\nelseif a == 2\nx = 2\nendif\n"),
              "0 L1 compare, if false:2\n"
              "1 L2 assign, branch end to:4\n"
              "2 L3 compare, elseif false:4\n"
              "3 L4 assign\n"
              "4 L5 endif\n");
    EXPECT_EQ(ListingOf("if a == 1\nx = 1\nelse\nx = 2\nendif\n"),
              "0 L1 compare, if false:2\n"
              "1 L2 assign, branch end to:4\n"
              "2 L3 else\n"
              "3 L4 assign\n"
              "4 L5 endif\n");
    EXPECT_EQ(
        ListingOf(
            "if a == 1\nx = 1\nelseif a == 2 || a == 3\nx = 2\nelseif a == 4\nx = 4\ny = 4\nelse\nx = 5\n"
            "endif\nz = 1"),
        "0 L1 compare, if false:2\n"
        "1 L2 assign, branch end to:9\n"
        "2 L3 compare, compare, compare, elseif false:4\n"
        "3 L4 assign, branch end to:9\n"
        "4 L5 compare, elseif false:7\n"
        "5 L6 assign\n"
        "6 L7 assign, branch end to:9\n"
        "7 L8 else\n"
        "8 L9 assign\n"
        "9 L10 endif\n"
        "10 L11 assign\n");
}

TEST(StatementParser, ABranchMayBeEmpty) {
    EXPECT_EQ(ListingOf("if a == 1\nendif"), "0 L1 compare, if false:1\n1 L2 endif\n");
    EXPECT_EQ(ListingOf("if a == 1\nelse\nendif"),
              "0 L1 compare, if false:1, branch end to:2\n"
              "1 L2 else\n"
              "2 L3 endif\n");
    EXPECT_EQ(
        ListingOf(
            "if a == 1\n\n// none\nelseif a == 2\n#define A 1\nelse\n#if exist nothing\n5\n#endif\nendif\n"),
        "0 L1 compare, if false:1, branch end to:3\n"
        "1 L4 compare, elseif false:2, branch end to:3\n"
        "2 L6 else\n"
        "3 L10 endif\n");
    const std::string chain = "if a == 1\nelseif a == 2\nelse\nendif\nx = a\n";
    for (const char* a : {"1", "2", "3"})
        EXPECT_EQ(ResultOf("a = " + std::string(a) + "\n" + chain, "x"), "integer " + std::string(a));
}

TEST(StatementParser, ALoopLeadsBackFromItsEndAndOutToAGroupOfItsOwn) {
    EXPECT_EQ(ListingOf("loop i < 3\ni = i + 1\nendloop\n"),
              "0 L1 compare, loop false:3\n"
              "1 L2 operate, assign\n"
              "2 L3 endloop to:0\n"
              "3 L3 exit\n");
    EXPECT_EQ(ListingOf("i = 0\nloop i < 3 && i > 0\nendloop\nx = 1"),
              "0 L1 assign\n"
              "1 L2 compare, compare, compare, loop false:3\n"
              "2 L3 endloop to:1\n"
              "3 L3 exit\n"
              "4 L4 assign\n");
}

TEST(StatementParser, ABlockPatchesOnlyItsOwnStatements) {
    EXPECT_EQ(ListingOf("if a == 1\n"
                        "loop b == 1\n"
                        "if c == 1\n"
                        "x = 1\n"
                        "elseif c == 2\n"
                        "x = 2\n"
                        "endif\n"
                        "endloop\n"
                        "else\n"
                        "if d == 1\n"
                        "else\n"
                        "endif\n"
                        "endif\n"),
              "0 L1 compare, if false:9\n"
              "1 L2 compare, loop false:8\n"
              "2 L3 compare, if false:4\n"
              "3 L4 assign, branch end to:6\n"
              "4 L5 compare, elseif false:6\n"
              "5 L6 assign\n"
              "6 L7 endif\n"
              "7 L8 endloop to:1\n"
              "8 L8 exit, branch end to:13\n"
              "9 L9 else\n"
              "10 L10 compare, if false:11, branch end to:12\n"
              "11 L11 else\n"
              "12 L12 endif\n"
              "13 L13 endif\n");
    EXPECT_EQ(ListingOf("loop a == 1\nloop b == 1\nendloop\nloop c == 1\nx = 1\nendloop\nendloop"),
              "0 L1 compare, loop false:9\n"
              "1 L2 compare, loop false:3\n"
              "2 L3 endloop to:1\n"
              "3 L3 exit\n"
              "4 L4 compare, loop false:7\n"
              "5 L5 assign\n"
              "6 L6 endloop to:4\n"
              "7 L6 exit\n"
              "8 L7 endloop to:0\n"
              "9 L7 exit\n");
}

TEST(StatementParser, BlocksOfAnIncludedFileJoinTheProgram) {
    CompiledMacro macro;
    macro.GetFolder().Write("b.mac", "if b == 1\nx = 1\nendif");
    ASSERT_EQ(macro.Compile("if a == 1\n#include \"b.mac\"\nelse\n#include \"b.mac\"\nendif\n"), Lines{});
    EXPECT_EQ(macro.Listing(),
              "0 L1 compare, if false:4\n"
              "1 L1+ compare, if false:3\n"
              "2 L2+ assign\n"
              "3 L3+ endif, branch end to:8\n"
              "4 L3 else\n"
              "5 L1+ compare, if false:7\n"
              "6 L2+ assign\n"
              "7 L3+ endif\n"
              "8 L5 endif\n");
}

TEST(StatementParser, OneBranchRuns) {
    const std::string chain =
        "if a == 1\nx = \"one\"\nelseif a == 2\nx = \"two\"\nelseif a <= 2\nx = \"less\"\nelse\nx = "
        "\"other\"\nendif\n";
    EXPECT_EQ(ResultOf("a = 1\n" + chain, "x"), "text \"one\"");
    EXPECT_EQ(ResultOf("a = 2\n" + chain, "x"), "text \"two\"");
    EXPECT_EQ(ResultOf("a = 0\n" + chain, "x"), "text \"less\"");
    EXPECT_EQ(ResultOf("a = 3\n" + chain, "x"), "text \"other\"");
}

TEST(StatementParser, ALoopTestsBeforeEveryRound) {
    EXPECT_EQ(ResultOf("x = 0\nloop x < 3\nx = x + 1\nendloop\n", "x"), "integer 3");
    EXPECT_EQ(ResultOf("x = 5\nloop x < 3\nx = x + 1\nendloop\n", "x"), "integer 5");
    EXPECT_EQ(
        ResultOf(
            "x = 0\ni = 0\nloop i < 3\nj = 0\nloop j < 4\nx = x + 1\nif j == 2\nj = 9\nendif\nj = j + 1\n"
            "endloop\ni = i + 1\nendloop\n",
            "x"),
        "integer 9");
    EXPECT_EQ(ResultOf("x = 0\nloop x < 3\nif x == 1\nx = x + 5\nelse\nx = x + 1\nendif\nendloop", "x"),
              "integer 6");
}

TEST(StatementParser, BlankCommentAndDirectiveLinesStandAnywhere) {
    const std::string between =
        "\n// comment\n/* over\nlines */\n#define A 1\n#if exist test\n#else\nx = 0 0\n#endif\n\r\n";
    std::string source;
    for (const char* line : {"", "x = 0", "if x == 0", "x = 1", "elseif x == 1", "x = 2", "else", "x = 3",
                             "endif", "loop x < 3", "x = x + 1", "endloop", "test.plain()"}) {
        source.append(line).append(between);
    }
    EXPECT_EQ(ResultOf(source, "x"), "integer 3");
}

TEST(StatementParser, KeywordsAreOfLowerCase) {
    EXPECT_EQ(ResultOf("If = 1\nLOOP = 2\nEndIf = 3\nx = If + LOOP + EndIf\n", "x"), "integer 6");
}

TEST(StatementParser, LoadsAddToTheProgram) {
    CompiledMacro macro;
    EXPECT_EQ(macro.Compile("x = 1\nif x == 1\nx = 2\nendif\n"), Lines{});
    EXPECT_EQ(macro.Compile("if x == 2\nx = x + 10\nelse\nx = 0\nendif\n"), Lines{});
    EXPECT_EQ(macro.Listing(),
              "0 L1 assign\n"
              "1 L2 compare, if false:3\n"
              "2 L3 assign\n"
              "3 L4 endif\n"
              "4 L1 compare, if false:6\n"
              "5 L2 operate, assign, branch end to:8\n"
              "6 L3 else\n"
              "7 L4 assign\n"
              "8 L5 endif\n");
    EXPECT_EQ(macro.Run(), Lines{});
    EXPECT_EQ(macro.ValueOf("x"), "integer 12");
}

TEST(StatementParser, AStatementMayReachOverMoreTextThanIsKept) {
    const std::string comment = "/*" + std::string(std::size_t{1} << 20, '\n') + "*/";
    EXPECT_EQ(ResultOf("x = " + comment + "\"text\" " + comment + " + " + comment + "\"!\"\n", "x"),
              "text \"text!\"");
    CompiledMacro macro;
    EXPECT_EQ(macro.Compile("x = 1\nname " + comment + " . y\n"),
              Lines{"main.mac(2): error : \"name\" is not category operand."});
}

}  // namespace
}  // namespace macroengine
