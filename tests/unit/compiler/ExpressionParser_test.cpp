#include <gtest/gtest.h>
#include <string>

#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::ErrorsOf;
using test::Lines;
using test::ResultOf;

struct Value {
    const char* expression;
    const char* expected;
};

TEST(ExpressionParser, OperatorsBindByTheirLevel) {
    const Value cases[] = {
        {"1 + 2 * 3", "integer 7"},
        {"2 * 3 + 4 * 5", "integer 26"},
        {"10 - 2 * 3 + 4", "integer 8"},
        {"20 / 2 - 5", "integer 5"},
        // The shifts bind loosest of all.
        {"1 << 2 + 1", "integer 8"},
        {"1 + 2 << 2", "integer 12"},
        {"1 + 2 << 3 - 1", "integer 12"},
        {"16 >> 1 | 2", "integer 2"},
        {"255 & 15 << 4", "integer 240"},
        {"1 << 1 * 3", "integer 8"},
        // Then comes the bit OR, then the bit AND, both below the additive operators.
        {"6 & 3 | 8", "integer 10"},
        {"1 | 6 & 3", "integer 3"},
        {"8 | 1 + 2", "integer 11"},
        {"3 + 1 | 1", "integer 5"},
        {"12 & 4 + 8", "integer 12"},
        {"8 + 4 & 4", "integer 4"},
        {"1 | 2 * 2", "integer 5"},
        // Parentheses bind tightest.
        {"(1 + 2) * 3", "integer 9"},
        {"2 * (3 + 4)", "integer 14"},
        {"(1 << 2) + 1", "integer 5"},
        {"6 & (3 | 8)", "integer 2"},
        {"((((5))))", "integer 5"},
        {"((1 + 2) * (3 + 4)) << (2 - 1)", "integer 42"},
    };
    for (const Value& c : cases)
        EXPECT_EQ(ResultOf(std::string("x = ") + c.expression, "x"), c.expected) << c.expression;
}

TEST(ExpressionParser, EveryLevelIsLeftAssociative) {
    const Value cases[] = {
        {"7 - 2 - 1", "integer 4"},
        {"7 - 2 + 1", "integer 6"},
        {"100 / 10 / 5", "integer 2"},
        {"100 / 10 * 2", "integer 20"},
        {"100 * 3 / 7", "integer 42"},
        {"1 << 2 << 3", "integer 32"},
        {"256 >> 2 << 1", "integer 128"},
        {"256 >> 4 >> 1", "integer 8"},
        {"1 | 2 | 4", "integer 7"},
        {"7 & 6 & 12", "integer 4"},
        {"\"a\" + \"b\" + \"c\"", "text \"abc\""},
    };
    for (const Value& c : cases)
        EXPECT_EQ(ResultOf(std::string("x = ") + c.expression, "x"), c.expected) << c.expression;
}

TEST(ExpressionParser, EachOperationIsAStatementBeforeTheOneThatNeedsIt) {
    const struct {
        const char* source;
        const char* listing;
    } cases[] = {
        {"x = 5", "0 L1 assign\n"},
        {"x = a", "0 L1 assign\n"},
        {"x = (((a)))", "0 L1 assign\n"},
        {"x = a[b[c]][2]", "0 L1 assign\n"},
        {"x = 1 + 2 * 3", "0 L1 operate, operate, assign\n"},
        {"x = (1 + 2) * (3 + 4)", "0 L1 operate, operate, operate, assign\n"},
        {"x = a-1", "0 L1 operate, assign\n"},
        {"x = test.value(1)", "0 L1 call, assign\n"},
        {"test.target(1) = 1 + 2", "0 L1 operate, call\n"},
        // All of them belong to the line on which the statement begins.
        {"\nx /*\n*/ = 1 /*\n*/ + /*\n*/ 2 * /*\n*/ 3\ny = 1",
         "0 L2 operate, operate, assign\n1 L7 assign\n"},
    };
    for (const auto& c : cases) {
        CompiledMacro macro;
        EXPECT_EQ(macro.Compile(c.source), Lines{}) << c.source;
        EXPECT_EQ(macro.Listing(), c.listing) << c.source;
    }
}

TEST(ExpressionParser, LiteralsKeepTheirKindAndValue) {
    const Value cases[] = {
        {"0", "integer 0"},
        {"2147483647", "integer 2147483647"},
        {"2147483648", "integer -2147483648"},
        {"4294967295", "integer -1"},
        {"-1", "integer -1"},
        {"-2147483648", "integer -2147483648"},
        {"0x10", "integer 16"},
        {"0xFFFFFFFF", "integer -1"},
        {"1.", "floating 1"},
        {"-2.5", "floating -2.5"},
        {"0.1", "floating 0.1"},
        {R"("")", R"(text "")"},
        {R"("a b")", R"(text "a b")"},
        {R"("5")", R"(text "5")"},
        {R"("a\"b")", R"(text "a"b")"},
        {R"("\"")", R"(text """)"},
        {R"("a\\b\n")", R"(text "a\\b\n")"},
        {R"("\\")", R"(text "\\")"},
    };
    for (const Value& c : cases)
        EXPECT_EQ(ResultOf(std::string("x = ") + c.expression, "x"), c.expected) << c.expression;
}

TEST(ExpressionParser, VariablesAreNamesWithCaseAndAnySubscripts) {
    const struct {
        const char* source;
        const char* x;
    } cases[] = {
        {"a = 1\nA = 2\nx = a", "integer 1"},
        {"_a = 1\n__ = 2\nx = _a + __", "integer 3"},
        {"exist = 1\nx = exist", "integer 1"},
        {"x[2] = 5", "[integer 0, integer 0, integer 5]"},
        {"i = 1\nx[i] = 5", "[integer 0, integer 5]"},
        {"a[1] = 7\nx = a[1]", "integer 7"},
        {"a[1] = 7\ni = 1\nx = a[i]", "integer 7"},
        {"b[2] = 1\na[1] = 7\nx = a[b[2]]", "integer 7"},
        {"b[2] = 1\nc[0] = 2\na[1] = 7\nx = a[b[c[0]]]", "integer 7"},
        {"a[0][1] = 7\nx = a[0][1]", "integer 7"},
        {"i = 1\na[0][1][0] = 7\nx = a[0][i][0]", "integer 7"},
        {"x[0x1] = 2", "[integer 0, integer 2]"},
        {"a [ 0 ] = 7\nx = a [ 0 ]", "integer 7"},
        {"a[0] = 3\nx = a[0] * a[0] + a[0]", "integer 12"},
        {"a[0] = 3\na[1] = 4\nx = (a[0]) - (a[1])", "integer -1"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ResultOf(c.source, "x"), c.x) << c.source;
}

TEST(ExpressionParser, ANegativeNumberWhereAnOperatorIsExpectedIsSubtracted) {
    const Value cases[] = {
        {"a-1", "integer 9"},
        {"a -1", "integer 9"},
        {"a- 1", "integer 9"},
        {"a - 1", "integer 9"},
        {"a - -1", "integer 11"},
        {"a--1", "integer 11"},
        {"5-3", "integer 2"},
        {"-5-3", "integer -8"},
        {"-5 -3 -2", "integer -10"},
        {"b[0]-2", "integer 5"},
        {"b[i]-2", "integer 5"},
        {"(a)-1", "integer 9"},
        {"(a-1)-(2-1)", "integer 8"},
        {"0x10-1", "integer 15"},
        {"a-1.5", "integer 9"},
        {"1.5-1", "floating 0.5"},
        {"1.5-0.25", "floating 1.25"},
        {"a-2147483648", "integer -2147483638"},
        {"a-4294967295", "integer 11"},
        // With the precedence of "-".
        {"a-1*2", "integer 8"},
        {"a*2-1", "integer 19"},
        {"a-1-1", "integer 8"},
        {"a-1+1", "integer 10"},
        {"a+2-1", "integer 11"},
        {"a-6/2", "integer 7"},
        {"1<<3-1", "integer 4"},
        {"7&5-1", "integer 4"},
        {"2|8-4", "integer 6"},
        {"a-1<<1", "integer 18"},
        // Where an operand is expected it is a number.
        {"-1", "integer -1"},
        {"(-1)", "integer -1"},
        {"a * -1", "integer -10"},
        {"a*-1", "integer -10"},
        {"a + -1", "integer 9"},
        {"2 | -8", "integer -6"},
    };
    for (const Value& c : cases) {
        EXPECT_EQ(ResultOf(std::string("a = 10\ni = 0\nb[0] = 7\nx = ") + c.expression, "x"), c.expected)
            << c.expression;
    }
}

TEST(ExpressionParser, NoOperatorStandsBeforeAnOperand) {
    const struct {
        const char* expression;
        const char* token;
    } cases[] = {{"- 1", "-"},  {"-a", "-"},      {"+1", "+"},     {"+ a", "+"},
                 {"!a", "!"},   {"1 + - 1", "-"}, {"1 * -a", "-"}, {"1 + + 1", "+"},
                 {"-(1)", "-"}, {"-.5", "-"},     {".5", "."}};
    for (const auto& c : cases) {
        EXPECT_EQ(ErrorsOf(std::string("x = ") + c.expression + "\n"),
                  Lines{std::string("main.mac(1): error : syntax error '") + c.token +
                        "'. Can't find Variable or value."})
            << c.expression;
    }
}

TEST(ExpressionParser, AMissingOperandIsReportedWithTheTokenInItsPlace) {
    const struct {
        const char* source;
        const char* line;
    } cases[] = {
        {"x =\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"x =\r\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"x =\ry = 1", "main.mac(1): error : syntax error '<EOL>'"},
        {"x =", "main.mac(1): error : syntax error '<EOF>'"},
        {"\n\nx = // nothing\n", "main.mac(4): error : syntax error '<EOL>'"},
        {"x = 1 +\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"x = 1 <<", "main.mac(1): error : syntax error '<EOF>'"},
        {"x = (\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"x = ()\n", "main.mac(1): error : syntax error ')'"},
        {"x = (1 + )\n", "main.mac(1): error : syntax error ')'"},
        {"x = 1 + * 2\n", "main.mac(1): error : syntax error '*'"},
        {"x = = 1\n", "main.mac(1): error : syntax error '='"},
        {"x = if\n", "main.mac(1): error : syntax error 'if'"},
        {"x = endloop\n", "main.mac(1): error : syntax error 'endloop'"},
        {"x = #define\n", "main.mac(1): error : syntax error '#define'"},
        {"x = [1]\n", "main.mac(1): error : syntax error '['"},
        {"x = , 1\n", "main.mac(1): error : syntax error ','"},
        {"x = /*\n*/ ;\n", "main.mac(2): error : syntax error ';'"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ErrorsOf(c.source), Lines{std::string(c.line) + ". Can't find Variable or value."})
            << c.source;
}

TEST(ExpressionParser, WhatMayNotFollowAnOperandIsASyntaxErrorOnIt) {
    const struct {
        const char* source;
        const char* line;
    } cases[] = {
        {"x = 1 2\n", "main.mac(1): error : syntax error '2'"},
        {"x = 1 a\n", "main.mac(1): error : syntax error 'a'"},
        {"x = a \"b\"\n", "main.mac(1): error : syntax error '\"b\"'"},
        {"x = a 1.5\n", "main.mac(1): error : syntax error '1.5'"},
        {"x = 1 == 2\n", "main.mac(1): error : syntax error '=='"},
        {"x = 1 < 2\n", "main.mac(1): error : syntax error '<'"},
        {"x = a && b\n", "main.mac(1): error : syntax error '&&'"},
        {"x = a || b\n", "main.mac(1): error : syntax error '||'"},
        {"x = a, b\n", "main.mac(1): error : syntax error ','"},
        {"x = a = b\n", "main.mac(1): error : syntax error '='"},
        {"x = a]\n", "main.mac(1): error : syntax error ']'"},
        {"x = 5[1]\n", "main.mac(1): error : syntax error '['"},
        {"x = (a)[1]\n", "main.mac(1): error : syntax error '['"},
        {"x = a (b)\n", "main.mac(1): error : syntax error '('"},
        {"x = (1) (2)\n", "main.mac(1): error : syntax error '('"},
        {"x = 1 if\n", "main.mac(1): error : syntax error 'if'"},
        {"x = 1 include\n", "main.mac(1): error : syntax error 'include'"},
        {"x = 1 #endif\n", "main.mac(1): error : syntax error '#endif'"},
        {"x = 1;\n", "main.mac(1): error : syntax error ';'"},
        {"x = 1 string\n", "main.mac(1): error : syntax error 'string'"},
        {"x = a ! b\n", "main.mac(1): error : syntax error '!'"},
        {"x = 5 % 3\n", "main.mac(1): error : syntax error '%'"},
        {"x = 1 + 2 3 + 4\n", "main.mac(1): error : syntax error '3'"},
        {"x = 1e5\n", "main.mac(1): error : syntax error 'e5'"},
        {"x = 1.2.3\n", "main.mac(1): error : syntax error '.'"},
        {"x = \"a\".b\n", "main.mac(1): error : syntax error '.'"},
        {"x = a[0].b\n", "main.mac(1): error : syntax error '.'"},
        {"x = a-0x10\n", "main.mac(1): error : syntax error 'x10'"},
        // An opening parenthesis needs a closing one, and the other way round.
        {"x = (1\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"x = (1", "main.mac(1): error : syntax error '<EOF>'"},
        {"x = ((1)\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"x = 1)\n", "main.mac(1): error : syntax error ')'"},
        {"x = (1))\n", "main.mac(1): error : syntax error ')'"},
        {"x = 1 + 2) * 3\n", "main.mac(1): error : syntax error ')'"},
        {"x = (1, 2)\n", "main.mac(1): error : syntax error ','"},
        {"x = (1 == 1)\n", "main.mac(1): error : syntax error '=='"},
        {"x = (1 2)\n", "main.mac(1): error : syntax error '2'"},
        // The line is that of the token.
        {"\nx = 1 /*\n\n*/ 2\n", "main.mac(4): error : syntax error '2'"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ErrorsOf(c.source), Lines{c.line}) << c.source;
}

TEST(ExpressionParser, ASubscriptIsOneOperand) {
    const struct {
        const char* source;
        const char* line;
    } cases[] = {
        {"x = a[i + 1]\n", "main.mac(1): error : syntax error '+'"},
        {"a[i + 1] = 1\n", "main.mac(1): error : syntax error '+'"},
        {"x = a[i * 2]\n", "main.mac(1): error : syntax error '*'"},
        {"x = a[i-1]\n", "main.mac(1): error : syntax error '-1'"},
        {"x = a[i -1]\n", "main.mac(1): error : syntax error '-1'"},
        {"x = a[1 2]\n", "main.mac(1): error : syntax error '2'"},
        {"x = a[1, 2]\n", "main.mac(1): error : syntax error ','"},
        {"x = a[1)\n", "main.mac(1): error : syntax error ')'"},
        {"x = a[1\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"x = a[1", "main.mac(1): error : syntax error '<EOF>'"},
        {"x = a[b[1]\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"x = a[i.j]\n", "main.mac(1): error : syntax error '.'"},
        {"x = a[]\n", "main.mac(1): error : syntax error ']'. Can't find Variable or value."},
        {"x = a[\n", "main.mac(2): error : syntax error '<EOL>'. Can't find Variable or value."},
        {"x = a[", "main.mac(1): error : syntax error '<EOF>'. Can't find Variable or value."},
        {"x = a[(1)]\n", "main.mac(1): error : syntax error '('. Can't find Variable or value."},
        {"x = a[- 1]\n", "main.mac(1): error : syntax error '-'. Can't find Variable or value."},
        {"x = a[string]\n", "main.mac(1): error : syntax error 'string'. Can't find Variable or value."},
        {"a[test.value()] = 1\n", "main.mac(1): error : syntax error 'test'. Can't find Variable or value."},
        {"x = a[1]]\n", "main.mac(1): error : syntax error ']'"},
        {"a[1]] = 1\n", "main.mac(1): error : syntax error ']'"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ErrorsOf(c.source), Lines{c.line}) << c.source;
}

TEST(ExpressionParser, ARealOrATextAsASubscriptIsRefusedWithoutALine) {
    for (const char* source : {"x = a[1.5]\n", "x = a[1.]\n", "x = a[\"1\"]\n", "a[1.5] = 1\n",
                               "a[\"\"] = 1\n", "x = a[0][1.5]\n", "x = a[b[1.5]]\n", "x = 1 + (a[\"x\"])\n",
                               "test.plain(a[1.5])\n", "if a[1.5] == 1\n", "a[1.5][0] = 1\n"}) {
        EXPECT_EQ(ErrorsOf(source), Lines{"refused"}) << source;
    }
    // The bracket that is missing is found first.
    EXPECT_EQ(ErrorsOf("x = a[1.5 + 1]\n"), Lines{"main.mac(1): error : syntax error '+'"});
    // An element that can't exist is a matter of the run.
    EXPECT_EQ(ErrorsOf("x = a[-1]\n"), Lines{});
}

TEST(ExpressionParser, ANameBeforeAPointThatIsNoCategoryIsReported) {
    const struct {
        const char* source;
        const char* line;
    } cases[] = {
        {"x = a.b\n", "main.mac(1): error : \"a\" is not category operand."},
        {"x = a.b(1)\n", "main.mac(1): error : \"a\" is not category operand."},
        {"x = 1 + a.b\n", "main.mac(1): error : \"a\" is not category operand."},
        {"x = (a . b)\n", "main.mac(1): error : \"a\" is not category operand."},
        {"a.b = 1\n", "main.mac(1): error : \"a\" is not category operand."},
        {"a.b()\n", "main.mac(1): error : \"a\" is not category operand."},
        {"String.format(\"\")\n", "main.mac(1): error : \"String\" is not category operand."},
        {"\nx = a /*\n*/ .b\n", "main.mac(2): error : \"a\" is not category operand."},
        {"a.\n", "main.mac(1): error : \"a\" is not category operand."},
        {"a[0].b = 1\n", "main.mac(1): error : syntax error '.'"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ErrorsOf(c.source), Lines{c.line}) << c.source;
}

TEST(ExpressionParser, ACategoryIsNoOperand) {
    const struct {
        const char* source;
        const char* line;
    } cases[] = {
        {"x = 1 + test.value()\n", "main.mac(1): error : syntax error 'test'. Can't find Variable or value."},
        {"x = (test.value())\n", "main.mac(1): error : syntax error 'test'. Can't find Variable or value."},
        {"x = 2 * (3 + string)\n",
         "main.mac(1): error : syntax error 'string'. Can't find Variable or value."},
        {"x = test.value() + 1\n", "main.mac(1): error : syntax error '+'"},
        {"x = test.value()-1\n", "main.mac(1): error : syntax error '-1'"},
        {"x = test.value())\n", "main.mac(1): error : syntax error ')'"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ErrorsOf(c.source), Lines{c.line}) << c.source;
}

TEST(ExpressionParser, ALexicalErrorStandsAlone) {
    const struct {
        const char* source;
        const char* line;
    } cases[] = {
        {"x = 4294967296\n", "main.mac(1): error : 4294967296 is out of range"},
        {"x = 1 + 0x100000000\n", "main.mac(1): error : 0x100000000 is out of range"},
        {"x = 1 4294967296\n", "main.mac(1): error : 4294967296 is out of range"},
        {"x = a[4294967296]\n", "main.mac(1): error : 4294967296 is out of range"},
        {"x = a[1 4294967296\n", "main.mac(1): error : 4294967296 is out of range"},
        {"x = (1 \x80\n", "main.mac(1): error : find invalid letter(s) in file."},
        {"x = 1 + \x80\n", "main.mac(1): error : find invalid letter(s) in file."},
        {"x \x80\n", "main.mac(1): error : find invalid letter(s) in file."},
        {"\nx = \"abc\n", "main.mac(2): error : Can't find [\"] for the end of string."},
        {"x = (\"abc\n", "main.mac(1): error : Can't find [\"] for the end of string."},
        {"x = a-4294967296\n", "main.mac(1): error : -4294967296 is out of range"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ErrorsOf(c.source), Lines{c.line}) << c.source;
}

}  // namespace
}  // namespace macroengine
