#include <cstddef>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <string_view>

#include "source/CLex.h"
#include "support/ScopedCodePage.h"
#include "support/TokenList.h"

namespace macroengine {
namespace {

using test::Lines;
using test::ReadAll;
using test::TokensOf;

constexpr std::size_t kHuge = 50U << 20;

/// Spells the tokens of a text with one long run of a character, which is shortened to one.
Lines ShortTokensOf(const std::string& text, char c) {
    Lines lines = TokensOf(text);
    for (std::string& line : lines) {
        const std::size_t at = line.find(std::string(1000, c));
        if (at == std::string::npos) continue;
        const std::size_t end = line.find_first_not_of(c, at);
        line.erase(at, (end == std::string::npos ? line.size() : end) - at - 1);
    }
    return lines;
}

TEST(CLexHostile, OneLineMayHoldFiftyMegabytes) {
    EXPECT_EQ(ShortTokensOf("x = \"" + std::string(kHuge, 'y') + "\"\n", 'y'),
              (Lines{"1: word x", "1: operator =", "1: string \"y\"", "2: operator \\n", "2: end"}));
    EXPECT_EQ(ShortTokensOf(std::string(kHuge, 'w'), 'w'), (Lines{"1: word w", "1: end"}));
    EXPECT_EQ(TokensOf("a" + std::string(kHuge, ' ') + "b"), (Lines{"1: word a", "1: word b", "1: end"}));
    EXPECT_EQ(TokensOf("//" + std::string(kHuge, 'x') + "\nb"),
              (Lines{"2: operator \\n", "2: word b", "2: end"}));
}

TEST(CLexHostile, ANumberMayHaveMillionsOfDigits) {
    constexpr std::size_t kDigits = 4U << 20;
    EXPECT_EQ(ShortTokensOf(std::string(kDigits, '7') + " a", '7'),
              (Lines{"failed", "t.mac(1): error : 7 is out of range", "1: word a", "1: end"}));
    EXPECT_EQ(ShortTokensOf(std::string(kDigits, '0') + "1 a", '0'),
              (Lines{"1: integer 01 = 1", "1: word a", "1: end"}));
    EXPECT_EQ(ShortTokensOf("0." + std::string(kDigits, '3') + " a", '3'),
              (Lines{"1: real 0.3 = 0.3333333333333333", "1: word a", "1: end"}));
}

TEST(CLexHostile, AStringMayBeMadeOfEscapesAlone) {
    std::string source = "\"";
    std::string expected = "1: string \"";
    for (int i = 0; i < 500000; ++i) {
        source += "\\\"";
        expected += '"';
    }
    EXPECT_EQ(TokensOf(source + "\""), (Lines{expected + "\"", "1: end"}));
    EXPECT_EQ(TokensOf(source),
              (Lines{"failed", "t.mac(1): error : Can't find [\"] for the end of string.", "1: end"}));
}

TEST(CLexHostile, MillionsOfLineEndsAreCounted) {
    CLex lexer;
    lexer.LoadText("t.mac", "/*" + std::string(3000000, '\n') + "*/ \x80");
    EXPECT_EQ(ReadAll(lexer),
              (Lines{"failed", "t.mac(3000001): error : find invalid letter(s) in file.", "3000001: end"}));
}

/// Reads random bytes to the end. The alphabet holds what the scanner treats specially more often than chance
/// would.
void ReadRandomText(std::minstd_rand& random, bool anyByte) {
    static constexpr std::string_view kSpecial = "\"\"\\/*//\n\r\n#_-.0x19aFz \t<=>!&|\x83\x5C\x95";
    std::string text;
    const std::size_t length = random() % 300;
    for (std::size_t i = 0; i < length; ++i) {
        const std::size_t chosen = random() >> 8;
        text += anyByte && chosen % 4 == 0 ? static_cast<char>(chosen >> 4 & 0xFF)
                                           : kSpecial[(chosen >> 4) % kSpecial.size()];
    }
    CLex lexer;
    ASSERT_TRUE(lexer.DefineMacro("a", {"z", "\"x\"", "a"}, 1));
    lexer.LoadText("t.mac", text);
    // At the worst each byte is a token, and each macro three.
    const Lines lines = ReadAll(lexer);
    EXPECT_LE(lines.size(), 3 * length + 2);
    EXPECT_EQ(lines.back(), std::to_string(lexer.GetLine()) + ": end");
}

TEST(CLexHostile, RandomBytesAreReadToTheEnd) {
    std::minstd_rand random(4711);
    for (const int page : {0, 932}) {
        const test::ScopedCodePage codePage(page);
        for (int round = 0; round < 2000; ++round)
            ReadRandomText(random, round % 2 == 0);
    }
}

}  // namespace
}  // namespace macroengine
