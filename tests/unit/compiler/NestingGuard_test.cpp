#include "compiler/NestingGuard.h"

#include <gtest/gtest.h>
#include <string>

#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::ErrorsOf;
using test::Lines;
using test::ResultOf;

std::string Repeat(const std::string& text, int count) {
    std::string repeated;
    for (int i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

Lines Refused(int line, const char* what) {
    return {"main.mac(" + std::to_string(line) + "): error : The nest for \"" + what +
            "\" is to up to 256 times."};
}

TEST(NestingGuard, ItCountsAsLongAsItLives) {
    std::uint32_t depth = 255;
    {
        const NestingGuard last(depth);
        EXPECT_EQ(depth, 256U);
        EXPECT_FALSE(last.IsTooDeep());
        const NestingGuard beyond(depth);
        EXPECT_EQ(depth, 257U);
        EXPECT_TRUE(beyond.IsTooDeep());
    }
    EXPECT_EQ(depth, 255U);
}

TEST(Nesting, ParenthesesOfAnExpression) {
    EXPECT_EQ(ResultOf("x = " + Repeat("(", 256) + "5" + Repeat(")", 256), "x"), "integer 5");
    EXPECT_EQ(ResultOf("x = " + Repeat("(1 + ", 256) + "0" + Repeat(")", 256), "x"), "integer 256");
    EXPECT_EQ(ErrorsOf("\nx = " + Repeat("(", 257) + "5" + Repeat(")", 257)), Refused(2, "("));
    EXPECT_EQ(ErrorsOf("x = " + Repeat("(", 100000)), Refused(1, "("));
    EXPECT_EQ(ErrorsOf("test.target() = " + Repeat("(", 257) + "5" + Repeat(")", 257)), Refused(1, "("));
    // The line is that of the parenthesis.
    EXPECT_EQ(ErrorsOf("x = " + Repeat("(", 256) + "/*\n\n*/" + "(5)"), Refused(3, "("));
    // Parentheses that are closed do not count, whatever was refused before.
    EXPECT_EQ(ResultOf("x = " + Repeat("(1) + ", 1000) + "0", "x"), "integer 1000");
    EXPECT_EQ(ResultOf("x = " + Repeat("(", 256) + "5" + Repeat(")", 256) + "\nx = x + " + Repeat("(", 256) +
                           "5" + Repeat(")", 256),
                       "x"),
              "integer 10");
}

TEST(Nesting, ParenthesesOfACondition) {
    for (const std::string keyword : {"if ", "loop "}) {
        const std::string end = "\nx = 1\nend" + keyword + "\n";
        EXPECT_EQ(ErrorsOf(keyword + Repeat("(", 256) + "x == 0" + Repeat(")", 256) + end), Lines{});
        EXPECT_EQ(ErrorsOf("\n\n" + keyword + Repeat("(", 257) + "x == 0" + Repeat(")", 257) + end),
                  Refused(3, "("));
        EXPECT_EQ(ErrorsOf(keyword + Repeat("(", 100000)), Refused(1, "("));
        EXPECT_EQ(ErrorsOf(keyword + Repeat("(x == 0) && ", 1000) + "x == 0" + end), Lines{});
    }
    EXPECT_EQ(
        ResultOf("x = 0\nif " + Repeat("(x == 0 && ", 256) + "x == 0" + Repeat(")", 256) + "\nx = 1\nendif",
                 "x"),
        "integer 1");
}

TEST(Nesting, SubscriptsInsideSubscripts) {
    const std::string deepest = Repeat("a[", 256) + "0" + Repeat("]", 256);
    const std::string beyond = Repeat("a[", 257) + "0" + Repeat("]", 257);
    EXPECT_EQ(ResultOf("a[0] = 0\nx = " + deepest, "x"), "integer 0");
    EXPECT_EQ(ResultOf("a[0] = 0\n" + deepest + " = 7\nx = a[0]", "x"), "integer 7");
    EXPECT_EQ(ErrorsOf("\nx = " + beyond), Refused(2, "["));
    EXPECT_EQ(ErrorsOf(beyond + " = 1"), Refused(1, "["));
    EXPECT_EQ(ErrorsOf("if x == " + beyond + "\nendif"), Refused(1, "["));
    EXPECT_EQ(ErrorsOf("test.plain(" + beyond + ")"), Refused(1, "["));
    EXPECT_EQ(ErrorsOf("x = " + Repeat("a[", 100000)), Refused(1, "["));
    // Each kind is counted for itself.
    EXPECT_EQ(ResultOf("a[0] = 0\nx = " + Repeat("(", 256) + deepest + Repeat(")", 256), "x"), "integer 0");
}

TEST(Nesting, BlocksOfIf) {
    EXPECT_EQ(ResultOf("x = 0\n" + Repeat("if x >= 0\nx = x + 1\n", 256) + Repeat("endif\n", 256), "x"),
              "integer 256");
    EXPECT_EQ(ErrorsOf(Repeat("if x == 0\n", 257) + Repeat("endif\n", 257)), Refused(257, "if"));
    EXPECT_EQ(ErrorsOf(Repeat("if x == 0\n", 20000)), Refused(257, "if"));
    // In whatever branch they stand.
    EXPECT_EQ(ErrorsOf(Repeat("if x == 0\nelse\n", 257) + Repeat("endif\n", 257)), Refused(513, "if"));
    EXPECT_EQ(ErrorsOf(Repeat("if x == 0\nelseif x == 1\n", 256) + Repeat("endif\n", 256)), Lines{});
    // Blocks that are closed do not count.
    EXPECT_EQ(ErrorsOf(Repeat("if x == 0\nendif\n", 1000)), Lines{});
}

TEST(Nesting, BlocksOfLoop) {
    EXPECT_EQ(ResultOf("x = 0\n" + Repeat("loop x < 256\nx = x + 1\n", 256) + Repeat("endloop\n", 256), "x"),
              "integer 256");
    EXPECT_EQ(ErrorsOf(Repeat("loop x == 0\n", 257) + Repeat("endloop\n", 257)), Refused(257, "loop"));
    EXPECT_EQ(ErrorsOf(Repeat("loop x == 0\nendloop\n", 1000)), Lines{});
}

TEST(Nesting, BlocksOfBothKindsAreCountedTogether) {
    const std::string open = Repeat("if x == 0\nloop x == 0\n", 128);
    const std::string close = Repeat("endloop\nendif\n", 128);
    EXPECT_EQ(ErrorsOf(open + close), Lines{});
    EXPECT_EQ(ErrorsOf(open + "if x == 0\nendif\n" + close), Refused(257, "if"));
    EXPECT_EQ(ErrorsOf(open + "loop x == 0\nendloop\n" + close), Refused(257, "loop"));
}

TEST(Nesting, BlocksOfTheIncludingFilesCount) {
    CompiledMacro macro;
    macro.GetFolder().Write("b.mac", Repeat("if x == 0\n", 56) + Repeat("endif\n", 56));
    const auto around = [](int blocks) {
        return Repeat("if x == 0\n", blocks) + "#include \"b.mac\"\n" + Repeat("endif\n", blocks);
    };
    EXPECT_EQ(macro.Compile(around(200)), Lines{});
    EXPECT_EQ(macro.Compile(around(201)),
              (Lines{"b.mac(56): error : The nest for \"if\" is to up to 256 times.",
                     "main.mac(202): error : Failed to read include file(\"b.mac\")"}));
}

/// Writes files each of which includes the next: 1.mac, 2.mac and so on.
void WriteChain(const test::TemporaryFolder& folder, int files) {
    for (int i = 1; i < files; ++i) {
        folder.Write(std::to_string(i) + ".mac",
                     "\n#include \"" + std::to_string(i + 1) + ".mac\"\nx = x + 1\n");
    }
    folder.Write(std::to_string(files) + ".mac", "x = x + 1\n");
}

TEST(Nesting, InclusionsAtTheLimit) {
    CompiledMacro macro;
    WriteChain(macro.GetFolder(), 256);
    EXPECT_EQ(macro.Compile("x = 0\n#include \"1.mac\"\nx = x + 1\n"), Lines{});
    EXPECT_EQ(macro.Run(), Lines{});
    EXPECT_EQ(macro.ValueOf("x"), "integer 257");
}

TEST(Nesting, InclusionsBeyondTheLimit) {
    CompiledMacro macro;
    WriteChain(macro.GetFolder(), 300);
    Lines expected{"256.mac(2): error : The nest for \"#include\" is to up to 256 times."};
    for (int i = 256; i > 1; --i) {
        expected.push_back(std::to_string(i - 1) + ".mac(2): error : Failed to read include file(\"" +
                           std::to_string(i) + ".mac\")");
    }
    expected.emplace_back("main.mac(1): error : Failed to read include file(\"1.mac\")");
    EXPECT_EQ(macro.Compile("#include \"1.mac\"\n"), expected);
}

TEST(Nesting, EverythingAtItsLimitAtOnce) {
    CompiledMacro macro;
    WriteChain(macro.GetFolder(), 256);
    const std::string deepest = Repeat("if x == 0\n", 256) + "a[0] = 0\nx = " + Repeat("(", 256) +
                                Repeat("a[", 256) + "0" + Repeat("]", 256) + Repeat(")", 256) + "\n" +
                                Repeat("endif\n", 256);
    macro.GetFolder().Write("256.mac", deepest);
    EXPECT_EQ(macro.Compile("x = 0\n#include \"1.mac\"\n"), Lines{});
}

}  // namespace
}  // namespace macroengine
