#include "source/MacroTable.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace macroengine {
namespace {

using Texts = std::vector<std::string>;

Texts Substitute(MacroTable& table, std::string_view text) {
    std::vector<std::string_view> texts;
    table.Substitute(text, texts);
    return Texts(texts.begin(), texts.end());
}

TEST(MacroTable, ItIsEmptyAtFirst) {
    MacroTable table;
    EXPECT_TRUE(table.IsEmpty());
    EXPECT_FALSE(table.Contains("A"));
    EXPECT_EQ(Substitute(table, "A"), Texts{"A"});
}

TEST(MacroTable, ANameStandsForItsBody) {
    MacroTable table;
    EXPECT_TRUE(table.Define("A", {"1"}));
    EXPECT_TRUE(table.Define("B", {"(", "x", "+", "\"y z\"", ")"}));
    EXPECT_TRUE(table.Define("NOTHING", {}));
    EXPECT_FALSE(table.IsEmpty());
    EXPECT_TRUE(table.Contains("A"));
    EXPECT_TRUE(table.Contains("NOTHING"));
    EXPECT_EQ(Substitute(table, "A"), Texts{"1"});
    EXPECT_EQ(Substitute(table, "B"), (Texts{"(", "x", "+", "\"y z\"", ")"}));
    EXPECT_EQ(Substitute(table, "NOTHING"), Texts{});
    EXPECT_EQ(Substitute(table, "C"), Texts{"C"});
}

TEST(MacroTable, NamesCompareByteByByte) {
    MacroTable table;
    table.Define("Abc", {"1"});
    for (const char* other : {"abc", "ABC", "Ab", "Abcd", "", " Abc"}) {
        EXPECT_FALSE(table.Contains(other)) << other;
        EXPECT_EQ(Substitute(table, other), Texts{other}) << other;
    }
}

TEST(MacroTable, AnotherBodyForANameIsRefusedAndTheSameAccepted) {
    MacroTable table;
    ASSERT_TRUE(table.Define("A", {"1", "+", "2"}));
    ASSERT_TRUE(table.Define("E", {}));
    EXPECT_TRUE(table.Define("A", {"1", "+", "2"}));
    EXPECT_TRUE(table.Define("E", {}));
    for (const Texts& other : {Texts{}, Texts{"1"}, Texts{"1", "+"}, Texts{"1", "+", "3"},
                               Texts{"1", "+", "2", "3"}, Texts{"1+2"}}) {
        EXPECT_FALSE(table.Define("A", other));
        EXPECT_EQ(Substitute(table, "A"), (Texts{"1", "+", "2"}));
    }
    EXPECT_FALSE(table.Define("E", {"1"}));
    EXPECT_EQ(Substitute(table, "E"), Texts{});
}

TEST(MacroTable, TheTextsOfABodyAreSubstitutedInTheirTurn) {
    MacroTable table;
    table.Define("A", {"B", "x", "C"});
    table.Define("B", {"C", "1"});
    table.Define("C", {});
    table.Define("D", {"A2", "B2"});
    table.Define("A2", {"a"});
    table.Define("B2", {"b"});
    EXPECT_EQ(Substitute(table, "D"), (Texts{"a", "b"}));
    // The second C stands for itself.
    EXPECT_EQ(Substitute(table, "A"), (Texts{"1", "x", "C"}));
}

TEST(MacroTable, ANameIsReplacedOnceInASubstitution) {
    MacroTable table;
    table.Define("A", {"B", "B"});
    table.Define("B", {"5"});
    table.Define("SELF", {"SELF"});
    table.Define("TWICE", {"x", "TWICE", "y"});
    table.Define("P", {"Q", "1"});
    table.Define("Q", {"P", "2"});
    EXPECT_EQ(Substitute(table, "A"), (Texts{"5", "B"}));
    EXPECT_EQ(Substitute(table, "SELF"), Texts{"SELF"});
    EXPECT_EQ(Substitute(table, "TWICE"), (Texts{"x", "TWICE", "y"}));
    EXPECT_EQ(Substitute(table, "P"), (Texts{"P", "2", "1"}));
    EXPECT_EQ(Substitute(table, "Q"), (Texts{"Q", "1", "2"}));
    // Each substitution begins afresh.
    EXPECT_EQ(Substitute(table, "A"), (Texts{"5", "B"}));
    EXPECT_EQ(Substitute(table, "B"), Texts{"5"});
}

TEST(MacroTable, ASubstitutionAddsToTheTextsThatAreThere) {
    MacroTable table;
    table.Define("A", {"1", "2"});
    std::vector<std::string_view> texts{"0"};
    table.Substitute("A", texts);
    EXPECT_EQ(Texts(texts.begin(), texts.end()), (Texts{"0", "1", "2"}));
}

TEST(MacroTable, CopyMissingKeepsTheBodiesThatAreThere) {
    MacroTable table;
    MacroTable other;
    table.Define("A", {"mine"});
    table.Define("ONLY_MINE", {"1"});
    other.Define("A", {"theirs"});
    other.Define("B", {"A", "2"});
    table.CopyMissing(other);
    EXPECT_EQ(Substitute(table, "A"), Texts{"mine"});
    EXPECT_EQ(Substitute(table, "B"), (Texts{"mine", "2"}));
    EXPECT_EQ(Substitute(table, "ONLY_MINE"), Texts{"1"});
    EXPECT_EQ(Substitute(other, "A"), Texts{"theirs"});
    EXPECT_FALSE(other.Contains("ONLY_MINE"));
    other.Define("LATER", {"3"});
    EXPECT_FALSE(table.Contains("LATER"));
}

TEST(MacroTable, CopyMissingOfItselfChangesNothing) {
    MacroTable table;
    table.Define("A", {"1"});
    table.CopyMissing(table);
    EXPECT_EQ(Substitute(table, "A"), Texts{"1"});
}

TEST(MacroTable, TextsStayValidWhileTheTableGrows) {
    MacroTable table;
    table.Define("A", {"x"});
    std::vector<std::string_view> texts;
    table.Substitute("A", texts);
    for (int i = 0; i < 1000; ++i)
        table.Define("name" + std::to_string(i), {std::to_string(i)});
    EXPECT_EQ(texts, std::vector<std::string_view>{"x"});
}

TEST(MacroTable, AChainOfMacrosMayBeVeryLong) {
    constexpr int kLength = 50000;
    MacroTable table;
    for (int i = 0; i < kLength; ++i)
        table.Define("m" + std::to_string(i), {"m" + std::to_string(i + 1)});
    EXPECT_EQ(Substitute(table, "m0"), Texts{"m" + std::to_string(kLength)});
    // Closed to a circle it ends where it began.
    table.Define("m" + std::to_string(kLength), {"m0"});
    EXPECT_EQ(Substitute(table, "m0"), Texts{"m0"});
}

TEST(MacroTable, MacrosThatDoubleEachOtherDoNotExplode) {
    MacroTable table;
    for (int i = 0; i < 100; ++i) {
        const std::string next = "m" + std::to_string(i + 1);
        table.Define("m" + std::to_string(i), {next, next});
    }
    const Texts texts = Substitute(table, "m0");
    ASSERT_EQ(texts.size(), 101U);
    // The innermost name has no body, so both of its places are left.
    EXPECT_EQ(texts[0], "m100");
    EXPECT_EQ(texts[1], "m100");
    EXPECT_EQ(texts[2], "m99");
    EXPECT_EQ(texts[100], "m1");
}

TEST(MacroTable, WhatSubstitutionsAddHasALimit) {
    MacroTable table;
    table.Define("TEN", Texts(10, "1"));
    table.Define("ONE", {"1"});
    table.Define("CHAIN", {"LINK"});
    table.Define("LINK", {"NOTHING"});
    table.Define("NOTHING", {});
    std::vector<std::string_view> texts;
    constexpr std::uint32_t kGrowthLimit = 8388608;
    std::uint32_t growth = 0;
    for (; growth + 9 <= kGrowthLimit; growth += 9) {
        texts.clear();
        ASSERT_TRUE(table.Substitute("TEN", texts)) << growth;
    }
    for (; growth < kGrowthLimit; ++growth)
        ASSERT_TRUE(table.Substitute("CHAIN", texts)) << growth;
    EXPECT_FALSE(table.Substitute("CHAIN", texts));
    EXPECT_FALSE(table.Substitute("TEN", texts));
    EXPECT_TRUE(table.Substitute("ONE", texts));
    EXPECT_TRUE(table.Substitute("NOTHING", texts));
    EXPECT_TRUE(table.Substitute("other", texts));
}

}  // namespace
}  // namespace macroengine
