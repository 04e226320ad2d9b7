#include <gtest/gtest.h>
#include <string>

#include "support/CompiledMacro.h"
#include "support/EncodedLine.h"

namespace macroengine {
namespace {

using test::Lines;

class PreprocessorInclude : public testing::Test {
protected:
    void Write(const std::string& name, const std::string& text) { macro_.GetFolder().Write(name, text); }

    /// Compiles and runs. @return the value of x, or all lines that were reported.
    std::string XOf(const std::string& text) {
        Lines lines = macro_.Compile(text);
        if (lines.empty()) lines = macro_.Run();
        if (lines.empty()) return macro_.ValueOf("x");
        std::string all;
        for (const std::string& line : lines)
            all += line + "\n";
        return all;
    }

    test::CompiledMacro macro_;
};

TEST_F(PreprocessorInclude, AFileIsCompiledInPlace) {
    Write("b.mac", "x = x * 10\ny = 1\n");
    EXPECT_EQ(XOf("x = 2\n#include \"b.mac\"\nx = x + y\n"), "integer 21");
    EXPECT_EQ(macro_.Listing(),
              "0 L1 assign\n"
              "1 L1+ operate, assign\n"
              "2 L2+ assign\n"
              "3 L3 operate, assign\n");
}

TEST_F(PreprocessorInclude, TheHashIsOptional) {
    Write("b.mac", "x = 5");
    EXPECT_EQ(XOf("include \"b.mac\"\n"), "integer 5");
}

TEST_F(PreprocessorInclude, ItMayBeTheWholeFileAndEndWithIt) {
    Write("b.mac", "x = 5");
    EXPECT_EQ(XOf("#include \"b.mac\""), "integer 5");
}

TEST_F(PreprocessorInclude, ItStandsWhereverAStatementMay) {
    Write("b.mac", "x = x + 1\n");
    EXPECT_EQ(XOf("x = 0\nif x == 0\n#include \"b.mac\"\nelse\n#include \"b.mac\"\nendif\n"
                  "loop x < 5\n\n#include \"b.mac\" // once more\nendloop\n#include \"b.mac\"\r\n"),
              "integer 6");
}

TEST_F(PreprocessorInclude, AStatementOnTheSameLineOfAnotherFileIsAGroupOfItsOwn) {
    Write("b.mac", "x = 2");
    Write("c.mac", "\nx = 3");
    ASSERT_EQ(macro_.Compile("x = 1\n#include \"b.mac\"\n#include \"c.mac\"\n#include \"b.mac\"\n"), Lines{});
    EXPECT_EQ(macro_.Listing(),
              "0 L1 assign\n"
              "1 L1+ assign\n"
              "2 L2+ assign\n"
              "3 L1+ assign\n");
}

TEST_F(PreprocessorInclude, ANameIsResolvedAgainstTheFolderOfTheIncludingFile) {
    macro_.GetFolder().MakeFolder("sub");
    macro_.GetFolder().MakeFolder("sub/deep");
    Write("c.mac", "x = 0\n");
    Write("sub/b.mac", "#include \"c.mac\"\n#include \"deep\\d.mac\"\n");
    Write("sub/c.mac", "x = 1\n");
    Write("sub/deep/d.mac", "#include \"..\\..\\e.mac\"\nx = x + 10\n");
    Write("e.mac", "x = x + 100\n");
    EXPECT_EQ(XOf("#include \"sub\\b.mac\"\n"), "integer 111");
    EXPECT_EQ(XOf("#include \"sub/b.mac\"\n"), "integer 111");
    // An escape of a backslash stays two of them, which a path bears.
    EXPECT_EQ(XOf("#include \"sub\\\\b.mac\"\n"), "integer 111");
}

TEST_F(PreprocessorInclude, AnAbsoluteNameStandsAsItIs) {
    macro_.GetFolder().MakeFolder("sub");
    Write("b.mac", "x = 5");
    Write("sub/c.mac", "#include \"" + macro_.GetFolder().PathOf("b.mac") + "\"\n");
    EXPECT_EQ(XOf("#include \"sub/c.mac\"\n"), "integer 5");
    EXPECT_EQ(macro_.Compile("#include \"\\no such folder\\b.mac\"\n"),
              (Lines{"error : File open error. (\\no such folder\\b.mac)",
                     "main.mac(1): error : Failed to read include file(\"\\no such folder\\b.mac\")"}));
    EXPECT_EQ(macro_.Compile("#include \"q:no such file\"\n"),
              (Lines{"error : File open error. (q:no such file)",
                     "main.mac(1): error : Failed to read include file(\"q:no such file\")"}));
}

TEST_F(PreprocessorInclude, TheNameMayBeAMacro) {
    Write("b.mac", "x = 5");
    EXPECT_EQ(XOf("#define FILE \"b.mac\"\n#include FILE\n"), "integer 5");
}

TEST_F(PreprocessorInclude, AFileMayBeEncoded) {
    Write("b.iod", test::EncodedLine("x = 5") + "\n" + test::EncodedLine("x = x + 1") + "\n");
    EXPECT_EQ(XOf("#include \"b.iod\"\n"), "integer 6");
}

TEST_F(PreprocessorInclude, TheNameMustBeAString) {
    const struct {
        const char* source;
        const char* line;
    } cases[] = {
        {"\n#include\n", "main.mac(3): error : syntax error '<EOL>'"},
        {"#include", "main.mac(1): error : syntax error '<EOF>'"},
        {"include b\n", "main.mac(1): error : syntax error 'b'"},
        {"#include <b.mac>\n", "main.mac(1): error : syntax error '<'"},
        {"#include 5\n", "main.mac(1): error : syntax error '5'"},
        {"#include include\n", "main.mac(1): error : syntax error 'include'"},
        {"#include (\"b.mac\")\n", "main.mac(1): error : syntax error '('"},
        {"#include \"b.mac\n", "main.mac(1): error : Can't find [\"] for the end of string."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(macro_.Compile(c.source), Lines{c.line}) << c.source;
}

TEST_F(PreprocessorInclude, NothingElseMayStandOnItsLine) {
    Write("b.mac", "x = 5\n");
    EXPECT_EQ(macro_.Compile("#include \"b.mac\" \"b.mac\"\n"),
              Lines{"main.mac(1): error : syntax error '\"b.mac\"'"});
    EXPECT_EQ(macro_.Compile("#include \"b.mac\" x = 1\n"), Lines{"main.mac(1): error : syntax error 'x'"});
    EXPECT_EQ(macro_.Compile("x = 1 #include \"b.mac\"\n"),
              Lines{"main.mac(1): error : syntax error '#include'"});
}

TEST_F(PreprocessorInclude, AFileThatCannotBeReadIsReportedBeforeTheInclude) {
    macro_.GetFolder().MakeFolder("folder");
    Write("empty.mac", "");
    EXPECT_EQ(macro_.Compile("x = 1\n#include \"none.mac\"\ny = = 1\n"),
              (Lines{"error : File open error. (none.mac)",
                     "main.mac(2): error : Failed to read include file(\"none.mac\")"}));
    EXPECT_EQ(macro_.Compile("#include \"sub\\none.mac\""),
              (Lines{"error : File open error. (sub\\none.mac)",
                     "main.mac(1): error : Failed to read include file(\"sub\\none.mac\")"}));
    EXPECT_EQ(macro_.Compile("include \"empty.mac\"\n"),
              (Lines{"error : File read error. (empty.mac)",
                     "main.mac(1): error : Failed to read include file(\"empty.mac\")"}));
    EXPECT_EQ(macro_.Compile("include \"folder\"\n"),
              (Lines{"error : File open error. (folder)",
                     "main.mac(1): error : Failed to read include file(\"folder\")"}));
    EXPECT_EQ(
        macro_.Compile("include \"\"\n"),
        (Lines{"error : File open error. ()", "main.mac(1): error : Failed to read include file(\"\")"}));
}

TEST_F(PreprocessorInclude, AnErrorInAFileIsFollowedByALineForEachIncludingFile) {
    macro_.GetFolder().MakeFolder("sub");
    Write("sub/b.mac", "\n#include \"c.mac\"\n");
    Write("sub/c.mac", "x = 1\n\nx = = 2\n");
    EXPECT_EQ(macro_.Compile("\n\n#include \"sub\\b.mac\"\nx = 3\n"),
              (Lines{"sub\\c.mac(3): error : syntax error '='. Can't find Variable or value.",
                     "sub\\b.mac(2): error : Failed to read include file(\"c.mac\")",
                     "main.mac(3): error : Failed to read include file(\"sub\\b.mac\")"}));
    // What was compiled before the error stays, and nothing behind it is compiled.
    EXPECT_EQ(macro_.Listing(), "0 L1++ assign\n");
}

TEST_F(PreprocessorInclude, ALexicalErrorInAFileIsReportedThere) {
    Write("b.mac", "x = 1\n\"\n");
    EXPECT_EQ(macro_.Compile("#include \"b.mac\"\n"),
              (Lines{"b.mac(2): error : Can't find [\"] for the end of string.",
                     "main.mac(1): error : Failed to read include file(\"b.mac\")"}));
}

TEST_F(PreprocessorInclude, AFileThatIsRefusedWithoutALineIsReportedByTheInclude) {
    Write("b.mac", "x[1.5] = 1\n");
    EXPECT_EQ(macro_.Compile("#include \"b.mac\"\n"),
              Lines{"main.mac(1): error : Failed to read include file(\"b.mac\")"});
}

TEST_F(PreprocessorInclude, TheFileOfErrorsIsTheIncludingOneAgainAfterwards) {
    Write("b.mac", "x = 1\n\n\n");
    EXPECT_EQ(macro_.Compile("#include \"b.mac\"\nx = )\n"),
              Lines{"main.mac(2): error : syntax error ')'. Can't find Variable or value."});
}

TEST_F(PreprocessorInclude, AFileMayNotIncludeItself) {
    EXPECT_EQ(macro_.Compile("\n#include \"main.mac\"\n"),
              (Lines{"main.mac(2): error : A include file (\"main.mac\") was performed re-include of.",
                     "main.mac(2): error : Failed to read include file(\"main.mac\")"}));
}

TEST_F(PreprocessorInclude, FilesMayNotIncludeEachOtherInACircle) {
    Write("b.mac", "\n#include \"c.mac\"\n");
    Write("c.mac", "\n\n#include \"b.mac\"\n");
    EXPECT_EQ(macro_.Compile("#include \"b.mac\"\n"),
              (Lines{"c.mac(3): error : A include file (\"b.mac\") was performed re-include of.",
                     "b.mac(2): error : Failed to read include file(\"c.mac\")",
                     "main.mac(1): error : Failed to read include file(\"b.mac\")"}));
    Write("c.mac", "#include \"main.mac\"\n");
    EXPECT_EQ(macro_.Compile("#include \"b.mac\"\n"),
              (Lines{"main.mac(1): error : A include file (\"b.mac\") was performed re-include of.",
                     "c.mac(1): error : Failed to read include file(\"main.mac\")",
                     "b.mac(2): error : Failed to read include file(\"c.mac\")",
                     "main.mac(1): error : Failed to read include file(\"b.mac\")"}));
}

TEST_F(PreprocessorInclude, NamesInProgressAreComparedAsTheyAreWritten) {
    Write("b.mac", "#include \".\\b.mac\"\n");
    EXPECT_EQ(macro_.Compile("#include \"b.mac\"\n"),
              (Lines{".\\b.mac(1): error : A include file (\".\\b.mac\") was performed re-include of.",
                     "b.mac(1): error : Failed to read include file(\".\\b.mac\")",
                     "main.mac(1): error : Failed to read include file(\"b.mac\")"}));
    // A name is one whatever folder it is in: this is another file, and refused.
    macro_.GetFolder().MakeFolder("sub");
    Write("c.mac", "#include \"sub/d.mac\"\n");
    Write("sub/d.mac", "#include \"c.mac\"\n");
    Write("sub/c.mac", "x = 1\n");
    EXPECT_EQ(macro_.Compile("#include \"c.mac\"\n"),
              (Lines{"sub/d.mac(1): error : A include file (\"c.mac\") was performed re-include of.",
                     "c.mac(1): error : Failed to read include file(\"sub/d.mac\")",
                     "main.mac(1): error : Failed to read include file(\"c.mac\")"}));
}

TEST_F(PreprocessorInclude, AFileMayBeIncludedAgain) {
    Write("b.mac", "x = x + 1\n");
    Write("c.mac", "#include \"b.mac\"\n#include \"b.mac\"\n");
    EXPECT_EQ(XOf("x = 0\n#include \"b.mac\"\n#include \"b.mac\"\n#include \"c.mac\"\n#include \"b.mac\"\n"),
              "integer 5");
}

TEST_F(PreprocessorInclude, AFailedIncludeIsNotInProgressAnyMore) {
    Write("b.mac", "x = ");
    EXPECT_EQ(macro_.Compile("#include \"b.mac\"\n").size(), 2U);
    Write("b.mac", "x = 1");
    EXPECT_EQ(macro_.Compile("#include \"b.mac\"\n"), Lines{});
}

TEST_F(PreprocessorInclude, MacrosFlowIntoTheFileAndOutOfIt) {
    Write("b.mac", "x = OUTER\n#define INNER 20\n#define OUTER 1\n");
    EXPECT_EQ(XOf("#define OUTER 1\n#include \"b.mac\"\nx = x + INNER\n"), "integer 21");
    Write("c.mac", "#define FIRST 300\n#include \"d.mac\"\n");
    Write("d.mac", "#define SECOND FIRST\n");
    EXPECT_EQ(XOf("#include \"c.mac\"\nx = SECOND\n"), "integer 300");
}

TEST_F(PreprocessorInclude, AMacroMeansTheSameInAllFiles) {
    Write("b.mac", "\n#define A 2\n");
    EXPECT_EQ(macro_.Compile("#define A 1\n#include \"b.mac\"\n"),
              (Lines{"b.mac(2): error : redefine ( A )",
                     "main.mac(2): error : Failed to read include file(\"b.mac\")"}));
    EXPECT_EQ(macro_.Compile("#include \"b.mac\"\n#define A 1\n"),
              Lines{"main.mac(2): error : redefine ( A )"});
}

TEST_F(PreprocessorInclude, MacrosEndWithTheLoad) {
    EXPECT_EQ(macro_.Compile("#define A 1\n"), Lines{});
    EXPECT_EQ(macro_.Compile("#define A 2\nx = A\n"), Lines{});
}

TEST_F(PreprocessorInclude, ConditionsDoNotGoFromFileToFile) {
    Write("open.mac", "#if exist nothing\nx = 0\n");
    Write("close.mac", "#endif\n#endif\nx = x + 10\n#else\n#else\nx = 0\n");
    Write("plain.mac", "x = x + 100\n");
    EXPECT_EQ(
        XOf("x = 1\n#include \"open.mac\"\nx = 2\n#if exist test\n#include \"close.mac\"\n#else\nx = 5\n"
            "#include \"plain.mac\"\n#endif\nx = x + 1000\n"),
        "integer 1112");
}

TEST_F(PreprocessorInclude, BlocksDoNotGoFromFileToFile) {
    Write("open.mac", "if 1 == 1\n");
    Write("loop.mac", "loop 1 == 1\nx = 1");
    Write("close.mac", "\nendif\n");
    EXPECT_EQ(macro_.Compile("#include \"open.mac\"\nendif\n"),
              (Lines{"open.mac(2): error : syntax error '<EOF>'",
                     "main.mac(1): error : Failed to read include file(\"open.mac\")"}));
    EXPECT_EQ(macro_.Compile("#include \"loop.mac\"\nendloop\n"),
              (Lines{"loop.mac(2): error : syntax error '<EOF>'",
                     "main.mac(1): error : Failed to read include file(\"loop.mac\")"}));
    EXPECT_EQ(macro_.Compile("if 1 == 1\n#include \"close.mac\"\n"),
              (Lines{"close.mac(2): error : syntax error 'endif'",
                     "close.mac(2): error : syntax error (can't find EOF).",
                     "main.mac(2): error : Failed to read include file(\"close.mac\")"}));
}

TEST_F(PreprocessorInclude, AFileWithoutStatementsIsFine) {
    Write("blank.mac", "\n");
    Write("comment.mac", "// nothing");
    Write("directive.mac", "#define A 1");
    EXPECT_EQ(XOf("#include \"blank.mac\"\n#include \"comment.mac\"\n#include \"directive.mac\"\nx = A\n"),
              "integer 1");
    EXPECT_EQ(macro_.Listing(), "0 L4 assign\n");
}

}  // namespace
}  // namespace macroengine
