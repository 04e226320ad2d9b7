#include <gtest/gtest.h>
#include <string>

#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::ErrorsOf;
using test::Lines;

struct Case {
    const char* source;
    const char* line;
};

template <std::size_t Count>
void ExpectRefused(const Case (&cases)[Count]) {
    for (const Case& c : cases)
        EXPECT_EQ(ErrorsOf(c.source), Lines{c.line}) << c.source;
}

TEST(StatementParserErrors, AStatementBeginsWithANameACategoryOrABlock) {
    for (const char* token :
         {"5",  "-5", "1.5", "\"a\"", "(", ")",  "[",  "]", "=", "==", "+",      "-",  "*", "/",
          "<<", ".",  ",",   "|",     "&", "||", "&&", "!", ";", "#",  "#other", "\\", "<", ">="}) {
        SCOPED_TRACE(token);
        const Lines first{std::string("main.mac(1): error : syntax error '") + token + "'"};
        const Lines third{std::string("main.mac(3): error : syntax error '") + token + "'"};
        EXPECT_EQ(ErrorsOf(token), first);
        EXPECT_EQ(ErrorsOf(std::string(token) + " x = 1\n"), first);
        EXPECT_EQ(ErrorsOf(std::string("x = 1\n\n") + token + " = x\n"), third);
        EXPECT_EQ(ErrorsOf(std::string("if 1 == 1\n\n") + token + "\nendif\n"), third);
        EXPECT_EQ(ErrorsOf(std::string("loop 1 == 1\nx = 1\n") + token + "\nendloop\n"), third);
        EXPECT_EQ(ErrorsOf(std::string("#if exist test\n#endif\n") + token + "\n"), third);
    }
}

TEST(StatementParserErrors, AnAssignmentNeedsItsSign) {
    ExpectRefused({
        {"x\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"x\r\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"x\r", "main.mac(1): error : syntax error '<EOL>'"},
        {"x", "main.mac(1): error : syntax error '<EOF>'"},
        {"x 5\n", "main.mac(1): error : syntax error '5'"},
        {"x-1\n", "main.mac(1): error : syntax error '-1'"},
        {"x y = 1\n", "main.mac(1): error : syntax error 'y'"},
        {"x + 1\n", "main.mac(1): error : syntax error '+'"},
        {"x == 1\n", "main.mac(1): error : syntax error '=='"},
        {"x += 1\n", "main.mac(1): error : syntax error '+'"},
        {"x++\n", "main.mac(1): error : syntax error '+'"},
        {"x()\n", "main.mac(1): error : syntax error '('"},
        {"x(1) = 2\n", "main.mac(1): error : syntax error '('"},
        {"x, y = 1\n", "main.mac(1): error : syntax error ','"},
        {"x[1]\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"x[1] 5\n", "main.mac(1): error : syntax error '5'"},
        {"x if = 1\n", "main.mac(1): error : syntax error 'if'"},
        {"x #define = 1\n", "main.mac(1): error : syntax error '#define'"},
    });
}

TEST(StatementParserErrors, OneStatementStandsOnALine) {
    ExpectRefused({
        {"x = 1 y = 2\n", "main.mac(1): error : syntax error 'y'"},
        {"x = 1; y = 2\n", "main.mac(1): error : syntax error ';'"},
        {"x = 1 if x == 1\nendif\n", "main.mac(1): error : syntax error 'if'"},
        {"x = 1 test.plain()\n", "main.mac(1): error : syntax error 'test'"},
        {"test.plain() x = 1\n", "main.mac(1): error : syntax error 'x'"},
        {"x = 1 endif\n", "main.mac(1): error : syntax error 'endif'"},
        {"x = 1 /*\n*/ y = 2\n", "main.mac(2): error : syntax error 'y'"},
        {"x = 1 // */ y = 2\n", "main.mac(1): error : syntax error '/'. Can't find Variable or value."},
    });
}

TEST(StatementParserErrors, ABlockKeywordStandsAloneOnItsLine) {
    ExpectRefused({
        {"if 1 == 1 x = 1\nendif\n", "main.mac(1): error : syntax error 'x'"},
        {"if 1 == 1\nx = 1 endif\n", "main.mac(2): error : syntax error 'endif'"},
        {"if 1 == 1\nelse x = 1\nendif\n", "main.mac(2): error : syntax error 'x'"},
        {"if 1 == 1\nelse if 1 == 1\nendif\n", "main.mac(2): error : syntax error 'if'"},
        {"if 1 == 1\nelse endif\n", "main.mac(2): error : syntax error 'endif'"},
        {"if 1 == 1\nelseif 1 == 1 x = 1\nendif\n", "main.mac(2): error : syntax error 'x'"},
        {"if 1 == 1\nendif x = 1\n", "main.mac(2): error : syntax error 'x'"},
        {"if 1 == 1\nendif endif\n", "main.mac(2): error : syntax error 'endif'"},
        {"if 1 == 1\nendif 5", "main.mac(2): error : syntax error '5'"},
        {"if 1 == 1\nendif;\n", "main.mac(2): error : syntax error ';'"},
        {"loop 1 == 1 x = 1\nendloop\n", "main.mac(1): error : syntax error 'x'"},
        {"loop 1 == 1\nendloop x = 1\n", "main.mac(2): error : syntax error 'x'"},
        {"loop 1 == 1\nendloop (1)\n", "main.mac(2): error : syntax error '('"},
    });
}

TEST(StatementParserErrors, ABlockNeedsItsOwnEnd) {
    ExpectRefused({
        {"if 1 == 1\n", "main.mac(2): error : syntax error '<EOF>'"},
        {"if 1 == 1\nx = 1", "main.mac(2): error : syntax error '<EOF>'"},
        {"if 1 == 1\nx = 1\n\n", "main.mac(4): error : syntax error '<EOF>'"},
        {"if 1 == 1\nelse\n", "main.mac(3): error : syntax error '<EOF>'"},
        {"if 1 == 1\nelseif 1 == 1\nx = 1\n", "main.mac(4): error : syntax error '<EOF>'"},
        {"if 1 == 1\nif 1 == 1\nendif\n", "main.mac(4): error : syntax error '<EOF>'"},
        {"loop 1 == 1\n", "main.mac(2): error : syntax error '<EOF>'"},
        {"loop 1 == 1\nx = 1", "main.mac(2): error : syntax error '<EOF>'"},
        {"loop 1 == 1\nloop 1 == 1\nendloop\n", "main.mac(4): error : syntax error '<EOF>'"},
        {"if 1 == 1\nendloop\n", "main.mac(2): error : syntax error 'endloop'"},
        {"if 1 == 1\nelse\nendloop\n", "main.mac(3): error : syntax error 'endloop'"},
        {"loop 1 == 1\nendif\n", "main.mac(2): error : syntax error 'endif'"},
        {"loop 1 == 1\nelse\nendloop\n", "main.mac(2): error : syntax error 'else'"},
        {"loop 1 == 1\nelseif 1 == 1\nendloop\n", "main.mac(2): error : syntax error 'elseif'"},
        {"if 1 == 1\nloop 1 == 1\nendif\nendloop\n", "main.mac(3): error : syntax error 'endif'"},
        {"loop 1 == 1\nif 1 == 1\nendloop\nendif\n", "main.mac(3): error : syntax error 'endloop'"},
        // Only one else, and it is the last branch.
        {"if 1 == 1\nelse\nelse\nendif\n", "main.mac(3): error : syntax error 'else'"},
        {"if 1 == 1\nelse\nx = 1\nelseif 1 == 1\nendif\n", "main.mac(4): error : syntax error 'elseif'"},
    });
}

TEST(StatementParserErrors, AStrayEndIsReportedTwice) {
    for (const char* keyword : {"elseif", "else", "endif", "endloop"}) {
        SCOPED_TRACE(keyword);
        const auto lines = [&](int line) {
            const std::string place = "main.mac(" + std::to_string(line) + "): error : syntax error ";
            return Lines{place + "'" + keyword + "'", place + "(can't find EOF)."};
        };
        const std::string word = keyword;
        EXPECT_EQ(ErrorsOf(word), lines(1));
        EXPECT_EQ(ErrorsOf(word + "\nx = 1\n"), lines(1));
        EXPECT_EQ(ErrorsOf("\n\n" + word + " 1 == 1\n"), lines(3));
        EXPECT_EQ(ErrorsOf("x = 1\n" + word + "\n"), lines(2));
        EXPECT_EQ(ErrorsOf("#define A 1\n" + word + "\n"), lines(2));
        EXPECT_EQ(ErrorsOf("if 1 == 1\nendif\n" + word + "\n"), lines(3));
        EXPECT_EQ(ErrorsOf("loop 1 == 2\nx = 1\nendloop\n\n" + word), lines(5));
    }
}

TEST(StatementParserErrors, OneWrongTokenGivesOneLine) {
    ExpectRefused({
        {"x = 1 2 3 4 5\ny = = 3\nif\n", "main.mac(1): error : syntax error '2'"},
        {"if 1 == 1\nif 1 == 1\nloop 1 == 1\nif 1 == 1\n)\nendif\n", "main.mac(5): error : syntax error ')'"},
    });
}

TEST(StatementParserErrors, LexicalErrorsStandAloneWhereverTheyAre) {
    ExpectRefused({
        {"\x80", "main.mac(1): error : find invalid letter(s) in file."},
        {"x = 1\n\x80\n", "main.mac(2): error : find invalid letter(s) in file."},
        {"x = 1 \x80\n", "main.mac(1): error : find invalid letter(s) in file."},
        {"x\x80 = 1\n", "main.mac(1): error : find invalid letter(s) in file."},
        {"if 1 == 1\n\x80", "main.mac(2): error : find invalid letter(s) in file."},
        {"if 1 == 1\nelse \x80", "main.mac(2): error : find invalid letter(s) in file."},
        {"if 1 == 1\nendif \x80", "main.mac(2): error : find invalid letter(s) in file."},
        {"loop 1 == 1\nendloop\n\x80", "main.mac(3): error : find invalid letter(s) in file."},
        {"\n\"abc\nx = 1\n", "main.mac(2): error : Can't find [\"] for the end of string."},
        {"4294967296\n", "main.mac(1): error : 4294967296 is out of range"},
        {"#endif \x80", "main.mac(1): error : find invalid letter(s) in file."},
        {"#if exist test \x80", "main.mac(1): error : find invalid letter(s) in file."},
        {"#if \x80", "main.mac(1): error : find invalid letter(s) in file."},
        {"#if exist \"x", "main.mac(1): error : Can't find [\"] for the end of string."},
        {"#include \x80", "main.mac(1): error : find invalid letter(s) in file."},
    });
}

TEST(StatementParserErrors, WhatWasCompiledBeforeAnErrorStays) {
    CompiledMacro macro;
    EXPECT_EQ(macro.Compile("x = 1\ny = 2\nz = )\nx = 3\n"),
              Lines{"main.mac(3): error : syntax error ')'. Can't find Variable or value."});
    EXPECT_EQ(macro.Listing(), "0 L1 assign\n1 L2 assign\n");
    EXPECT_EQ(macro.Run(), Lines{});
    EXPECT_EQ(macro.ValueOf("x"), "integer 1");
    EXPECT_EQ(macro.ValueOf("y"), "integer 2");
    EXPECT_EQ(macro.ValueOf("z"), "undefined");
}

}  // namespace
}  // namespace macroengine
