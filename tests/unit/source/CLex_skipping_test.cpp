#include <gtest/gtest.h>
#include <string>

#include "source/CLex.h"
#include "support/TokenList.h"

namespace macroengine {
namespace {

using test::Lines;
using test::Spell;
using test::TakeLines;

/// Reads up to the end as the parsers do, each token peeked and read.
Lines ReadSkipping(CLex& lexer) {
    Lines lines;
    Token token;
    do {
        token = Token();
        const Token* const peeked = lexer.PeekTokenSkipping();
        const std::string spelt = peeked == nullptr ? "failed" : Spell(*peeked);
        if (peeked == nullptr) {
            lines.push_back(spelt);
            for (const std::string& line : TakeLines(lexer.GetErrors()))
                lines.push_back(line);
            token.text = spelt;
            continue;
        }
        EXPECT_TRUE(lexer.ReadTokenSkipping(token));
        EXPECT_EQ(Spell(token), spelt);
        lines.push_back(spelt);
    } while (!token.IsEnd());
    return lines;
}

Lines TokensOf(const std::string& text, std::uint32_t skipMask) {
    CLex lexer;
    lexer.LoadText("t.mac", text);
    lexer.GetConditionalState().skipMask = skipMask;
    return ReadSkipping(lexer);
}

TEST(CLexSkipping, AFreshLexerIsOutsideAnyCondition) {
    CLex lexer;
    EXPECT_EQ(lexer.GetConditionalState().skipMask, 0U);
    EXPECT_EQ(lexer.GetConditionalState().takenMask, 0U);
    EXPECT_EQ(lexer.GetConditionalState().depth, -1);
}

TEST(CLexSkipping, NothingIsPassedOverWhileTheMaskIsClear) {
    EXPECT_EQ(TokensOf("a \"b\" _c 5\n#if", 0),
              (Lines{"1: word a", "1: string \"b\"", "1: operator _c", "1: integer 5 = 5", "2: operator \\n",
                     "2: directive #if", "2: end"}));
}

TEST(CLexSkipping, OnlyLineEndsDirectivesAndTheEndAreSeenWhileAnyBitIsSet) {
    for (const std::uint32_t mask : {1U, 2U, 0x80000000U, 0xFFFFFFFFU}) {
        SCOPED_TRACE(mask);
        EXPECT_EQ(TokensOf("a \"b\" _c 5\n 1.5 ( #if exist x\r include define #anything\n b", mask),
                  (Lines{"2: operator \\n", "2: directive #if", "2: operator \\n", "2: directive include",
                         "2: directive define", "2: directive #anything", "3: operator \\n", "3: end"}));
        EXPECT_EQ(TokensOf("a b c", mask), Lines{"1: end"});
    }
}

TEST(CLexSkipping, AReadWithoutAPeekPassesOverToo) {
    CLex lexer;
    lexer.LoadText("t.mac", "a b\nc #else d");
    lexer.GetConditionalState().skipMask = 1;
    Token token;
    ASSERT_TRUE(lexer.ReadTokenSkipping(token));
    EXPECT_EQ(Spell(token), "2: operator \\n");
    ASSERT_TRUE(lexer.ReadTokenSkipping(token));
    EXPECT_EQ(Spell(token), "2: directive #else");
    lexer.GetConditionalState().skipMask = 0;
    ASSERT_TRUE(lexer.ReadTokenSkipping(token));
    EXPECT_EQ(Spell(token), "2: word d");
}

TEST(CLexSkipping, AnOrdinaryReadPassesOverNothing) {
    CLex lexer;
    lexer.LoadText("t.mac", "a #if b");
    lexer.GetConditionalState().skipMask = 1;
    EXPECT_EQ(test::ReadAll(lexer), (Lines{"1: word a", "1: directive #if", "1: word b", "1: end"}));
}

TEST(CLexSkipping, LexicalErrorsAreFoundInASkippedRegionToo) {
    EXPECT_EQ(
        TokensOf("a\n b 4294967296 c\n\"d\ne \x80 f\n", 1),
        (Lines{"2: operator \\n", "failed", "t.mac(2): error : 4294967296 is out of range", "3: operator \\n",
               "failed", "t.mac(3): error : Can't find [\"] for the end of string.", "4: operator \\n",
               "failed", "t.mac(4): error : find invalid letter(s) in file.", "4: end"}));
}

TEST(CLexSkipping, MacrosAreReplacedInASkippedRegion) {
    CLex lexer;
    ASSERT_TRUE(lexer.DefineMacro("ELSE", {"x", "#else", "y"}, 1));
    lexer.LoadText("t.mac", "a ELSE b");
    lexer.GetConditionalState().skipMask = 1;
    EXPECT_EQ(ReadSkipping(lexer), (Lines{"1: directive #else", "1: end"}));
}

}  // namespace
}  // namespace macroengine
