#include <gtest/gtest.h>
#include <string>

#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::ErrorsOf;
using test::Lines;

/// Compiles and runs a text whose statements are assignments to the variables a to h. @return the names of
/// those that were assigned, in alphabetical order, or the lines that were reported.
std::string CompiledOf(const std::string& text) {
    CompiledMacro macro;
    std::string result;
    for (const std::string& line : macro.Compile(text))
        result += line + "\n";
    if (!result.empty()) return result;
    if (macro.GetGroupCount() == 0) return "";
    EXPECT_EQ(macro.Run(), Lines{});
    for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h"}) {
        if (macro.ValueOf(name) != "undefined") result += name;
    }
    return result;
}

struct Case {
    std::string source;
    std::string compiled;
};

void ExpectCompiled(const std::vector<Case>& cases) {
    for (const Case& c : cases)
        EXPECT_EQ(CompiledOf(c.source), c.compiled) << c.source;
}

TEST(PreprocessorIf, ExistAsksForACategoryOrOneOfItsCommands) {
    const struct {
        const char* condition;
        bool exists;
    } cases[] = {
        {"exist string", true},
        {"exist test", true},
        {"exist bare", true},
        {"exist wait_ms", true},
        {"exist string.format", true},
        {"exist test.value", true},
        {"exist test . value", true},
        {"exist bare.bare", true},
        {"exist nothing", false},
        {"exist test.nothing", false},
        {"exist nothing.value", false},
        {"exist Test", false},
        {"exist test.Value", false},
        {"exist \"test\"", false},
        {"exist 5", false},
        {"exist value", false},
        // Whatever stands between the two names is not looked at.
        {"exist test , value", true},
        {"exist test = value", true},
        {"exist test test value", true},
        {"exist test , nothing", false},
        // Comments are none of its parts.
        {"exist /* this */ test // and that", true},
    };
    for (const auto& c : cases) {
        const std::string condition = c.condition;
        EXPECT_EQ(CompiledOf("#if " + condition + "\na = 1\n#else\nb = 1\n#endif\n"), c.exists ? "a" : "b")
            << condition;
        EXPECT_EQ(
            CompiledOf("#if exist nothing\na = 1\n#elseif " + condition + "\nb = 1\n#else\nc = 1\n#endif\n"),
            c.exists ? "b" : "c")
            << condition;
    }
}

TEST(PreprocessorIf, TheCategoryIsSubstitutedAndTheRestIsNot) {
    ExpectCompiled({
        {"#define CAT test\n#if exist CAT\na = 1\n#endif", "a"},
        {"#define CAT test\n#if exist CAT.value\na = 1\n#endif", "a"},
        {"#define CAT nothing\n#if exist CAT\na = 1\n#elseif exist CAT\nb = 1\n#endif", ""},
        {"#define value nothing\n#if exist test.value\na = 1\n#endif", "a"},
        {"#define V value\n#if exist test.V\na = 1\n#endif", ""},
        {"#define exist nothing\n#if exist test\na = 1\n#endif", "a"},
        {"#define EXIST exist\n#if EXIST test\na = 1\n#endif", "main.mac(2): error : syntax error 'EXIST'\n"},
        {"#define BOTH test.value\n#if exist BOTH\na = 1\n#endif", "a"},
        {"#define BOTH test.nothing\n#if exist BOTH\na = 1\n#endif", ""},
    });
}

TEST(PreprocessorIf, TheFirstBranchThatHoldsIsCompiled) {
    const std::string yes = " exist test\n";
    const std::string no = " exist nothing\n";
    ExpectCompiled({
        {"#if" + yes + "a = 1\n#endif\nh = 1", "ah"},
        {"#if" + no + "a = 1\n#endif\nh = 1", "h"},
        {"#if" + yes + "a = 1\n#else\nb = 1\n#endif\nh = 1", "ah"},
        {"#if" + no + "a = 1\n#else\nb = 1\n#endif\nh = 1", "bh"},
        {"#if" + yes + "a = 1\n#elseif" + yes + "b = 1\n#else\nc = 1\n#endif\nh = 1", "ah"},
        {"#if" + yes + "a = 1\n#elseif" + no + "b = 1\n#else\nc = 1\n#endif\nh = 1", "ah"},
        {"#if" + no + "a = 1\n#elseif" + yes + "b = 1\n#else\nc = 1\n#endif\nh = 1", "bh"},
        {"#if" + no + "a = 1\n#elseif" + no + "b = 1\n#else\nc = 1\n#endif\nh = 1", "ch"},
        {"#if" + no + "a = 1\n#elseif" + yes + "b = 1\n#elseif" + yes + "c = 1\n#endif\nh = 1", "bh"},
        {"#if" + no + "a = 1\n#elseif" + yes + "b = 1\n#elseif" + no + "c = 1\n#else\nd = 1\n#endif\nh = 1",
         "bh"},
        // A branch that is empty is chosen all the same.
        {"#if" + yes + "#else\nb = 1\n#endif\nh = 1", "h"},
        // One block after the other begins afresh.
        {"#if" + yes + "a = 1\n#endif\n#if" + yes + "b = 1\n#else\nc = 1\n#endif", "ab"},
    });
}

TEST(PreprocessorIf, ASkippedRegionIsNotLookedAt) {
    ExpectCompiled({
        {"#if exist nothing\na = = 1\nendif ) else\n5 \"x\" loop [\nno.command()\n#endif\nh = 1", "h"},
        {"#if exist test\na = 1\n#else\n* / if\n#endif\nh = 1", "ah"},
        // Text may hold what looks like a directive.
        {"#if exist nothing\nx = \"\n", "main.mac(2): error : Can't find [\"] for the end of string.\n"},
        {"#if exist nothing\nx = \"#endif\"\n// #endif\n/*\n#endif\n*/\na = 1\n#endif\nh = 1", "h"},
        // Lexical errors are found everywhere.
        {"#if exist nothing\n4294967296\n#endif", "main.mac(2): error : 4294967296 is out of range\n"},
        {"#if exist nothing\n\x80\n#endif", "main.mac(2): error : find invalid letter(s) in file.\n"},
        // And so are words that begin with a hash and are no directives.
        {"#if exist nothing\n#other\n#endif", "main.mac(2): error : syntax error '#other'\n"},
    });
}

TEST(PreprocessorIf, BlocksNest) {
    const std::string yes = " exist test\n";
    const std::string no = " exist nothing\n";
    const auto nest = [](const std::string& outer, const std::string& inner) {
        return "#if" + outer + "a = 1\n#if" + inner +
               "b = 1\n#else\nc = 1\n#endif\nd = 1\n#else\ne = 1\n#if" + inner +
               "f = 1\n#elseif exist string\ng = 1\n#endif\n#endif\nh = 1\n";
    };
    ExpectCompiled({
        {nest(yes, yes), "abdh"},
        {nest(yes, no), "acdh"},
        {nest(no, yes), "efh"},
        {nest(no, no), "egh"},
    });
}

TEST(PreprocessorIf, DefinitionsAndInclusionsInASkippedRegionCount) {
    CompiledMacro macro;
    macro.GetFolder().Write("b.mac", "b = 1\n#define B 3\n");
    EXPECT_EQ(macro.Compile("#if exist nothing\na = 1\n#define A 2\n#include \"b.mac\"\ndefine C 4\n#endif\n"
                            "c = A\nd = B\ne = C\n"),
              Lines{});
    EXPECT_EQ(macro.Run(), Lines{});
    EXPECT_EQ(macro.ValueOf("a"), "undefined");
    EXPECT_EQ(macro.ValueOf("b"), "integer 1");
    EXPECT_EQ(macro.ValueOf("c"), "integer 2");
    EXPECT_EQ(macro.ValueOf("d"), "integer 3");
    EXPECT_EQ(macro.ValueOf("e"), "integer 4");
}

TEST(PreprocessorIf, UnexpectedTokensAreSyntaxErrors) {
    const struct {
        const char* source;
        const char* line;
    } cases[] = {
        {"#if\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"#if", "main.mac(1): error : syntax error '<EOF>'"},
        {"\n#if test\n", "main.mac(2): error : syntax error 'test'"},
        {"#if Exist test\n", "main.mac(1): error : syntax error 'Exist'"},
        {"#if \"exist\" test\n", "main.mac(1): error : syntax error '\"exist\"'"},
        {"#if ! exist test\n", "main.mac(1): error : syntax error '!'"},
        {"#if 1\n", "main.mac(1): error : syntax error '1'"},
        {"#if exist test\n#elseif\n", "main.mac(3): error : syntax error '<EOL>'"},
        {"#if exist test\n#elseif test\n", "main.mac(2): error : syntax error 'test'"},
        {"#if exist nothing\n#elseif 5\n", "main.mac(2): error : syntax error '5'"},
        // The names themselves have to be there.
        {"#if exist\na = 1\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"#if exist", "main.mac(1): error : syntax error '<EOF>'"},
        {"#if exist test.\na = 1\n", "main.mac(2): error : syntax error '<EOL>'"},
        {"#if exist test.", "main.mac(1): error : syntax error '<EOF>'"},
        // A directive ends with its line.
        {"#if exist test.value x\n", "main.mac(1): error : syntax error 'x'"},
        {"#if exist test.value.more\n", "main.mac(1): error : syntax error '.'"},
        {"#if exist test.value #endif\n", "main.mac(1): error : syntax error '#endif'"},
        {"#if exist nothing\n#else x\n", "main.mac(2): error : syntax error 'x'"},
        {"#if exist nothing\n#elseif exist test.value x\n", "main.mac(2): error : syntax error 'x'"},
        {"#if exist test\n#endif x\n", "main.mac(2): error : syntax error 'x'"},
        {"#if exist nothing\n#endif 5 6\n", "main.mac(2): error : syntax error '5'"},
        {"a = 1 #endif\n", "main.mac(1): error : syntax error '#endif'"},
        {"a = 1 #if exist test\n", "main.mac(1): error : syntax error '#if'"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ErrorsOf(c.source), Lines{c.line}) << c.source;
}

TEST(PreprocessorIf, WhatFollowsADirectiveThatBeginsASkippedRegionIsSkipped) {
    ExpectCompiled({
        {"#if exist nothing.value x y\na = 1\n#endif\nh = 1", "h"},
        {"#if exist test\na = 1\n#else x y\nb = 1\n#endif\nh = 1", "ah"},
    });
}

TEST(PreprocessorIf, ABlockMayEndWithTheFile) {
    ExpectCompiled({
        {"h = 1\n#if exist test", "h"},
        {"#if exist test\nh = 1", "h"},
        {"#if exist nothing\na = 1", ""},
        {"h = 1\n#if exist nothing\na = 1\n#if exist test\n", "h"},
        {"#if exist nothing.value", ""},
        {"#if exist test\nh = 1\n#else", "h"},
        {"#if exist test\nh = 1\n#endif", "h"},
    });
}

TEST(PreprocessorIf, DirectivesWithoutAnIfWorkOnALevelOfTheirOwn) {
    ExpectCompiled({
        {"#endif\nh = 1", "h"},
        {"#endif\n#endif\n#endif\nh = 1", "h"},
        // The first branch without an #if is taken, later ones are not.
        {"#else\na = 1\n#else\nb = 1\n#endif\nc = 1", "ac"},
        {"#elseif exist nothing\na = 1\n#elseif exist test\nb = 1\n#else\nc = 1\n#endif\nd = 1", "bd"},
        {"#else\na = 1\n#if exist test\nb = 1\n#endif\n#else\nc = 1\n#if exist test\nd = 1\n#endif\n", "ab"},
        // Below the outermost level blocks work as ever.
        {"#endif\n#if exist nothing\na = 1\n#else\nb = 1\n#endif\nc = 1", "bc"},
    });
}

std::string Nested(int levels) {
    std::string text;
    for (int i = 0; i < levels; ++i)
        text += "#if exist test\n";
    text += "a = 1\n";
    for (int i = 0; i < levels; ++i)
        text += "#endif\n";
    return text + "h = 1\n";
}

TEST(PreprocessorIf, ThirtyTwoLevelsNestAndNotOneMore) {
    const std::string refused = ": error : The nest for \"#if\" is to up to 32 times.\n";
    ExpectCompiled({
        {Nested(31), "ah"},
        {Nested(32), "ah"},
        {Nested(33), "main.mac(33)" + refused},
        {"\n\n" + Nested(100), "main.mac(35)" + refused},
        // The levels count in a skipped region too.
        {"#if exist nothing\n" + Nested(31) + "#endif\nh = 1", "h"},
        {"#if exist nothing\n" + Nested(32) + "#endif\n", "main.mac(33)" + refused},
        // Levels that are closed do not count.
        {Nested(32) + Nested(32), "ah"},
        // Nor do branches.
        {"#if exist test\n#elseif exist test\n#else\n#endif\n" + Nested(32), "ah"},
        // A level below the outermost one makes room for one more, which shares its state with the last one.
        {"#endif\n" + Nested(33), "h"},
        {"#endif\n" + Nested(34), "main.mac(35)" + refused},
    });
}

TEST(PreprocessorIf, TheInnermostOf32LevelsDecides) {
    std::string text;
    for (int i = 0; i < 31; ++i)
        text += "#if exist test\n";
    text += "#if exist nothing\na = 1\n#else\nb = 1\n#endif\nc = 1\n";
    for (int i = 0; i < 31; ++i)
        text += "#else\nd = 1\n#endif\ne = 1\n";
    EXPECT_EQ(CompiledOf(text), "bce");
}

}  // namespace
}  // namespace macroengine
