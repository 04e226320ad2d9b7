#include <gtest/gtest.h>
#include <string>

#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::ErrorsOf;
using test::Lines;
using test::ResultOf;

/// @return "yes" or "no", or the lines that were reported.
std::string Holds(const std::string& condition) {
    return ResultOf("a = 1\nb = 2\nt[0] = 7\nx = \"no\"\nif " + condition + "\nx = \"yes\"\nendif\n", "x");
}

constexpr const char* kYes = "text \"yes\"";
constexpr const char* kNo = "text \"no\"";

struct Case {
    const char* condition;
    const char* expected;
};

TEST(ExpressionParserCondition, AComparisonComparesTwoOperands) {
    const Case cases[] = {
        {"a == 1", kYes},         {"a == 2", kNo},         {"a != 1", kNo},     {"a != 2", kYes},
        {"a < 1", kNo},           {"a < 2", kYes},         {"a <= 1", kYes},    {"a <= 0", kNo},
        {"a > 1", kNo},           {"a > 0", kYes},         {"a >= 1", kYes},    {"a >= 2", kNo},
        {"1 == a", kYes},         {"1 == 1", kYes},        {"a == b", kNo},     {"-1 < a", kYes},
        {"a > -1", kYes},         {"t[0] == 7", kYes},     {"7 == t[0]", kYes}, {"1.5 < 1.75", kYes},
        {"\"a\" == \"a\"", kYes}, {"\"a\" != \"a\"", kNo},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Holds(c.condition), c.expected) << c.condition;
}

TEST(ExpressionParserCondition, AndBindsTighterThanOr) {
    // T and F stand for a comparison that holds and one that does not.
    const Case cases[] = {
        {"T && T", kYes},
        {"T && F", kNo},
        {"F && T", kNo},
        {"F && F", kNo},
        {"T || T", kYes},
        {"T || F", kYes},
        {"F || T", kYes},
        {"F || F", kNo},
        {"T || T && F", kYes},
        {"F && T || T", kYes},
        {"(T || T) && F", kNo},
        {"F && (T || T)", kNo},
        {"T && F || T", kYes},
        {"T && (F || T)", kYes},
        {"F || T && F || T", kYes},
        {"(T)", kYes},
        {"((F))", kNo},
        {"(T) && (F)", kNo},
        {"(T && T) || (F && F)", kYes},
        {"((F || T) && (T || F)) && T", kYes},
        {"T && T && T && F", kNo},
        {"F || F || F || T", kYes},
        {"(F || (F || (F || T)))", kYes},
    };
    for (const Case& c : cases) {
        std::string condition;
        for (const char* letter = c.condition; *letter != '\0'; ++letter)
            condition += *letter == 'T' ? "a == 1" : *letter == 'F' ? "a == 2" : std::string(1, *letter);
        EXPECT_EQ(Holds(condition), c.expected) << c.condition;
    }
}

TEST(ExpressionParserCondition, EachComparisonIsAStatementOfTheKeywordsGroup) {
    const struct {
        const char* condition;
        const char* statements;
    } cases[] = {
        {"a == 1", "compare"},
        {"((a == 1))", "compare"},
        {"(a == 1) && (b != 2)", "compare, compare, compare"},
        {"a == 1 || b == 2 && c == 3", "compare, compare, compare, compare, compare"},
    };
    for (const auto& c : cases) {
        CompiledMacro macro;
        EXPECT_EQ(macro.Compile(std::string("\nif ") + c.condition + "\nendif"), Lines{}) << c.condition;
        EXPECT_EQ(macro.Listing(), std::string("0 L2 ") + c.statements + ", if false:1\n1 L3 endif\n")
            << c.condition;
    }
}

TEST(ExpressionParserCondition, EveryKeywordTakesThem) {
    const std::string condition = "(x == 1) && (y != 2) || x == 3";
    EXPECT_EQ(
        ErrorsOf("if " + condition + "\nelseif " + condition + "\nendif\nloop " + condition + "\nendloop\n"),
        Lines{});
}

TEST(ExpressionParserCondition, AnythingElseIsASyntaxErrorOnIt) {
    const struct {
        const char* condition;
        const char* message;
    } cases[] = {
        // No arithmetic in a condition.
        {"a + 1 == 2", "'+'"},
        {"a == 1 + 2", "'+'"},
        {"(a + 1) == 2", "'+'"},
        {"a == 1 << 2", "'<<'"},
        {"a & 1 == 1", "'&'"},
        {"a == 1 & b == 2", "'&'"},
        {"a == 1 | b == 2", "'|'"},
        {"a-1 == 2", "'-1'"},
        {"a -1 == 2", "'-1'"},
        {"a == b-1", "'-1'"},
        {"a == 3 -1", "'-1'"},
        // A comparison is one of two operands.
        {"a b", "'b'"},
        {"a = 1", "'='"},
        {"a && b", "'&&'"},
        {"(a) == 1", "')'"},
        {"a == 1 == 1", "'=='"},
        {"a == 1 b == 2", "'b'"},
        {"(a == 1) (b == 2)", "'('"},
        {"(a == 1) == (b == 2)", "'=='"},
        {"(a == 1) 5", "'5'"},
        {"a == 1 if", "'if'"},
        {"a == 1, b == 2", "','"},
        {"a == 1 #define", "'#define'"},
        {"a == 1 test", "'test'"},
        {"a.b == 1", "'.'"},
        {"a == b.c", "'.'"},
        {"a == t[0", "'<EOL>'"},
        {"t[a + 1] == 1", "'+'"},
        // Parentheses come in pairs.
        {"a == 1)", "')'"},
        {"(a == 1", "'<EOL>'"},
        {"((a == 1) && (b == 2)", "'<EOL>'"},
        {"(a == 1 && )", "')'. Can't find Variable or value."},
        // Operands that are missing.
        {"", "'<EOL>'. Can't find Variable or value."},
        {"()", "')'. Can't find Variable or value."},
        {"== 1", "'=='. Can't find Variable or value."},
        {"a ==", "'<EOL>'. Can't find Variable or value."},
        {"a == 1 &&", "'<EOL>'. Can't find Variable or value."},
        {"a == 1 && || b == 2", "'||'. Can't find Variable or value."},
        {"&& a == 1", "'&&'. Can't find Variable or value."},
        {"a == (1)", "'('. Can't find Variable or value."},
        {"a === 1", "'='. Can't find Variable or value."},
        {"a <> 1", "'>'. Can't find Variable or value."},
        {"a =< 1", "'='"},
        {"!a == 1", "'!'. Can't find Variable or value."},
        {"- a == 1", "'-'. Can't find Variable or value."},
        {"a == if", "'if'. Can't find Variable or value."},
        // A command is no operand.
        {"test.value() == 1", "'test'. Can't find Variable or value."},
        {"a == test.value()", "'test'. Can't find Variable or value."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.condition);
        const std::string message = c.message;
        const std::string line = message.compare(0, 6, "'<EOL>") == 0 ? "2" : "1";
        for (const char* keyword : {"if ", "loop "}) {
            EXPECT_EQ(ErrorsOf(keyword + std::string(c.condition) + "\nx = 1\n"),
                      Lines{"main.mac(" + line + "): error : syntax error " + message});
        }
        const std::string next = line == "2" ? "3" : "2";
        EXPECT_EQ(ErrorsOf("if 1 == 1\nelseif " + std::string(c.condition) + "\nx = 1\n"),
                  Lines{"main.mac(" + next + "): error : syntax error " + message});
    }
}

TEST(ExpressionParserCondition, AtTheEndOfTheFileTheEndIsNamed) {
    const struct {
        const char* source;
        const char* message;
    } cases[] = {
        {"if", "'<EOF>'. Can't find Variable or value."},
        {"loop a", "'<EOF>'"},
        {"if a ==", "'<EOF>'. Can't find Variable or value."},
        {"if (a == 1", "'<EOF>'"},
        // The condition is complete; it is the block that is not.
        {"if a == 1", "'<EOF>'"},
        {"loop (a == 1)", "'<EOF>'"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ErrorsOf(c.source), Lines{std::string("main.mac(1): error : syntax error ") + c.message})
            << c.source;
    }
}

TEST(ExpressionParserCondition, ALexicalErrorStandsAlone) {
    EXPECT_EQ(ErrorsOf("if a == 4294967296\n"), Lines{"main.mac(1): error : 4294967296 is out of range"});
    EXPECT_EQ(ErrorsOf("if a \x80\n"), Lines{"main.mac(1): error : find invalid letter(s) in file."});
    EXPECT_EQ(ErrorsOf("if a == 1 \x80\n"), Lines{"main.mac(1): error : find invalid letter(s) in file."});
    EXPECT_EQ(ErrorsOf("if (a == 1 && \"b\n"),
              Lines{"main.mac(1): error : Can't find [\"] for the end of string."});
}

}  // namespace
}  // namespace macroengine
