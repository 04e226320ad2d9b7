#include "source/CLex.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/TokenList.h"

namespace macroengine {
namespace {

using test::Lines;
using test::ReadAll;
using test::Spell;
using test::TakeLines;
using test::TokensOf;

struct Case {
    std::string source;
    Lines expected;
};

void ExpectTokens(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.source);
        EXPECT_EQ(TokensOf(c.source), c.expected);
    }
}

TEST(CLex, TheFirstCharacterTellsTheKind) {
    ExpectTokens({
        {"abc", {"1: word abc", "1: end"}},
        {"Z9_", {"1: word Z9_", "1: end"}},
        // A word that begins with "_" is of the kind of the operators.
        {"_abc", {"1: operator _abc", "1: end"}},
        {"_", {"1: operator _", "1: end"}},
        {"\"abc\"", {"1: string \"abc\"", "1: end"}},
        {"12", {"1: integer 12 = 12", "1: end"}},
        {"1.5", {"1: real 1.5 = 1.5", "1: end"}},
        {"<= = !", {"1: operator <=", "1: operator =", "1: operator !", "1: end"}},
        {"-", {"1: operator -", "1: end"}},
        {"\n", {"2: operator \\n", "2: end"}},
        {"if loop endif", {"1: word if", "1: word loop", "1: word endif", "1: end"}},
        {"$ \\", {"1: operator $", "1: operator \\", "1: end"}},
    });
}

TEST(CLex, DirectivesBeginWithAHashOrAreExactlyIncludeOrDefine) {
    ExpectTokens({
        {"#include #define #if #x # #1",
         {"1: directive #include", "1: directive #define", "1: directive #if", "1: directive #x",
          "1: directive #", "1: directive #1", "1: end"}},
        {"include define", {"1: directive include", "1: directive define", "1: end"}},
        {"Include DEFINE includes define_ _include",
         {"1: word Include", "1: word DEFINE", "1: word includes", "1: word define_", "1: operator _include",
          "1: end"}},
    });
}

TEST(CLex, IntegersAreUnsigned32BitPatterns) {
    ExpectTokens({
        {"0", {"1: integer 0 = 0", "1: end"}},
        {"007", {"1: integer 007 = 7", "1: end"}},
        {"2147483648", {"1: integer 2147483648 = 2147483648", "1: end"}},
        {"4294967295", {"1: integer 4294967295 = 4294967295", "1: end"}},
        {"00000000004294967295", {"1: integer 00000000004294967295 = 4294967295", "1: end"}},
        {"-1", {"1: integer -1 = 4294967295", "1: end"}},
        {"-0", {"1: integer -0 = 0", "1: end"}},
        {"-2147483648", {"1: integer -2147483648 = 2147483648", "1: end"}},
        {"-4294967295", {"1: integer -4294967295 = 1", "1: end"}},
        {"0x0", {"1: integer 0x0 = 0", "1: end"}},
        {"0xFFFFFFFF", {"1: integer 0xFFFFFFFF = 4294967295", "1: end"}},
        {"0Xffffffff", {"1: integer 0Xffffffff = 4294967295", "1: end"}},
        {"0x0000000000001", {"1: integer 0x0000000000001 = 1", "1: end"}},
        {"0xaBcD", {"1: integer 0xaBcD = 43981", "1: end"}},
    });
}

TEST(CLex, NumbersStopWhereTheirDigitsStop) {
    ExpectTokens({
        {"0x", {"1: integer 0 = 0", "1: word x", "1: end"}},
        {"0x1G", {"1: integer 0x1 = 1", "1: word G", "1: end"}},
        {"1e5", {"1: integer 1 = 1", "1: word e5", "1: end"}},
        {"-.5", {"1: operator -", "1: operator .", "1: integer 5 = 5", "1: end"}},
        {"a-1", {"1: word a", "1: integer -1 = 4294967295", "1: end"}},
        {"a - 1", {"1: word a", "1: operator -", "1: integer 1 = 1", "1: end"}},
        {"-0x1F", {"1: integer -0 = 0", "1: word x1F", "1: end"}},
    });
}

TEST(CLex, RealsAreTheNearestDoubles) {
    ExpectTokens({
        {"1.", {"1: real 1. = 1", "1: end"}},
        {"0.5", {"1: real 0.5 = 0.5", "1: end"}},
        {"-1.5", {"1: real -1.5 = -1.5", "1: end"}},
        {"0.1", {"1: real 0.1 = 0.1", "1: end"}},
        {"123456789.125", {"1: real 123456789.125 = 123456789.125", "1: end"}},
        {"9007199254740993.0", {"1: real 9007199254740993.0 = 9007199254740992", "1: end"}},
        // An integer of that size would be out of range.
        {"4294967296.0", {"1: real 4294967296.0 = 4294967296", "1: end"}},
        {"00.25", {"1: real 00.25 = 0.25", "1: end"}},
    });
}

double RealOf(const std::string& text) {
    CLex lexer;
    lexer.LoadText("t.mac", text);
    Token token;
    EXPECT_TRUE(lexer.ReadToken(token));
    EXPECT_EQ(token.kind, TokenKind::Real);
    return token.realValue;
}

TEST(CLex, ARealTooSmallToRepresentIsItsNearestValue) {
    const std::string zeros(323, '0');
    EXPECT_EQ(RealOf("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(RealOf("-0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(RealOf("0." + zeros + "5"), 5e-324);
    EXPECT_EQ(RealOf("0." + zeros + "3"), 5e-324);
    EXPECT_EQ(RealOf("0." + zeros + "2"), 0.0);
    EXPECT_EQ(RealOf("0." + std::string(309, '0') + "123"), 1.23e-310);
}

TEST(CLex, AZeroThatIsLeftOfARealKeepsItsSign) {
    const std::string tiny = "0." + std::string(400, '0') + "1";
    EXPECT_FALSE(std::signbit(RealOf(tiny)));
    EXPECT_TRUE(std::signbit(RealOf("-" + tiny)));
    EXPECT_FALSE(std::signbit(RealOf("0.0")));
    EXPECT_TRUE(std::signbit(RealOf("-0.0")));
}

TEST(CLex, ANumberOutOfRangeFailsAndReadingGoesOnBehindIt) {
    const std::string large(400, '9');
    const struct {
        std::string text;
    } cases[] = {
        {"4294967296"},
        {"-4294967296"},
        {"0x100000000"},
        {"0XFFFFFFFFF"},
        {large},
        {"-" + large},
        {large + ".0"},
        {"-" + large + ".5"},
        {large + "."},
        {"0x" + large},
        {"1" + std::string(309, '0') + ".0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(TokensOf("\na " + c.text + " b"),
                  (Lines{"2: operator \\n", "2: word a", "failed",
                         "t.mac(2): error : " + c.text + " is out of range", "2: word b", "2: end"}));
    }
}

TEST(CLex, TheLargestRealsAreInRange) {
    const std::string largest = "17976931348623157" + std::string(292, '0') + ".0";
    EXPECT_EQ(RealOf(largest), 1.7976931348623157e308);
    EXPECT_EQ(RealOf("-" + largest), -1.7976931348623157e308);
}

TEST(CLex, ATextWithoutTokensGivesTheEndOnItsLastLine) {
    ExpectTokens({
        {"", {"1: end"}},
        {" \t ", {"1: end"}},
        {"// nothing", {"1: end"}},
        {"/* a\nb\r\nc */ ", {"3: end"}},
        {"/* a\nb", {"2: end"}},
    });
}

TEST(CLex, TheEndIsAnEmptyTokenAgainAndAgain) {
    CLex lexer;
    lexer.LoadText("t.mac", "a\n");
    ReadAll(lexer);
    for (int i = 0; i < 3; ++i) {
        Token token;
        token.text = "before";
        ASSERT_TRUE(lexer.ReadToken(token));
        EXPECT_EQ(token.text, "");
        EXPECT_TRUE(token.IsEnd());
        EXPECT_FALSE(token.IsLineEnd());
        EXPECT_EQ(token.line, 2U);
        EXPECT_EQ(token.kind, TokenKind::Operator);
        const Token* const peeked = lexer.PeekToken();
        ASSERT_NE(peeked, nullptr);
        EXPECT_TRUE(peeked->IsEnd());
    }
}

TEST(CLex, AFreshTokenIsUnclassified) {
    const Token token{};
    EXPECT_EQ(token.kind, TokenKind::None);
    EXPECT_EQ(static_cast<int>(token.kind), 6);
    EXPECT_EQ(token.line, 0U);
    EXPECT_TRUE(token.IsEnd());
}

TEST(CLex, LineEndsAreGivenAsALineFeed) {
    ExpectTokens({
        {"a\nb\r\nc\rd\n",
         {"1: word a", "2: operator \\n", "2: word b", "3: operator \\n", "3: word c", "3: operator \\n",
          "3: word d", "4: operator \\n", "4: end"}},
        // A line of only a carriage return counts no line.
        {"\r", {"1: operator \\n", "1: end"}},
        {"\r\r\na", {"1: operator \\n", "2: operator \\n", "2: word a", "2: end"}},
        {"\r\n\r\n", {"2: operator \\n", "3: operator \\n", "3: end"}},
    });
    CLex lexer;
    lexer.LoadText("t.mac", "\r\r\n\n");
    for (int i = 0; i < 3; ++i) {
        Token token;
        ASSERT_TRUE(lexer.ReadToken(token));
        EXPECT_TRUE(token.IsLineEnd());
        EXPECT_EQ(token.text, "\n");
    }
}

TEST(CLex, CommentsGiveNoTokensAndLineCommentsLeaveTheLineEnd) {
    ExpectTokens({
        {"one /* x\ny */ two", {"1: word one", "2: word two", "2: end"}},
        {"one // x */ two\n",
         {"1: word one", "1: operator *", "1: operator /", "1: word two", "2: operator \\n", "2: end"}},
        {"one // x\ntwo", {"1: word one", "2: operator \\n", "2: word two", "2: end"}},
    });
}

TEST(CLex, AByteAbove127OutsideStringsAndCommentsEndsTheText) {
    const Lines failed = {"failed", "t.mac(1): error : find invalid letter(s) in file.", "1: end"};
    for (const char* text : {"\x80", " \xFF", "a\x80", "_b\x80 c\nd", "#if\x80", "\xC3\xA4 = 1\n"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(TokensOf(text), failed);
    }
    ExpectTokens({
        {"a\n\nb \x80 c\nd\n",
         {"1: word a", "2: operator \\n", "3: operator \\n", "3: word b", "failed",
          "t.mac(3): error : find invalid letter(s) in file.", "3: end"}},
        {"\"\x80\xFF\" // \x80\n/* \xFF */ a",
         {"1: string \"\x80\xFF\"", "2: operator \\n", "2: word a", "2: end"}},
    });
}

TEST(CLex, TheTextEndsAtANul) {
    ExpectTokens({
        {std::string("a\0b", 3), {"1: word a", "1: end"}},
        {std::string("\0\nb", 3), {"1: end"}},
        {std::string("a\n12\0003\n", 7), {"1: word a", "2: operator \\n", "2: integer 12 = 12", "2: end"}},
    });
}

TEST(CLex, PeekingLeavesTheToken) {
    CLex lexer;
    lexer.LoadText("t.mac", "a 5\nb");
    for (const char* expected :
         {"1: word a", "1: integer 5 = 5", "2: operator \\n", "2: word b", "2: end", "2: end"}) {
        for (int i = 0; i < 3; ++i) {
            const Token* const peeked = lexer.PeekToken();
            ASSERT_NE(peeked, nullptr);
            EXPECT_EQ(Spell(*peeked), expected);
        }
        Token token;
        ASSERT_TRUE(lexer.ReadToken(token));
        EXPECT_EQ(Spell(token), expected);
    }
    EXPECT_TRUE(lexer.GetErrors().IsEmpty());
}

TEST(CLex, APeekThatFailsReportsOnceAndReadingGoesOn) {
    CLex lexer;
    lexer.LoadText("t.mac", "4294967296 a");
    EXPECT_EQ(lexer.PeekToken(), nullptr);
    EXPECT_EQ(TakeLines(lexer.GetErrors()), Lines{"t.mac(1): error : 4294967296 is out of range"});
    EXPECT_EQ(ReadAll(lexer), (Lines{"1: word a", "1: end"}));
}

TEST(CLex, TheLineCounterRunsAheadWithAPeek) {
    CLex lexer;
    lexer.LoadText("t.mac", "a\n\nb");
    EXPECT_EQ(lexer.GetLine(), 1U);
    Token token;
    ASSERT_TRUE(lexer.ReadToken(token));
    EXPECT_EQ(lexer.GetLine(), 1U);
    ASSERT_NE(lexer.PeekToken(), nullptr);
    EXPECT_EQ(lexer.GetLine(), 2U);
}

TEST(CLex, ANegativeNumberSplitsIntoTheOperatorAndTheNumber) {
    const struct {
        const char* source;
        Lines expected;
    } cases[] = {
        {"-1 x", {"1: operator -", "1: integer 1 = 1", "1: word x", "1: end"}},
        {"-0", {"1: operator -", "1: integer 0 = 0", "1: end"}},
        {"-4294967295", {"1: operator -", "1: integer 4294967295 = 4294967295", "1: end"}},
        {"-2147483648", {"1: operator -", "1: integer 2147483648 = 2147483648", "1: end"}},
        {"-2.5", {"1: operator -", "1: real 2.5 = 2.5", "1: end"}},
        {"\n-7.", {"2: operator \\n", "2: operator -", "2: real 7. = 7", "2: end"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.source);
        CLex lexer;
        lexer.LoadText("t.mac", c.source);
        Lines lines;
        const Token* peeked = lexer.PeekToken();
        ASSERT_NE(peeked, nullptr);
        if (peeked->IsLineEnd()) {
            Token token;
            ASSERT_TRUE(lexer.ReadToken(token));
            lines.push_back(Spell(token));
            ASSERT_NE(lexer.PeekToken(), nullptr);
        }
        lexer.SplitNegativeNumber();
        for (const std::string& line : ReadAll(lexer))
            lines.push_back(line);
        EXPECT_EQ(lines, c.expected);
    }
}

TEST(CLex, ErrorsNameTheFileAsItWasGiven) {
    CLex lexer;
    lexer.LoadText("sub\\of/a.mac", "\n\n\"x");
    EXPECT_EQ(lexer.GetFilePath(), "sub\\of/a.mac");
    EXPECT_EQ(ReadAll(lexer),
              (Lines{"2: operator \\n", "3: operator \\n", "failed",
                     "sub\\of/a.mac(3): error : Can't find [\"] for the end of string.", "3: end"}));
}

TEST(CLex, ForgettingWhatWasReadLosesNothingOfTheRest) {
    std::string source;
    while (source.size() < (std::size_t{1} << 21))
        source += "name = 12 + \"a \\\" quote\" // a remark\n";
    CLex whole;
    CLex forgetful;
    whole.LoadText("a.mac", source);
    forgetful.LoadText("a.mac", source);
    Token expected;
    Token token;
    do {
        ASSERT_TRUE(whole.ReadToken(expected) && forgetful.ReadToken(token));
        ASSERT_EQ(Spell(token), Spell(expected));
        if (token.IsLineEnd()) forgetful.ForgetReadText();
    } while (!token.IsEnd());
}

TEST(CLex, APeekedTokenIsNotForgotten) {
    CLex lexer;
    lexer.LoadText("a.mac", std::string(std::size_t{1} << 21, ' ') + std::string(10000, 'n') + " = 1");
    const Token* const token = lexer.PeekToken();
    lexer.ForgetReadText();
    EXPECT_EQ(token->text, std::string(10000, 'n'));
}

}  // namespace
}  // namespace macroengine
