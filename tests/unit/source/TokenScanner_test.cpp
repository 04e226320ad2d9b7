#include "source/TokenScanner.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "support/ScopedCodePage.h"

namespace macroengine {
namespace {

using Lines = std::vector<std::string>;

/// Scans up to the end. A token is "line: text" with control characters escaped, a failure "line! message".
Lines Scan(const std::string& source) {
    const SourceText text{source};
    TokenScanner scanner;
    scanner.Start(text);
    Lines lines;
    for (;;) {
        Token token;
        token.text = "not written";
        const TokenScanner::Result result = scanner.Next(token);
        std::string line = std::to_string(scanner.GetLine());
        if (result == TokenScanner::Result::Token) {
            line += ": ";
            for (const char c : token.text)
                line += c == '\n' ? "\\n" : c == '\r' ? "\\r" : c == '\f' ? "\\f" : std::string(1, c);
        } else {
            EXPECT_EQ(token.text, "");
            line += result == TokenScanner::Result::End ? ": end" : "! " + std::string(scanner.GetFailure());
        }
        lines.push_back(line);
        if (result == TokenScanner::Result::End) return lines;
    }
}

struct Case {
    std::string source;
    Lines expected;
};

void ExpectScans(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.source);
        EXPECT_EQ(Scan(c.source), c.expected);
    }
}

constexpr const char* kInvalid = "1! find invalid letter(s) in file.";
constexpr const char* kOpenString = "1! Can't find [\"] for the end of string.";

TEST(TokenScanner, WordsAreLettersDigitsAndUnderscores) {
    ExpectScans({
        {"abc", {"1: abc", "1: end"}},
        {"aZ_09", {"1: aZ_09", "1: end"}},
        {"_", {"1: _", "1: end"}},
        {"_1a", {"1: _1a", "1: end"}},
        {"#", {"1: #", "1: end"}},
        {"#include", {"1: #include", "1: end"}},
        {"#1_a", {"1: #1_a", "1: end"}},
        {"##a", {"1: #", "1: #a", "1: end"}},
        {"a#b", {"1: a", "1: #b", "1: end"}},
        {"# if", {"1: #", "1: if", "1: end"}},
        // The point is never a part of a word.
        {"string.format", {"1: string", "1: .", "1: format", "1: end"}},
        {"a$b", {"1: a", "1: $", "1: b", "1: end"}},
    });
}

TEST(TokenScanner, NumbersAreDigitsWithASignAndAPoint) {
    ExpectScans({
        {"0", {"1: 0", "1: end"}},
        {"007", {"1: 007", "1: end"}},
        {"1.", {"1: 1.", "1: end"}},
        {"1.50", {"1: 1.50", "1: end"}},
        {"1.2.3", {"1: 1.2", "1: .", "1: 3", "1: end"}},
        {"1..2", {"1: 1.", "1: .", "1: 2", "1: end"}},
        {".5", {"1: .", "1: 5", "1: end"}},
        {"-.5", {"1: -", "1: .", "1: 5", "1: end"}},
        {"-5", {"1: -5", "1: end"}},
        {"-5.25", {"1: -5.25", "1: end"}},
        {"- 5", {"1: -", "1: 5", "1: end"}},
        {"--5", {"1: -", "1: -5", "1: end"}},
        {"+5", {"1: +", "1: 5", "1: end"}},
        // There is no exponent.
        {"1e5", {"1: 1", "1: e5", "1: end"}},
        {"1.5e-5", {"1: 1.5", "1: e", "1: -5", "1: end"}},
        {"12ab", {"1: 12", "1: ab", "1: end"}},
        // The sign belongs to the number also after a name or a value.
        {"a-1", {"1: a", "1: -1", "1: end"}},
        {"3-1", {"1: 3", "1: -1", "1: end"}},
        {"a- 1", {"1: a", "1: -", "1: 1", "1: end"}},
    });
}

TEST(TokenScanner, HexadecimalNumbersNeedADigit) {
    ExpectScans({
        {"0x1F", {"1: 0x1F", "1: end"}},
        {"0XaBcDeF09", {"1: 0XaBcDeF09", "1: end"}},
        {"0x", {"1: 0", "1: x", "1: end"}},
        {"0X", {"1: 0", "1: X", "1: end"}},
        {"0xG", {"1: 0", "1: xG", "1: end"}},
        {"0x1G", {"1: 0x1", "1: G", "1: end"}},
        {"0x1.5", {"1: 0x1", "1: .", "1: 5", "1: end"}},
        {"00x1", {"1: 00", "1: x1", "1: end"}},
        {"1x1", {"1: 1", "1: x1", "1: end"}},
        {"-0x10", {"1: -0", "1: x10", "1: end"}},
        {"0x-1", {"1: 0", "1: x", "1: -1", "1: end"}},
    });
}

TEST(TokenScanner, TwoCharacterOperatorsWinOverOne) {
    for (const char* op : {"==", "<=", ">=", "!=", "<<", ">>", "&&", "||"}) {
        const std::string text = op;
        ExpectScans({{text, {"1: " + text, "1: end"}},
                     {"a" + text + "b", {"1: a", "1: " + text, "1: b", "1: end"}},
                     {text + text, {"1: " + text, "1: " + text, "1: end"}}});
    }
    ExpectScans({
        {"===", {"1: ==", "1: =", "1: end"}},
        {"<<=", {"1: <<", "1: =", "1: end"}},
        {"<=>", {"1: <=", "1: >", "1: end"}},
        {"<>", {"1: <", "1: >", "1: end"}},
        {"=<", {"1: =", "1: <", "1: end"}},
        {"=!", {"1: =", "1: !", "1: end"}},
        {"!!", {"1: !", "1: !", "1: end"}},
        {"|&", {"1: |", "1: &", "1: end"}},
        {"&&&", {"1: &&", "1: &", "1: end"}},
        {"|||", {"1: ||", "1: |", "1: end"}},
        {"= =", {"1: =", "1: =", "1: end"}},
        {"+=", {"1: +", "1: =", "1: end"}},
        {"++", {"1: +", "1: +", "1: end"}},
        {"*=", {"1: *", "1: =", "1: end"}},
    });
}

TEST(TokenScanner, AnyOtherCharacterIsATokenOfItsOwn) {
    for (const char c : std::string("!$%&'()*+,-./:;<=>?@[\\]^`{|}~\x01\x7F\v")) {
        const std::string text(1, c);
        SCOPED_TRACE(text);
        EXPECT_EQ(Scan(text), (Lines{"1: " + text, "1: end"}));
    }
}

TEST(TokenScanner, BlanksAndTabsSeparateAndNothingElse) {
    ExpectScans({
        {"", {"1: end"}},
        {" \t  \t", {"1: end"}},
        {" a\tb ", {"1: a", "1: b", "1: end"}},
        {"a\fb", {"1: a", "1: \\f", "1: b", "1: end"}},
    });
}

TEST(TokenScanner, LineEndsAreTokensOnTheLineTheyLeadTo) {
    ExpectScans({
        {"a\nb", {"1: a", "2: \\n", "2: b", "2: end"}},
        {"a\r\nb", {"1: a", "2: \\n", "2: b", "2: end"}},
        {"a\r\n\nb\n", {"1: a", "2: \\n", "3: \\n", "3: b", "4: \\n", "4: end"}},
        {"\n\r\n", {"2: \\n", "3: \\n", "3: end"}},
        // A carriage return alone is a token and counts no line.
        {"a\rb", {"1: a", "1: \\n", "1: b", "1: end"}},
        {"\r", {"1: \\n", "1: end"}},
        {"\r\r\n", {"1: \\n", "2: \\n", "2: end"}},
        {"\n\r", {"2: \\n", "2: \\n", "2: end"}},
    });
}

TEST(TokenScanner, ABlockCommentGoesOverLineEndsAndDoesNotNest) {
    ExpectScans({
        {"a/**/b", {"1: a", "1: b", "1: end"}},
        {"a /* x\ny */ b", {"1: a", "2: b", "2: end"}},
        {"a /* x\r\ny\r\n*/ b", {"1: a", "3: b", "3: end"}},
        {"a /* \r */ b", {"1: a", "1: b", "1: end"}},
        {"/* /* */ b", {"1: b", "1: end"}},
        {"/* /* */ b */ c", {"1: b", "1: *", "1: /", "1: c", "1: end"}},
        {"/* // */ b", {"1: b", "1: end"}},
        {"/* \" */ b", {"1: b", "1: end"}},
        {"/*/ b */ c", {"1: c", "1: end"}},
        {"/***/ c", {"1: c", "1: end"}},
        {"/* ** / */ c", {"1: c", "1: end"}},
        {"/* a */ /* b\n */ c", {"2: c", "2: end"}},
        // One that stays open lasts to the end of the text.
        {"a /* b\nc\n", {"1: a", "3: end"}},
        {"a /*", {"1: a", "1: end"}},
        {"a /* *", {"1: a", "1: end"}},
    });
}

TEST(TokenScanner, ALineCommentLastsToTheLineEnd) {
    ExpectScans({
        {"a // b\nc", {"1: a", "2: \\n", "2: c", "2: end"}},
        {"a // b\r\nc", {"1: a", "2: \\n", "2: c", "2: end"}},
        {"a //", {"1: a", "1: end"}},
        {"//\n//\n", {"2: \\n", "3: \\n", "3: end"}},
        {"// /* b\nc", {"2: \\n", "2: c", "2: end"}},
        {"// // b\nc", {"2: \\n", "2: c", "2: end"}},
        {"// \" b\nc", {"2: \\n", "2: c", "2: end"}},
        // A carriage return alone does not end it.
        {"a // b\rc\nd", {"1: a", "2: \\n", "2: d", "2: end"}},
        {"a///b\nc", {"1: a", "2: \\n", "2: c", "2: end"}},
        {"a / / b", {"1: a", "1: /", "1: /", "1: b", "1: end"}},
    });
}

TEST(TokenScanner, ACommentCloserWithoutABlockCommentStopsTheSkipping) {
    ExpectScans({
        {"*/", {"1: *", "1: /", "1: end"}},
        {"a */ b", {"1: a", "1: *", "1: /", "1: b", "1: end"}},
        {"a // x */ b\nc", {"1: a", "1: *", "1: /", "1: b", "2: \\n", "2: c", "2: end"}},
        {"// x */ // y\nc", {"1: *", "1: /", "2: \\n", "2: c", "2: end"}},
        {"// x *// y\nc", {"1: *", "2: \\n", "2: c", "2: end"}},
        {"// x */* y */ z", {"1: *", "1: z", "1: end"}},
        {"/* x */*/ y", {"1: *", "1: /", "1: y", "1: end"}},
    });
}

TEST(TokenScanner, AStringRunsToTheFirstQuoteThatIsNotEscaped) {
    ExpectScans({
        {R"("")", {R"(1: "")", "1: end"}},
        {R"("a b")", {R"(1: "a b")", "1: end"}},
        {R"("a""b")", {R"(1: "a")", R"(1: "b")", "1: end"}},
        {R"("a\"b")", {R"(1: "a\"b")", "1: end"}},
        {R"("a\\")", {R"(1: "a\\")", "1: end"}},
        {R"("a\\" b)", {R"(1: "a\\")", "1: b", "1: end"}},
        {R"("a\\\"b" c)", {R"(1: "a\\\"b")", "1: c", "1: end"}},
        {R"("\\\\")", {R"(1: "\\\\")", "1: end"}},
        {R"("\n" c)", {R"(1: "\n")", "1: c", "1: end"}},
        {R"("// /* */" c)", {R"(1: "// /* */")", "1: c", "1: end"}},
        {"\"a\tb\"", {"1: \"a\tb\"", "1: end"}},
        {"\"a\rb\"", {"1: \"a\\rb\"", "1: end"}},
        {"\"\x80\xFF\"", {"1: \"\x80\xFF\"", "1: end"}},
    });
}

TEST(TokenScanner, AStringThatIsNotClosedOnItsLineFails) {
    ExpectScans({
        {"\"", {kOpenString, "1: end"}},
        {"\"abc", {kOpenString, "1: end"}},
        {R"("abc\")", {kOpenString, "1: end"}},
        {R"("abc\\\")", {kOpenString, "1: end"}},
        // The scanning goes on at the line feed.
        {"\"abc\nd", {kOpenString, "2: \\n", "2: d", "2: end"}},
        {"\"abc\r\nd", {kOpenString, "2: \\n", "2: d", "2: end"}},
        {"\"abc\\\nd\"",
         {kOpenString, "2: \\n", "2: d", "2! Can't find [\"] for the end of string.", "2: end"}},
        {"a \"b\n\"c\"", {"1: a", kOpenString, "2: \\n", "2: \"c\"", "2: end"}},
        // A NUL does not belong into a string.
        {std::string("\"ab\0c\"\nd", 8), {kOpenString, "1: end"}},
    });
}

TEST(TokenScanner, ABackslashThatIsASecondByteDoesNotEscape) {
    const std::string backslashInside = "\"\x83\\\" b";
    const std::string escaped = "\"\x83\\\\\"b\" c";
    {
        const test::ScopedCodePage codePage(932);
        ExpectScans({
            {backslashInside, {"1: \"\x83\\\"", "1: b", "1: end"}},
            {escaped, {"1: \"\x83\\\\\"b\"", "1: c", "1: end"}},
            {"\"\x83\\\x83\\\"", {"1: \"\x83\\\x83\\\"", "1: end"}},
            {"\"\\\x83\\\"", {"1: \"\\\x83\\\"", "1: end"}},
            // The first byte of a character cut off by the closing quote is one of its own.
            {"\"\x83\" b", {"1: \"\x83\"", "1: b", "1: end"}},
            // 0xB1 is a character of one byte here, and its backslash one of its own.
            {"\"\xB1\\\"", {kOpenString, "1: end"}},
            {"\"\x83", {kOpenString, "1: end"}},
        });
    }
    {
        const test::ScopedCodePage codePage(0);
        ExpectScans({
            {backslashInside, {kOpenString, "1: end"}},
            {escaped, {"1: \"\x83\\\\\"", "1: b", kOpenString, "1: end"}},
        });
    }
}

TEST(TokenScanner, AByteAbove127StandsOnlyInStringsAndComments) {
    ExpectScans({
        {"\x80", {kInvalid, "1: end"}},
        {"\xFF", {kInvalid, "1: end"}},
        {"  \x80", {kInvalid, "1: end"}},
        {"/* x */\x80", {kInvalid, "1: end"}},
        {"a\x80", {kInvalid, "1: end"}},
        {"a b\x80", {"1: a", kInvalid, "1: end"}},
        {"_\x80", {kInvalid, "1: end"}},
        {"#if\x80", {kInvalid, "1: end"}},
        {"1\x80", {"1: 1", kInvalid, "1: end"}},
        {"0x1\x80", {"1: 0x1", kInvalid, "1: end"}},
        {"=\x80", {"1: =", kInvalid, "1: end"}},
        // Nothing behind it is scanned.
        {"\x80 a\nb\n", {kInvalid, "1: end"}},
        {"a\n\x80\nb", {"1: a", "2: \\n", "2! find invalid letter(s) in file.", "2: end"}},
        {"// \x80\na", {"2: \\n", "2: a", "2: end"}},
        {"/* \x80 */ a", {"1: a", "1: end"}},
        {"\"\x80\" a", {"1: \"\x80\"", "1: a", "1: end"}},
        {"\xEF\xBB\xBF", {kInvalid, "1: end"}},
    });
}

TEST(TokenScanner, ANulEndsTheText) {
    ExpectScans({
        {std::string("\0", 1), {"1: end"}},
        {std::string("a\0b", 3), {"1: a", "1: end"}},
        {std::string("a \0b", 4), {"1: a", "1: end"}},
        {std::string("12\0003", 4), {"1: 12", "1: end"}},
        {std::string("a\n\0b", 4), {"1: a", "2: \\n", "2: end"}},
        {std::string("// a\0b\nc", 8), {"1: end"}},
        {std::string("/* a\0 */ c", 10), {"1: end"}},
        {std::string("/\0", 2), {"1: /", "1: end"}},
        {std::string("<\0", 2), {"1: <", "1: end"}},
    });
}

TEST(TokenScanner, TheEndComesAgainAndAgain) {
    const SourceText text{std::string("a\n")};
    TokenScanner scanner;
    scanner.Start(text);
    Token token;
    EXPECT_EQ(scanner.Next(token), TokenScanner::Result::Token);
    EXPECT_EQ(scanner.Next(token), TokenScanner::Result::Token);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(scanner.Next(token), TokenScanner::Result::End);
        EXPECT_EQ(token.text, "");
        EXPECT_EQ(scanner.GetLine(), 2U);
    }
}

TEST(TokenScanner, AScannerWithoutATextIsAtTheEnd) {
    TokenScanner scanner;
    Token token;
    token.text = "not written";
    EXPECT_EQ(scanner.Next(token), TokenScanner::Result::End);
    EXPECT_EQ(token.text, "");
    EXPECT_EQ(scanner.GetLine(), 1U);
}

TEST(TokenScanner, StartBeginsAnewAtLineOne) {
    const SourceText first{std::string("\n\n\"a")};
    const SourceText second{std::string("b")};
    TokenScanner scanner;
    Token token;
    scanner.Start(first);
    while (scanner.Next(token) != TokenScanner::Result::End)
        ;
    scanner.Start(second);
    EXPECT_EQ(scanner.GetLine(), 1U);
    EXPECT_EQ(scanner.GetFailure(), "");
    EXPECT_EQ(scanner.Next(token), TokenScanner::Result::Token);
    EXPECT_EQ(token.text, "b");
}

}  // namespace
}  // namespace macroengine
