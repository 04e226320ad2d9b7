#include <gtest/gtest.h>
#include <string>

#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::ErrorsOf;
using test::Lines;

/// Compiles and runs. @return the calls that were made, or the lines that were reported.
Lines CallsOf(const std::string& text) {
    CompiledMacro macro;
    Lines lines = macro.Compile(text);
    if (lines.empty()) lines = macro.Run();
    return lines.empty() ? macro.GetCalls() : lines;
}

struct Call {
    const char* source;
    Lines calls;
};

TEST(CallParser, ACallIsAStatementOfItsOwn) {
    const Call cases[] = {
        {"test.plain()", {"test.plain()"}},
        {"test.plain(1)\n", {"test.plain(integer 1)"}},
        {"test.plain(1, -2.5, \"x y\", 0xFF)",
         {"test.plain(integer 1, floating -2.5, text \"x y\", integer 255)"}},
        {"test . plain ( 1 , 2 )", {"test.plain(integer 1, integer 2)"}},
        {"test.plain(1, /* two\nlines */ 2)", {"test.plain(integer 1, integer 2)"}},
        // Without parentheses there are no arguments.
        {"test.plain", {"test.plain()"}},
        {"test.plain\ntest.value\n", {"test.plain()", "test.value()"}},
        // Whatever a command may be assigned to or from, it may stand alone.
        {"test.value()\ntest.target()\ntest.both()", {"test.value()", "test.target()", "test.both()"}},
        // A category that is called without the command's name.
        {"bare", {"bare.bare()"}},
        {"bare()", {"bare.bare()"}},
        {"bare(1)", {"bare.bare(integer 1)"}},
        {"bare.bare(1)", {"bare.bare(integer 1)"}},
    };
    for (const Call& c : cases)
        EXPECT_EQ(CallsOf(c.source), c.calls) << c.source;
}

TEST(CallParser, AnArgumentIsAnOperand) {
    const Call cases[] = {
        {"a = 5\ntest.plain(a)", {"test.plain(integer 5)"}},
        {"a = 5\ntest.plain(a, a)\na = 6\ntest.plain(a)",
         {"test.plain(integer 5, integer 5)", "test.plain(integer 6)"}},
        {"a[0] = 1\na[1] = 2\ni = 1\ntest.plain(a[0], a[i])", {"test.plain(integer 1, integer 2)"}},
        {"a[0][2] = 7\nb[0] = 2\ntest.plain(a[0][b[0]])", {"test.plain(integer 7)"}},
        {"test.plain(\"a\\\"b\")", {"test.plain(text \"a\"b\")"}},
        {"a[0] = 1\ntest.plain(a)", {"test.plain(type 6)"}},
    };
    for (const Call& c : cases)
        EXPECT_EQ(CallsOf(c.source), c.calls) << c.source;
}

TEST(CallParser, ACallMayBeTheWholeSourceOfAnAssignment) {
    CompiledMacro macro;
    ASSERT_EQ(macro.Compile("x = test.value(1)\ny = test.both\nz[1] = test.value()\n"), Lines{});
    EXPECT_EQ(macro.Listing(), "0 L1 call, assign\n1 L2 call, assign\n2 L3 call, assign\n");
    ASSERT_EQ(macro.Run(), Lines{});
    EXPECT_EQ(macro.GetCalls(), (Lines{"test.value(integer 1)", "test.both()", "test.value()"}));
    EXPECT_EQ(macro.ValueOf("x"), "integer 1");
    EXPECT_EQ(macro.ValueOf("y"), "integer 2");
    EXPECT_EQ(macro.ValueOf("z"), "[integer 0, integer 3]");
}

TEST(CallParser, AnExpressionMayBeAssignedToACall) {
    const Call cases[] = {
        {"test.target() = 5", {"test.target() = 5"}},
        {"test.target = 5", {"test.target() = 5"}},
        {"test.target(1, \"b\") = 1 + 2 * 3", {"test.target(integer 1, text \"b\") = 7"}},
        {"a = 4\ntest.both(a) = a-1", {"test.both(integer 4) = 3"}},
        {"test.both() = (2 + 3) * 2", {"test.both() = 10"}},
        {"bare(1) = 2", {"bare.bare(integer 1) = 2"}},
        {"bare = 2", {"bare.bare() = 2"}},
    };
    for (const Call& c : cases)
        EXPECT_EQ(CallsOf(c.source), c.calls) << c.source;
}

TEST(CallParser, ACallMustBeAllowedOnItsSideOfTheAssignment) {
    const struct {
        const char* source;
        const char* line;
    } cases[] = {
        {"test.plain() = 1\n",
         "main.mac(1): error : syntax error (test.plain() can't use assign destination.)"},
        {"test.value = 1\n",
         "main.mac(1): error : syntax error (test.value() can't use assign destination.)"},
        {"test.value(1, 2) = 1\n",
         "main.mac(1): error : syntax error (test.value() can't use assign destination.)"},
        {"string.format(\"\") = 1\n",
         "main.mac(1): error : syntax error (string.format() can't use assign destination.)"},
        {"wait_ms(1) = 1\n",
         "main.mac(1): error : syntax error (wait_ms.wait_ms() can't use assign destination.)"},
        {"x = test.plain()\n", "main.mac(1): error : syntax error (test.plain() can't use assign source.)"},
        {"x = test.target(1)\n",
         "main.mac(1): error : syntax error (test.target() can't use assign source.)"},
        {"x[0] = test.target\n",
         "main.mac(1): error : syntax error (test.target() can't use assign source.)"},
        {"x = bare(1)\n", "main.mac(1): error : syntax error (bare.bare() can't use assign source.)"},
        {"x = bare.bare(1)\n", "main.mac(1): error : syntax error (bare.bare() can't use assign source.)"},
        {"x = wait_ms(1)\n",
         "main.mac(1): error : syntax error (wait_ms.wait_ms() can't use assign source.)"},
        // The line is that of the token.
        {"\ntest.value /*\n*/ = 1\n",
         "main.mac(3): error : syntax error (test.value() can't use assign destination.)"},
        {"\nx = /*\n*/ test.plain()\n",
         "main.mac(3): error : syntax error (test.plain() can't use assign source.)"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ErrorsOf(c.source), Lines{c.line}) << c.source;
}

TEST(CallParser, AnyProviderMayAllowTheSide) {
    CompiledMacro macro;
    macro.AddCommand("shared", "read", false, false, false, "one");
    EXPECT_EQ(macro.Compile("x = shared.read()\n"),
              Lines{"main.mac(1): error : syntax error (shared.read() can't use assign source.)"});
    macro.AddCommand("shared", "read", true, false, false, "two");
    EXPECT_EQ(macro.Compile("x = shared.read()\n"), Lines{});
    EXPECT_EQ(macro.Compile("shared.read() = 1\n"),
              Lines{"main.mac(1): error : syntax error (shared.read() can't use assign destination.)"});
}

TEST(CallParser, TheCommandMustBeOneOfItsCategory) {
    const struct {
        const char* source;
        const char* line;
    } cases[] = {
        {"test.nothing()\n", "main.mac(1): error : \"nothing\" is not property of category(test)."},
        {"test.nothing\n", "main.mac(1): error : \"nothing\" is not property of category(test)."},
        {"test.nothing() = 1\n", "main.mac(1): error : \"nothing\" is not property of category(test)."},
        {"x = test.nothing(1)\n", "main.mac(1): error : \"nothing\" is not property of category(test)."},
        {"test.Plain()\n", "main.mac(1): error : \"Plain\" is not property of category(test)."},
        {"test._()\n", "main.mac(1): error : \"_\" is not property of category(test)."},
        {"test.test()\n", "main.mac(1): error : \"test\" is not property of category(test)."},
        {"test.loop()\n", "main.mac(1): error : \"loop\" is not property of category(test)."},
        {"string.value()\n", "main.mac(1): error : \"value\" is not property of category(string)."},
        {"bare.nothing()\n", "main.mac(1): error : \"nothing\" is not property of category(bare)."},
        {"\ntest /*\n*/ . /*\n*/ nothing\n",
         "main.mac(4): error : \"nothing\" is not property of category(test)."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ErrorsOf(c.source), Lines{c.line}) << c.source;
}

TEST(CallParser, UnexpectedTokensAreSyntaxErrors) {
    const struct {
        const char* source;
        const char* line;
    } cases[] = {
        // Behind the point stands a name.
        {"test.\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"test.", "main.mac(1): error : syntax error '<EOF>'"},
        {"x = test.\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"test.5\n", "main.mac(1): error : syntax error '5'"},
        {"test.\"plain\"()\n", "main.mac(1): error : syntax error '\"plain\"'"},
        {"test..plain()\n", "main.mac(1): error : syntax error '.'"},
        {"test.(1)\n", "main.mac(1): error : syntax error '('"},
        {"test.#if\n", "main.mac(1): error : syntax error '#if'"},
        // An argument is a name or a literal.
        {"test.plain(,)\n", "main.mac(1): error : syntax error ','"},
        {"test.plain(, 1)\n", "main.mac(1): error : syntax error ','"},
        {"test.plain(1,)\n", "main.mac(1): error : syntax error ')'"},
        {"test.plain(1,, 2)\n", "main.mac(1): error : syntax error ','"},
        {"test.plain((1))\n", "main.mac(1): error : syntax error '('"},
        {"test.plain(- 1)\n", "main.mac(1): error : syntax error '-'"},
        {"test.plain(test)\n", "main.mac(1): error : syntax error 'test'"},
        {"test.plain(1, test.value())\n", "main.mac(1): error : syntax error 'test'"},
        {"test.plain(if)\n", "main.mac(1): error : syntax error 'if'"},
        {"test.plain(!a)\n", "main.mac(1): error : syntax error '!'"},
        {"test.plain(#define)\n", "main.mac(1): error : syntax error '#define'"},
        {"test.plain(\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"test.plain(", "main.mac(1): error : syntax error '<EOF>'"},
        {"test.plain(1,\n", "main.mac(2): error : syntax error '<EOL>'"},
        // Arguments are separated by a comma and closed by a parenthesis.
        {"test.plain(1\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"test.plain(1", "main.mac(1): error : syntax error '<EOF>'"},
        {"test.plain(1 2)\n", "main.mac(1): error : syntax error '2'"},
        {"test.plain(a b)\n", "main.mac(1): error : syntax error 'b'"},
        {"test.plain(a + 1)\n", "main.mac(1): error : syntax error '+'"},
        {"test.plain(a-1)\n", "main.mac(1): error : syntax error '-1'"},
        {"test.plain(a.b)\n", "main.mac(1): error : syntax error '.'"},
        {"test.plain(a == 1)\n", "main.mac(1): error : syntax error '=='"},
        {"test.plain(a]\n", "main.mac(1): error : syntax error ']'"},
        {"test.plain(a[1)\n", "main.mac(1): error : syntax error ')'"},
        {"test.plain(a[])\n", "main.mac(1): error : syntax error ']'. Can't find Variable or value."},
        // A call is the whole of its statement or of its side.
        {"test.plain 1\n", "main.mac(1): error : syntax error '1'"},
        {"test plain()\n", "main.mac(1): error : syntax error 'plain'"},
        {"test.plain() + 1\n", "main.mac(1): error : syntax error '+'"},
        {"test.plain() == 1\n", "main.mac(1): error : syntax error '=='"},
        {"test.plain())\n", "main.mac(1): error : syntax error ')'"},
        {"test.plain()()\n", "main.mac(1): error : syntax error '('"},
        {"test.plain()[0]\n", "main.mac(1): error : syntax error '['"},
        {"test.plain().value()\n", "main.mac(1): error : syntax error '.'"},
        {"test.plain() test.plain()\n", "main.mac(1): error : syntax error 'test'"},
        {"test[0] = 1\n", "main.mac(1): error : syntax error '['"},
        {"x = test.value() y = 1\n", "main.mac(1): error : syntax error 'y'"},
        // What is assigned is an expression.
        {"test.target() =\n", "main.mac(2): error : syntax error '<EOL>'. Can't find Variable or value."},
        {"test.target() = test.value()\n",
         "main.mac(1): error : syntax error 'test'. Can't find Variable or value."},
        {"test.target() = 1 = 2\n", "main.mac(1): error : syntax error '='"},
        {"test.target() = 1)\n", "main.mac(1): error : syntax error ')'"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ErrorsOf(c.source), Lines{c.line}) << c.source;
}

TEST(CallParser, ALexicalErrorStandsAlone) {
    EXPECT_EQ(ErrorsOf("test.plain(4294967296)\n"), Lines{"main.mac(1): error : 4294967296 is out of range"});
    EXPECT_EQ(ErrorsOf("test.plain(\"a)\n"),
              Lines{"main.mac(1): error : Can't find [\"] for the end of string."});
    EXPECT_EQ(ErrorsOf("test.\x80\n"), Lines{"main.mac(1): error : find invalid letter(s) in file."});
    EXPECT_EQ(ErrorsOf("test \x80\n"), Lines{"main.mac(1): error : find invalid letter(s) in file."});
    EXPECT_EQ(ErrorsOf("test.plain(1 \x80\n"), Lines{"main.mac(1): error : find invalid letter(s) in file."});
    EXPECT_EQ(ErrorsOf("test.plain() \x80\n"), Lines{"main.mac(1): error : find invalid letter(s) in file."});
}

TEST(CallParser, ACategoryThatNeedsACommandsNameIsAMatterOfTheRun) {
    CompiledMacro macro;
    EXPECT_EQ(macro.Compile("x = 1\ntest(1)\n"), Lines{});
    EXPECT_EQ(macro.Run(), (Lines{"main.mac(2): error : Need property name for test() command.",
                                  "main.mac(2): error : run time error !"}));
    for (const char* const text : {"test = 1\n", "test(1) = 2\n", "x = test\n", "x = test(1)\n"}) {
        CompiledMacro assigning;
        EXPECT_EQ(assigning.Compile(text), Lines{}) << text;
        EXPECT_EQ(assigning.Run(), (Lines{"main.mac(1): error : Need property name for test() command.",
                                          "main.mac(1): error : run time error !"}))
            << text;
    }
}

TEST(CallParser, ACategoryWinsOverAVariableAsSoonAsItIsRegistered) {
    CompiledMacro macro;
    EXPECT_EQ(macro.Compile("later = 1\nx = later\n"), Lines{});
    macro.AddCommand("later", "on", true, true);
    EXPECT_EQ(macro.Compile("x = 1 + later\n"),
              Lines{"main.mac(1): error : syntax error 'later'. Can't find Variable or value."});
}

TEST(CallParser, ACallMayHaveThousandsOfArguments) {
    std::string source = "test.plain(0";
    std::string call = "test.plain(integer 0";
    for (int i = 1; i < 5000; ++i) {
        source += "," + std::to_string(i);
        call += ", integer " + std::to_string(i);
    }
    EXPECT_EQ(CallsOf(source + ")"), Lines{call + ")"});
}

}  // namespace
}  // namespace macroengine
