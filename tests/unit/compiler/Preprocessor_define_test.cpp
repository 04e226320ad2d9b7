#include <gtest/gtest.h>
#include <string>

#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::ErrorsOf;
using test::Lines;
using test::ResultOf;

TEST(PreprocessorDefine, ANameStandsForTheRestOfItsLine) {
    const struct {
        const char* source;
        const char* x;
    } cases[] = {
        {"#define A 5\nx = A\n", "integer 5"},
        {"define A 5\nx = A\n", "integer 5"},
        {"#define A 1 + 2\nx = A * 3\n", "integer 7"},
        {"#define A (1 + 2)\nx = A * 3\n", "integer 9"},
        {"#define A \"text // no comment\" // comment\nx = A\n", "text \"text // no comment\""},
        {"#define A 5 /* over\nlines */ + 1\nx = A\n", "integer 6"},
        {"#define SET x =\nSET 5\n", "integer 5"},
        {"#define FORMAT test.value\nx = FORMAT(1)\n", "integer 1"},
        {"#define WHEN if\n#define END endif\nx = 0\nWHEN x == 0\nx = 2\nEND\n", "integer 2"},
        {"#define A -1\nx = 5 A\n", "integer 4"},
        {"#define A -\nx = 5 A 1\n", "integer 4"},
        {"#define A 0x10\nx = A\n", "integer 16"},
        {"#define A\tx\nA = 3\n", "integer 3"},
        {"#define _A 5\nx = _A", "integer 5"},
        {"#define A 5\r\nx = A\r\n", "integer 5"},
        {"#define A 5\rx = A\r", "integer 5"},
        {"x = 1\n#define x y\ny = 2\nx = 3", "integer 1"},
        {"x = 5\n#define A", "integer 5"},
        {"x = 5\n#define A 5", "integer 5"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ResultOf(c.source, "x"), c.x) << c.source;
}

TEST(PreprocessorDefine, ANameWithoutABodyVanishes) {
    EXPECT_EQ(ResultOf("#define NOTHING\nNOTHING x NOTHING = NOTHING 5 NOTHING\nNOTHING\n", "x"),
              "integer 5");
    EXPECT_EQ(ResultOf("#define NOTHING // nothing\nx = 5 NOTHING", "x"), "integer 5");
}

TEST(PreprocessorDefine, TheNameAndTheBodyAreReadWithoutSubstitution) {
    EXPECT_EQ(ResultOf("#define A B\n#define B 5\nx = A\n", "x"), "integer 5");
    EXPECT_EQ(ResultOf("#define A B\n#define A B\nB = 1\nx = A\n", "x"), "integer 1");
    EXPECT_EQ(ResultOf("#define A 1\n#define B A\n#define A 1\nx = B\n", "x"), "integer 1");
}

TEST(PreprocessorDefine, ANameIsSubstitutedOnceInAToken) {
    EXPECT_EQ(ErrorsOf("#define A B B\n#define B 5\nx = A\n"),
              Lines{"main.mac(3): error : syntax error 'B'"});
    EXPECT_EQ(ResultOf("#define x x\nx = 5\n", "x"), "integer 5");
}

TEST(PreprocessorDefine, ANameIsDefinedFromItsLineOn) {
    EXPECT_EQ(ResultOf("A = 1\nx = A\n#define A 2\n", "x"), "integer 1");
    EXPECT_EQ(ResultOf("#define A 2\nx = A", "A"), "undefined");
}

TEST(PreprocessorDefine, AMacroMayStandForADirective) {
    CompiledMacro macro;
    macro.GetFolder().Write("b.mac", "y = 3\n");
    EXPECT_EQ(
        macro.Compile("#define WITH #if exist nothing\n#define OTHERWISE #else\n#define FILE \"b.mac\"\n"
                      "WITH\nx = 1\nOTHERWISE\nx = 2\n#endif\n#include FILE\n"),
        Lines{});
    EXPECT_EQ(macro.Run(), Lines{});
    EXPECT_EQ(macro.ValueOf("x"), "integer 2");
    EXPECT_EQ(macro.ValueOf("y"), "integer 3");
}

TEST(PreprocessorDefine, OnlyAPlainNameCanBeDefined) {
    const struct {
        const char* source;
        const char* token;
    } cases[] = {
        {"#define\nx = 1\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"#define", "main.mac(1): error : syntax error '<EOF>'"},
        {"define\r\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"#define\r", "main.mac(1): error : syntax error '<EOL>'"},
        {"\n#define 5 6\n", "main.mac(2): error : syntax error '5'"},
        {"#define -5 6\n", "main.mac(1): error : syntax error '-5'"},
        {"#define 1.5 6\n", "main.mac(1): error : syntax error '1.5'"},
        {"#define \"a\" 6\n", "main.mac(1): error : syntax error '\"a\"'"},
        {"#define if 6\n", "main.mac(1): error : syntax error 'if'"},
        {"#define endloop 6\n", "main.mac(1): error : syntax error 'endloop'"},
        {"#define include 6\n", "main.mac(1): error : syntax error 'include'"},
        {"#define define 6\n", "main.mac(1): error : syntax error 'define'"},
        {"#define #if 6\n", "main.mac(1): error : syntax error '#if'"},
        {"#define #x 6\n", "main.mac(1): error : syntax error '#x'"},
        {"#define ( 6\n", "main.mac(1): error : syntax error '('"},
        {"#define ! 6\n", "main.mac(1): error : syntax error '!'"},
        // A category is no plain name.
        {"#define string 6\n", "main.mac(1): error : syntax error 'string'"},
        {"#define wait_ms 6\n", "main.mac(1): error : syntax error 'wait_ms'"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ErrorsOf(c.source), Lines{c.token}) << c.source;
}

TEST(PreprocessorDefine, TheBodyEndsAtAnotherDefinitionAnInclusionOrAForeignToken) {
    for (const char* token :
         {"#define", "define", "#include", "include", "!", ";", "#", "#other", "{", "\\"}) {
        SCOPED_TRACE(token);
        EXPECT_EQ(ErrorsOf(std::string("#define A 1 ") + token + " 2\n"),
                  Lines{std::string("main.mac(1): error : syntax error '") + token + "'"});
        EXPECT_EQ(ErrorsOf(std::string("#define A ") + token),
                  Lines{std::string("main.mac(1): error : syntax error '") + token + "'"});
    }
    // The directives of conditional compilation belong to it.
    for (const char* token : {"#if", "#elseif", "#else", "#endif", "if", "loop", "(", "=", ".", "string"}) {
        SCOPED_TRACE(token);
        EXPECT_EQ(ErrorsOf(std::string("#define A 1 ") + token + " 2\n"), Lines{});
    }
}

TEST(PreprocessorDefine, AnotherBodyForANameIsRefusedOnTheDirectivesLine) {
    EXPECT_EQ(ErrorsOf("#define A 1\n\n#define A 2\nx = 1\n"), Lines{"main.mac(3): error : redefine ( A )"});
    EXPECT_EQ(ErrorsOf("#define A 1\ndefine A /* one\ntwo */ 2\n"),
              Lines{"main.mac(2): error : redefine ( A )"});
    EXPECT_EQ(ErrorsOf("#define A\n#define A 1"), Lines{"main.mac(2): error : redefine ( A )"});
    EXPECT_EQ(ErrorsOf("#define A 1 2\n#define A 1"), Lines{"main.mac(2): error : redefine ( A )"});
    // The same texts are the same body, whatever stands between them.
    EXPECT_EQ(ErrorsOf("#define A 1+2\n#define A   1 /* plus */ + 2 // sum\n#define B\n#define B\n"),
              Lines{});
    // One and the same value may be written in two ways.
    EXPECT_EQ(ErrorsOf("#define A 1\n#define A 01\n"), Lines{"main.mac(2): error : redefine ( A )"});
}

TEST(PreprocessorDefine, ALexicalErrorStandsAlone) {
    EXPECT_EQ(ErrorsOf("\n#define A \"x\nb = 1\n"),
              Lines{"main.mac(2): error : Can't find [\"] for the end of string."});
    EXPECT_EQ(ErrorsOf("#define A 4294967296\n"), Lines{"main.mac(1): error : 4294967296 is out of range"});
    EXPECT_EQ(ErrorsOf("#define \x80\n"), Lines{"main.mac(1): error : find invalid letter(s) in file."});
    EXPECT_EQ(ErrorsOf("#define A 1 2\x80\n"), Lines{"main.mac(1): error : find invalid letter(s) in file."});
}

TEST(PreprocessorDefine, ADefinitionNeedsALineOfItsOwn) {
    EXPECT_EQ(ErrorsOf("x = 1 #define A 2\n"), Lines{"main.mac(1): error : syntax error '#define'"});
    EXPECT_EQ(ErrorsOf("if 1 == 1 define A 2\nendif"), Lines{"main.mac(1): error : syntax error 'define'"});
    EXPECT_EQ(ErrorsOf("# define A 2\n"), Lines{"main.mac(1): error : syntax error '#'"});
}

TEST(PreprocessorDefine, DefinitionsStandWhereverAStatementMay) {
    EXPECT_EQ(
        ResultOf("\n// first\n#define A 1\n\n#define B 2\nx = 0\nif A == 1\n#define C 3\nx = C\n#define D 4\n"
                 "else\n#define E 5\nendif\n#define F 6\nloop x < D\n#define G 1\nx = x + G\nendloop\n"
                 "x = x + B + E + F\n#define H",
                 "x"),
        "integer 17");
}

}  // namespace
}  // namespace macroengine
