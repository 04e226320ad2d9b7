#include "platform/CodePage.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/ScopedCodePage.h"

namespace macroengine::platform {
namespace {

using test::ScopedCodePage;

struct ByteRange {
    int first;
    int last;
};

struct PublishedTable {
    int codePage;
    std::vector<ByteRange> leads;
    std::vector<ByteRange> trails;
};

bool Holds(const std::vector<ByteRange>& ranges, int byte) {
    for (const ByteRange& range : ranges) {
        if (byte >= range.first && byte <= range.last) return true;
    }
    return false;
}

TEST(CodePage, LengthOfEveryPairOfBytesFollowsThePublishedTables) {
    const PublishedTable tables[] = {
        {0, {}, {}},
        {932, {{0x81, 0x9F}, {0xE0, 0xFC}}, {{0x40, 0x7E}, {0x80, 0xFC}}},
        {936, {{0x81, 0xFE}}, {{0x40, 0x7E}, {0x80, 0xFE}}},
        {949, {{0x81, 0xFE}}, {{0x41, 0x5A}, {0x61, 0x7A}, {0x81, 0xFE}}},
        {950, {{0x81, 0xFE}}, {{0x40, 0x7E}, {0xA1, 0xFE}}},
    };
    for (const PublishedTable& table : tables) {
        const ScopedCodePage codePage(table.codePage);
        for (int first = 0; first < 256; ++first) {
            for (int second = 0; second < 256; ++second) {
                const char text[] = {static_cast<char>(first), static_cast<char>(second)};
                const bool isPair = Holds(table.leads, first) && Holds(table.trails, second);
                ASSERT_EQ(CharacterLength(text, text + 2), isPair ? 2U : 1U)
                    << table.codePage << ": " << first << ' ' << second;
            }
        }
    }
}

TEST(CodePage, ALeadByteAtTheEndIsACharacterOfItsOwn) {
    const ScopedCodePage codePage(932);
    const char text[] = "\x83\\";
    EXPECT_EQ(CharacterLength(text, text + 1), 1U);
    EXPECT_EQ(CharacterLength(text, text + 2), 2U);
}

TEST(CodePage, AnotherThreadMayTakeItAwayBetweenTwoLooks) {
    const ScopedCodePage codePage(0);
    const char text[] = "\x83\\";
    EXPECT_EQ(detail::DoubleByteCharacterLength(text, text + 2), 1U);
}

TEST(CodePage, TheEnvironmentVariableNamesTheActiveOne) {
    for (const int page : {932, 936, 949, 950}) {
        const ScopedCodePage codePage(page);
        EXPECT_EQ(ActiveCodePage(), page);
        EXPECT_TRUE(HasDoubleByteCharacters());
    }
    for (const int page : {0, 437, 1252, 65001}) {
        const ScopedCodePage codePage(page);
        EXPECT_EQ(ActiveCodePage(), 0);
        EXPECT_FALSE(HasDoubleByteCharacters());
    }
}

TEST(CodePage, TheSystemDecidesWithoutTheVariable) {
    const ScopedCodePage codePage(932);
    ASSERT_TRUE(SetEnvironmentText("MACROENGINE_CODEPAGE", ""));
    RefreshCodePage();
    EXPECT_EQ(ActiveCodePage(), SystemCodePage());
}

TEST(CodePage, AChangedVariableCountsFromTheNextRefreshOn) {
    const ScopedCodePage codePage(932);
    ASSERT_TRUE(SetEnvironmentText("MACROENGINE_CODEPAGE", "949"));
    EXPECT_EQ(ActiveCodePage(), 932);
    RefreshCodePage();
    EXPECT_EQ(ActiveCodePage(), 949);
}

TEST(CodePage, NumbersAreTakenExactly) {
    for (const int page : {932, 936, 949, 950})
        EXPECT_EQ(CodePageOfNumber(std::to_string(page)), page);
    for (const char* number :
         {"", "0", "93", "9320", "0932", " 932", "932 ", "cp932", "1252", "65001", "-932"}) {
        EXPECT_EQ(CodePageOfNumber(number), 0) << number;
    }
}

TEST(CodePage, CharacterSetsOfTheFourCodePagesAreKnown) {
    const struct {
        const char* name;
        int codePage;
    } cases[] = {
        {"Shift_JIS", 932}, {"SHIFT_JIS", 932},    {"Shift-JIS", 932},
        {"SJIS", 932},      {"CP932", 932},        {"Windows-31J", 932},
        {"GBK", 936},       {"gb2312", 936},       {"GB2312", 936},
        {"CP936", 936},     {"EUC-KR", 949},       {"euckr", 949},
        {"UHC", 949},       {"CP949", 949},        {"Big5", 950},
        {"BIG5", 950},      {"CP950", 950},        {"", 0},
        {"UTF-8", 0},       {"ANSI_X3.4-1968", 0}, {"ISO-8859-1", 0},
        {"EUC-JP", 0},      {"GB18030", 0},        {"BIG5X", 0},
        {"CP1252", 0},      {"XGBK", 0},           {"{GBK}", 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CodePageOfCharacterSet(c.name), c.codePage) << c.name;
}

}  // namespace
}  // namespace macroengine::platform
