#include "compiler/TokenCode.h"

#include <string_view>

#include "categories/CMacroCategoryCmdList.h"
#include "source/Characters.h"

namespace macroengine {

namespace {

struct Keyword {
    std::string_view text;
    TokenCode code;
};

constexpr Keyword kWords[] = {
    {"if", TokenCode::If},           {"elseif", TokenCode::ElseIf}, {"else", TokenCode::Else},
    {"endif", TokenCode::EndIf},     {"loop", TokenCode::Loop},     {"endloop", TokenCode::EndLoop},
    {"include", TokenCode::Include}, {"define", TokenCode::Define},
};

constexpr Keyword kDirectives[] = {
    {"#if", TokenCode::HashIf},       {"#elseif", TokenCode::HashElseIf}, {"#else", TokenCode::HashElse},
    {"#endif", TokenCode::HashEndIf}, {"#include", TokenCode::Include},   {"#define", TokenCode::Define},
};

constexpr Keyword kOperators[] = {
    {"\n", TokenCode::LineEnd},     {"(", TokenCode::OpenParenthesis}, {")", TokenCode::CloseParenthesis},
    {"==", TokenCode::Equal},       {"!=", TokenCode::NotEqual},       {"<", TokenCode::Less},
    {"<=", TokenCode::LessOrEqual}, {">", TokenCode::Greater},         {">=", TokenCode::GreaterOrEqual},
    {"+", TokenCode::Plus},         {"-", TokenCode::Minus},           {"*", TokenCode::Times},
    {"/", TokenCode::Divide},       {"=", TokenCode::Assign},          {".", TokenCode::Point},
    {",", TokenCode::Comma},        {"|", TokenCode::BitOr},           {"&", TokenCode::BitAnd},
    {"||", TokenCode::LogicalOr},   {"&&", TokenCode::LogicalAnd},     {"<<", TokenCode::ShiftLeft},
    {">>", TokenCode::ShiftRight},  {"[", TokenCode::OpenBracket},     {"]", TokenCode::CloseBracket},
};

/// @return Other when none of the keywords is the text.
template <std::size_t Count>
TokenCode Find(const Keyword (&keywords)[Count], std::string_view text) {
    for (const Keyword& keyword : keywords) {
        if (keyword.text == text) return keyword.code;
    }
    return TokenCode::Other;
}

constexpr std::size_t kLongestWord = 7;

TokenCode ClassifyWord(std::string_view text, const CMacroCategoryCmdList& categories) {
    const TokenCode keyword = text.size() <= kLongestWord ? Find(kWords, text) : TokenCode::Other;
    if (keyword != TokenCode::Other) return keyword;
    return categories.IsCategory(text, {}) ? TokenCode::Category : TokenCode::Name;
}

}  // namespace

TokenCode ClassifyToken(const Token& token, const CMacroCategoryCmdList& categories) {
    if (token.IsEnd()) return TokenCode::End;
    switch (token.kind) {
        case TokenKind::Integer:
            return TokenCode::Integer;
        case TokenKind::Real:
            return TokenCode::Real;
        case TokenKind::String:
            return TokenCode::String;
        default:
            break;
    }
    if (IsNameStart(token.text.front())) return ClassifyWord(token.text, categories);
    return token.text.front() == '#' ? Find(kDirectives, token.text) : Find(kOperators, token.text);
}

}  // namespace macroengine
