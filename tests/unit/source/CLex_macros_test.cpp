#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "source/CLex.h"
#include "support/TokenList.h"

namespace macroengine {
namespace {

using test::Lines;
using test::ReadAll;
using test::Spell;
using test::TakeLines;

constexpr auto kRaw = CLex::Substitution::None;

class CLexMacros : public testing::Test {
protected:
    Lines Tokens(const std::string& text, CLex::Substitution substitution = CLex::Substitution::Macros) {
        lexer_.LoadText("t.mac", text);
        return ReadAll(lexer_, substitution);
    }

    void Define(const std::string& name, const std::vector<std::string>& body) {
        EXPECT_TRUE(lexer_.DefineMacro(name, body, 1));
    }

    CLex lexer_;
};

TEST_F(CLexMacros, ANameIsReplacedByTheTokensOfItsBody) {
    Define("ONE", {"1"});
    Define("SUM", {"(", "a", "+", "-2.5", ")"});
    Define("TEXT", {"\"a b\""});
    Define("HEX", {"0x10"});
    Define("INC", {"include"});
    Define("HASH", {"#if"});
    EXPECT_EQ(Tokens("x = ONE"), (Lines{"1: word x", "1: operator =", "1: integer 1 = 1", "1: end"}));
    // Every token carries the line of the token that it was made of.
    EXPECT_EQ(Tokens("\nSUM\nTEXT"),
              (Lines{"2: operator \\n", "2: operator (", "2: word a", "2: operator +", "2: real -2.5 = -2.5",
                     "2: operator )", "3: operator \\n", "3: string \"a b\"", "3: end"}));
    EXPECT_EQ(Tokens("HEX INC HASH"),
              (Lines{"1: integer 0x10 = 16", "1: directive include", "1: directive #if", "1: end"}));
    EXPECT_EQ(Tokens("ONES one _ONE ONE.ONE"),
              (Lines{"1: word ONES", "1: word one", "1: operator _ONE", "1: integer 1 = 1", "1: operator .",
                     "1: integer 1 = 1", "1: end"}));
}

TEST_F(CLexMacros, ANameThatBeginsWithAnUnderscoreIsReplacedToo) {
    Define("_A", {"1"});
    EXPECT_EQ(Tokens("_A"), (Lines{"1: integer 1 = 1", "1: end"}));
}

TEST_F(CLexMacros, AStringIsNeverReplaced) {
    Define("A", {"1"});
    EXPECT_EQ(Tokens("\"A\""), (Lines{"1: string \"A\"", "1: end"}));
}

TEST_F(CLexMacros, AnEmptyBodyVanishesAndReadingGoesOn) {
    Define("NOTHING", {});
    Define("ALSO", {"NOTHING"});
    EXPECT_EQ(Tokens("a NOTHING b"), (Lines{"1: word a", "1: word b", "1: end"}));
    EXPECT_EQ(Tokens("NOTHING ALSO NOTHING\nNOTHING"), (Lines{"2: operator \\n", "2: end"}));
    EXPECT_EQ(Tokens("ALSO 5"), (Lines{"1: integer 5 = 5", "1: end"}));
}

TEST_F(CLexMacros, ANameIsReplacedOnceInAScannedToken) {
    Define("A", {"B", "B"});
    Define("B", {"5"});
    Define("SELF", {"SELF", "+", "1"});
    EXPECT_EQ(Tokens("A"), (Lines{"1: integer 5 = 5", "1: word B", "1: end"}));
    EXPECT_EQ(Tokens("B B"), (Lines{"1: integer 5 = 5", "1: integer 5 = 5", "1: end"}));
    EXPECT_EQ(Tokens("SELF"), (Lines{"1: word SELF", "1: operator +", "1: integer 1 = 1", "1: end"}));
}

TEST_F(CLexMacros, ARawReadReplacesNothing) {
    Define("A", {"1"});
    EXPECT_EQ(Tokens("A B", kRaw), (Lines{"1: word A", "1: word B", "1: end"}));
}

TEST_F(CLexMacros, ATokenThatWasPeekedComesAsItWasScannedThen) {
    Define("A", {"1", "2"});
    lexer_.LoadText("t.mac", "A A A");
    ASSERT_NE(lexer_.PeekToken(), nullptr);
    Token token;
    ASSERT_TRUE(lexer_.ReadToken(token, kRaw));
    EXPECT_EQ(Spell(token), "1: integer 1 = 1");
    ASSERT_TRUE(lexer_.ReadToken(token, kRaw));
    EXPECT_EQ(Spell(token), "1: integer 2 = 2");
    ASSERT_NE(lexer_.PeekToken(kRaw), nullptr);
    ASSERT_TRUE(lexer_.ReadToken(token));
    EXPECT_EQ(Spell(token), "1: word A");
    EXPECT_EQ(ReadAll(lexer_), (Lines{"1: integer 1 = 1", "1: integer 2 = 2", "1: end"}));
}

TEST_F(CLexMacros, ANumberOutOfRangeInABodyFailsAndLeavesWhatStandsBeforeIt) {
    Define("A", {"a", "b", "4294967296", "c"});
    EXPECT_EQ(Tokens("\nA d"),
              (Lines{"2: operator \\n", "failed", "t.mac(2): error : 4294967296 is out of range", "2: word a",
                     "2: word b", "2: word d", "2: end"}));
}

TEST_F(CLexMacros, AStringInABodyIsReducedOnce) {
    lexer_.LoadText("t.mac", R"("a\\\"b")");
    Token token;
    ASSERT_TRUE(lexer_.ReadToken(token, kRaw));
    Define("A", {std::string(token.text)});
    EXPECT_EQ(Tokens("A"), (Lines{R"(1: string "a\\"b")", "1: end"}));
}

TEST_F(CLexMacros, ANegativeNumberOfABodySplitsInItsPlace) {
    Define("A", {"x", "-1", "y"});
    lexer_.LoadText("t.mac", "A z");
    Token token;
    ASSERT_TRUE(lexer_.ReadToken(token));
    ASSERT_NE(lexer_.PeekToken(), nullptr);
    lexer_.SplitNegativeNumber();
    EXPECT_EQ(ReadAll(lexer_),
              (Lines{"1: operator -", "1: integer 1 = 1", "1: word y", "1: word z", "1: end"}));
}

TEST_F(CLexMacros, DefiningANameAgainNeedsTheSameBody) {
    lexer_.LoadText("sub\\t.mac", "");
    Define("A", {"1", "2"});
    EXPECT_TRUE(lexer_.DefineMacro("A", {"1", "2"}, 3));
    EXPECT_TRUE(lexer_.GetErrors().IsEmpty());
    EXPECT_FALSE(lexer_.DefineMacro("A", {"1"}, 4));
    EXPECT_FALSE(lexer_.DefineMacro("A", {"1", "3"}, 5));
    EXPECT_FALSE(lexer_.DefineMacro("A", {}, 6));
    EXPECT_EQ(TakeLines(lexer_.GetErrors()),
              (Lines{"sub\\t.mac(4): error : redefine ( A )", "sub\\t.mac(5): error : redefine ( A )",
                     "sub\\t.mac(6): error : redefine ( A )"}));
    EXPECT_EQ(Tokens("A"), (Lines{"1: integer 1 = 1", "1: integer 2 = 2", "1: end"}));
}

TEST_F(CLexMacros, MergingTakesWhatIsMissingAndKeepsWhatIsThere) {
    CLex other;
    other.LoadText("other.mac", "");
    ASSERT_TRUE(other.DefineMacro("A", {"theirs"}, 1));
    ASSERT_TRUE(other.DefineMacro("B", {"A"}, 1));
    Define("A", {"mine"});
    lexer_.MergeMacros(other);
    EXPECT_EQ(Tokens("A B"), (Lines{"1: word mine", "1: word mine", "1: end"}));
    other.LoadText("other.mac", "A");
    EXPECT_EQ(ReadAll(other), (Lines{"1: word theirs", "1: end"}));
}

TEST_F(CLexMacros, ALexerWithoutMacrosSharesThoseOfTheOther) {
    CLex other;
    other.LoadText("other.mac", "HERE THERE");
    Define("BEFORE", {"1"});
    other.MergeMacros(lexer_);
    ASSERT_TRUE(other.DefineMacro("THERE", {"2"}, 1));
    Define("HERE", {"3"});
    EXPECT_EQ(Tokens("BEFORE THERE"), (Lines{"1: integer 1 = 1", "1: integer 2 = 2", "1: end"}));
    EXPECT_EQ(ReadAll(other), (Lines{"1: integer 3 = 3", "1: integer 2 = 2", "1: end"}));
    EXPECT_FALSE(other.DefineMacro("BEFORE", {"4"}, 7));
    EXPECT_EQ(TakeLines(other.GetErrors()), Lines{"other.mac(7): error : redefine ( BEFORE )"});
}

TEST_F(CLexMacros, SharedMacrosOutliveTheLexerThatTheyCameFrom) {
    {
        CLex other;
        ASSERT_TRUE(other.DefineMacro("A", {"a_text_that_is_too_long_to_be_kept_inside_the_string"}, 1));
        lexer_.MergeMacros(other);
    }
    EXPECT_EQ(Tokens("A"), (Lines{"1: word a_text_that_is_too_long_to_be_kept_inside_the_string", "1: end"}));
    lexer_.MergeMacros(lexer_);
    EXPECT_EQ(Tokens("A"), (Lines{"1: word a_text_that_is_too_long_to_be_kept_inside_the_string", "1: end"}));
}

}  // namespace
}  // namespace macroengine
