#include "runtime/SharedText.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <string>
#include <string_view>

namespace macroengine {
namespace {

struct GiveBack {
    void operator()(SharedText* text) const { text->Release(); }
};
using Held = std::unique_ptr<SharedText, GiveBack>;

Held Make(std::string_view first, std::string_view second = {}, std::size_t capacity = 0) {
    return Held(SharedText::Create(first, second, capacity));
}

TEST(SharedText, HoldsBothPartsWithANulBehindThem) {
    const struct {
        std::string first;
        std::string second;
        std::string expected;
    } cases[] = {
        {"", "", ""},
        {"a", "", "a"},
        {"", "b", "b"},
        {"ab", "cd", "abcd"},
        {std::string(5000, 'x'), std::string(3, 'y'), std::string(5000, 'x') + "yyy"},
        {std::string("a\0b", 3), std::string("\0", 1), std::string("a\0b\0", 4)},
        {"\x83\\", "\xFF", "\x83\\\xFF"},
    };
    for (const auto& c : cases) {
        const Held text = Make(c.first, c.second);
        ASSERT_EQ(text->GetUsed(), c.expected.size());
        EXPECT_EQ(std::string(text->Bytes(), text->GetUsed()), c.expected);
        EXPECT_EQ(text->Bytes()[text->GetUsed()], '\0');
    }
}

TEST(SharedText, ExtendsInPlaceAsLongAsThereIsRoom) {
    const Held text = Make("ab", "", 100);
    const char* const bytes = text->Bytes();
    std::string expected = "ab";
    while (expected.size() < 100) {
        const auto length = static_cast<std::uint32_t>(expected.size());
        ASSERT_TRUE(text->Extend(length, "x")) << length;
        expected += 'x';
        ASSERT_EQ(std::string(text->Bytes(), text->GetUsed()), expected);
        ASSERT_EQ(text->Bytes()[expected.size()], '\0');
    }
    EXPECT_EQ(text->Bytes(), bytes);
    EXPECT_FALSE(text->Extend(100, std::string(1000, 'y')));
    EXPECT_EQ(std::string(text->Bytes(), text->GetUsed()), expected);
}

TEST(SharedText, ExtendsOnlyTheLongestText) {
    const Held text = Make("abc", "", 100);
    ASSERT_TRUE(text->Extend(3, "d"));
    for (const std::uint32_t length : {0U, 1U, 3U, 5U})
        EXPECT_FALSE(text->Extend(length, "x")) << length;
    EXPECT_EQ(std::string(text->Bytes()), "abcd");
}

TEST(SharedText, ExtendsByAPartOfItself) {
    const Held text = Make("abc", "", 100);
    ASSERT_TRUE(text->Extend(3, std::string_view(text->Bytes(), 3)));
    EXPECT_STREQ(text->Bytes(), "abcabc");
    ASSERT_TRUE(text->Extend(6, std::string_view(text->Bytes() + 4, 2)));
    EXPECT_STREQ(text->Bytes(), "abcabcbc");
}

TEST(SharedText, ExtendsByNothing) {
    const Held text = Make("abc");
    EXPECT_TRUE(text->Extend(3, ""));
    EXPECT_STREQ(text->Bytes(), "abc");
}

TEST(SharedText, LivesUntilItsLastReferenceIsGivenBack) {
    SharedText* const text = SharedText::Create("abc", "", 0);
    text->AddReference();
    text->AddReference();
    text->Release();
    text->Release();
    EXPECT_STREQ(text->Bytes(), "abc");
    text->Release();
}

TEST(SharedText, RefusesATextOfFourGigabytes) {
    // Refused by its size alone: not one byte of these is read.
    const std::size_t limit = std::size_t{0xFFFFFFFF};
    const struct {
        std::size_t first;
        std::size_t second;
    } cases[] = {
        {limit, 0},     {0, limit},       {limit + 1, 0}, {limit / 2 + 1, limit / 2 + 1},
        {1, limit - 1}, {~limit, ~limit},
    };
    for (const auto& c : cases) {
        const std::string_view first("", c.first);
        const std::string_view second("", c.second);
        EXPECT_THROW(SharedText::Create(first, second, 0), std::bad_alloc) << c.first << " " << c.second;
    }
}

}  // namespace
}  // namespace macroengine
