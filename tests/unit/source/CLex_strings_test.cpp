#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "source/CLex.h"
#include "support/ScopedCodePage.h"
#include "support/TokenList.h"

namespace macroengine {
namespace {

using test::Lines;
using test::ScopedCodePage;
using test::TokensOf;

/// @return the text of the string that the source consists of, quotes included.
std::string StringOf(const std::string& source) {
    CLex lexer;
    lexer.LoadText("t.mac", source);
    Token token;
    EXPECT_TRUE(lexer.ReadToken(token)) << source;
    EXPECT_EQ(token.kind, TokenKind::String) << source;
    EXPECT_TRUE(lexer.PeekToken() != nullptr && lexer.PeekToken()->IsEnd()) << source;
    return std::string(token.text);
}

TEST(CLexStrings, AnEscapedQuoteBecomesALoneQuoteAndNothingElseChanges) {
    const struct {
        const char* source;
        const char* expected;
    } cases[] = {
        {R"("")", R"("")"},
        {R"("abc")", R"("abc")"},
        {R"("a\"b")", R"("a"b")"},
        {R"("\"")", R"(""")"},
        {R"("\"\"")", R"("""")"},
        // A pair of backslashes stays a pair.
        {R"("\\")", R"("\\")"},
        {R"("a\\")", R"("a\\")"},
        {R"("a\\b\\")", R"("a\\b\\")"},
        {R"("\\\\")", R"("\\\\")"},
        {R"("\\\"")", R"("\\"")"},
        {R"("\\\\\"x")", R"("\\\\"x")"},
        {R"("\"\\\"")", R"(""\\"")"},
        // No other escape means anything.
        {R"("\n\t\x41\0\q")", R"("\n\t\x41\0\q")"},
        {R"("a\n\"b")", R"("a\n"b")"},
        {R"("// a /* b */")", R"("// a /* b */")"},
        {R"("#if 5 name")", R"("#if 5 name")"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(StringOf(c.source), c.expected) << c.source;
}

TEST(CLexStrings, AnyByteButNulAndTheLineFeedMayStandInAString) {
    std::string source = "\"";
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '\n' && byte != '"' && byte != '\\') source += static_cast<char>(byte);
    }
    source += '"';
    const ScopedCodePage codePage(0);
    EXPECT_EQ(StringOf(source), source);
}

TEST(CLexStrings, AStringBrokenByALineEndFailsOnItsLineAndReadingGoesOnAtTheLineEnd) {
    const std::string message = "t.mac(2): error : Can't find [\"] for the end of string.";
    for (const char* lineEnd : {"\n", "\r\n"}) {
        const std::string source = std::string("a") + lineEnd + "b = \"x y" + lineEnd + "c \"d\"";
        EXPECT_EQ(TokensOf(source),
                  (Lines{"1: word a", "2: operator \\n", "2: word b", "2: operator =", "failed", message,
                         "3: operator \\n", "3: word c", "3: string \"d\"", "3: end"}));
    }
}

TEST(CLexStrings, AStringWithoutAnEndFails) {
    const Lines failed = {"failed", "t.mac(1): error : Can't find [\"] for the end of string.", "1: end"};
    for (const std::string& source :
         {std::string("\""), std::string("\"abc"), std::string(R"("abc\")"), std::string(R"("abc\\\")"),
          std::string("\"a\0b\" c\nd", 9), std::string("\"a\0", 3)}) {
        SCOPED_TRACE(source);
        EXPECT_EQ(TokensOf(source), failed);
    }
}

TEST(CLexStrings, ACarriageReturnAloneDoesNotBreakAString) {
    EXPECT_EQ(TokensOf("\"a\rb\" c"), (Lines{"1: string \"a\rb\"", "1: word c", "1: end"}));
}

// The characters below: 0x83 0x5C, whose second byte is that of "\", and 0x95 0x5C, likewise.

TEST(CLexStrings, ASecondByteThatLooksLikeABackslashIsNone) {
    const ScopedCodePage codePage(932);
    const struct {
        const char* source;
        const char* expected;
    } cases[] = {
        {"\"\x83\\\"", "\"\x83\\\""},
        {"\"a\x95\\\"", "\"a\x95\\\""},
        {"\"\x83\\\x95\\\"", "\"\x83\\\x95\\\""},
        // A real backslash behind it does escape.
        {"\"\x83\\\\\"b\"", "\"\x83\\\"b\""},
        {"\"\x83\\\\\\\"", "\"\x83\\\\\\\""},
        {"\"\x83\\\\\\\\\"x\"", "\"\x83\\\\\\\"x\""},
        // And one before it makes no pair with it.
        {"\"\\\x83\\\"", "\"\\\x83\\\""},
        {"\"\\\x83\\\\\"\"", "\"\\\x83\\\"\""},
        // Half-width letters are of one byte, so the backslash behind one is a character.
        {"\"\xB1\\\"x\"", "\"\xB1\"x\""},
        {"\"\xB1\\\\\"", "\"\xB1\\\\\""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(StringOf(c.source), c.expected) << c.source;
    EXPECT_EQ(TokensOf("\"\x83\\\" \"\x83\\\\\" x"),
              (Lines{"1: string \"\x83\\\"", "failed",
                     "t.mac(1): error : Can't find [\"] for the end of string.", "1: end"}));
}

TEST(CLexStrings, WithoutDoubleByteCharactersEveryBackslashCounts) {
    const ScopedCodePage codePage(0);
    EXPECT_EQ(StringOf("\"\x83\\\"b\""), "\"\x83\"b\"");
    EXPECT_EQ(StringOf("\"\x83\\\\\""), "\"\x83\\\\\"");
    EXPECT_EQ(TokensOf("\"\x83\\\""),
              (Lines{"failed", "t.mac(1): error : Can't find [\"] for the end of string.", "1: end"}));
}

TEST(CLexStrings, EveryDoubleByteCodePageStepsOverItsCharacters) {
    for (const int page : {932, 936, 950}) {
        SCOPED_TRACE(page);
        const ScopedCodePage codePage(page);
        EXPECT_EQ(StringOf("\"\x95\\\""), "\"\x95\\\"");
        EXPECT_EQ(StringOf("\"\x95\\\\\"\""), "\"\x95\\\"\"");
    }
    // In 949 no second byte is that of "\".
    const ScopedCodePage codePage(949);
    EXPECT_EQ(StringOf("\"\x95\\\"b\""), "\"\x95\"b\"");
}

TEST(CLexStrings, CommentsMayHoldDoubleByteText) {
    const ScopedCodePage codePage(932);
    EXPECT_EQ(TokensOf("// \x83\\\na /* \x95\\ */ b"),
              (Lines{"2: operator \\n", "2: word a", "2: word b", "2: end"}));
}

}  // namespace
}  // namespace macroengine
