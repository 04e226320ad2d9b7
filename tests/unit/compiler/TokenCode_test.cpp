#include "compiler/TokenCode.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "source/CLex.h"
#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

/// The codes of all tokens of a text, the end included.
std::vector<int> CodesOf(const std::string& text, const CMacroCategoryCmdList& categories) {
    CLex lexer;
    lexer.LoadText("t.mac", text);
    std::vector<int> codes;
    Token token;
    do {
        EXPECT_TRUE(lexer.ReadToken(token)) << text;
        codes.push_back(static_cast<int>(ClassifyToken(token, categories)));
    } while (!token.IsEnd());
    return codes;
}

struct Case {
    std::string text;
    int code;
};

void ExpectCodes(const std::vector<Case>& cases, const CMacroCategoryCmdList& categories) {
    for (const Case& c : cases)
        EXPECT_EQ(CodesOf(c.text, categories), (std::vector<int>{c.code, 0})) << c.text;
}

TEST(TokenCode, TheEndIsZero) {
    const CMacroCategoryCmdList categories("");
    EXPECT_EQ(CodesOf("", categories), std::vector<int>{0});
}

TEST(TokenCode, EveryKeywordAndOperatorHasItsCode) {
    const CMacroCategoryCmdList categories("");
    ExpectCodes(
        {{"\n", 1},      {"\r", 1},       {"\r\n", 1},     {"if", 2},        {"elseif", 3}, {"else", 4},
         {"endif", 5},   {"loop", 6},     {"endloop", 7},  {"(", 13},        {")", 14},     {"==", 15},
         {"!=", 16},     {"<", 17},       {"<=", 18},      {">", 19},        {">=", 20},    {"+", 21},
         {"-", 22},      {"*", 23},       {"/", 24},       {"=", 25},        {".", 26},     {",", 27},
         {"define", 28}, {"#define", 28}, {"include", 29}, {"#include", 29}, {"#if", 30},   {"#elseif", 31},
         {"#else", 32},  {"#endif", 33},  {"|", 34},       {"&", 35},        {"||", 36},    {"&&", 37},
         {"<<", 38},     {">>", 39},      {"[", 40},       {"]", 41}},
        categories);
}

TEST(TokenCode, LiteralsGoByTheirKind) {
    const CMacroCategoryCmdList categories("");
    ExpectCodes({{"0", 10},
                 {"-1", 10},
                 {"0xFF", 10},
                 {"1.", 11},
                 {"-2.5", 11},
                 {"\"\"", 12},
                 {"\"if\"", 12},
                 {"\"#if\"", 12},
                 {"\"string\"", 12},
                 {"\"(\"", 12},
                 {"\"\\n\"", 12}},
                categories);
}

TEST(TokenCode, AnyOtherWordIsAName) {
    const CMacroCategoryCmdList categories("");
    ExpectCodes({{"a", 8},
                 {"_", 8},
                 {"_if", 8},
                 {"_1", 8},
                 {"If", 8},
                 {"IF", 8},
                 {"Loop", 8},
                 {"ifx", 8},
                 {"end", 8},
                 {"endlooper", 8},
                 {"elseifs", 8},
                 {"Include", 8},
                 {"DEFINE", 8},
                 {"exist", 8},
                 {"String", 8},
                 {"strings", 8},
                 {"format", 8}},
                categories);
}

TEST(TokenCode, AnythingElseHasTheLastCode) {
    const CMacroCategoryCmdList categories("");
    ExpectCodes({{"!", 42},     {";", 42}, {":", 42}, {"#", 42}, {"#1", 42}, {"#IF", 42},  {"#ifx", 42},
                 {"#loop", 42}, {"$", 42}, {"%", 42}, {"'", 42}, {"?", 42},  {"@", 42},    {"\\", 42},
                 {"^", 42},     {"`", 42}, {"{", 42}, {"}", 42}, {"~", 42},  {"\x01", 42}, {"\f", 42}},
                categories);
}

TEST(TokenCode, ANameOfARegisteredCategoryIsACategory) {
    CMacroCategoryCmdList categories("");
    test::Lines calls;
    test::RecordingCommand command("board", "read", true, false, calls);
    EXPECT_EQ(CodesOf("board", categories), (std::vector<int>{8, 0}));
    categories.AddCategoryCommand(nullptr, &command, false);
    ExpectCodes({{"board", 9},
                 {"string", 9},
                 {"array", 9},
                 {"system", 9},
                 {"wait_ms", 9},
                 {"using", 9},
                 {"Board", 8},
                 {"boards", 8},
                 {"boar", 8},
                 {"read", 8},
                 {"_board", 8},
                 {"#board", 42},
                 {"\"board\"", 12}},
                categories);
}

TEST(TokenCode, AKeywordIsReservedAlsoForACategory) {
    CMacroCategoryCmdList categories("");
    test::Lines calls;
    test::RecordingCommand loop("loop", "x", true, true, calls);
    test::RecordingCommand include("include", "x", true, true, calls);
    test::RecordingCommand underscore("_c", "x", true, true, calls);
    for (test::RecordingCommand* command : {&loop, &include, &underscore})
        ASSERT_TRUE(categories.AddCategoryCommand(nullptr, command, false));
    ExpectCodes({{"loop", 6}, {"include", 29}, {"_c", 9}}, categories);
}

}  // namespace
}  // namespace macroengine
