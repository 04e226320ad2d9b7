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

constexpr Keyword kDirectives[] = {
    {"#if", TokenCode::HashIf},       {"#elseif", TokenCode::HashElseIf}, {"#else", TokenCode::HashElse},
    {"#endif", TokenCode::HashEndIf}, {"#include", TokenCode::Include},   {"#define", TokenCode::Define},
};

constexpr Keyword kPairs[] = {
    {"==", TokenCode::Equal},          {"!=", TokenCode::NotEqual},   {"<=", TokenCode::LessOrEqual},
    {">=", TokenCode::GreaterOrEqual}, {"||", TokenCode::LogicalOr},  {"&&", TokenCode::LogicalAnd},
    {"<<", TokenCode::ShiftLeft},      {">>", TokenCode::ShiftRight},
};

/// @return Other when none of the keywords is the text.
template <std::size_t Count>
TokenCode Find(const Keyword (&keywords)[Count], std::string_view text) {
    for (const Keyword& keyword : keywords) {
        if (keyword.text == text) return keyword.code;
    }
    return TokenCode::Other;
}

/// @return Name for a word that is not reserved. Every word of a source passes here, so its first letter
/// tells most of them from all keywords.
TokenCode ClassifyKeyword(std::string_view text) {
    switch (text.front()) {
        case 'i':
            if (IsWord(text, "if")) return TokenCode::If;
            return IsWord(text, "include") ? TokenCode::Include : TokenCode::Name;
        case 'e':
            if (IsWord(text, "else")) return TokenCode::Else;
            if (IsWord(text, "endif")) return TokenCode::EndIf;
            if (IsWord(text, "elseif")) return TokenCode::ElseIf;
            return IsWord(text, "endloop") ? TokenCode::EndLoop : TokenCode::Name;
        case 'l':
            return IsWord(text, "loop") ? TokenCode::Loop : TokenCode::Name;
        case 'd':
            return IsWord(text, "define") ? TokenCode::Define : TokenCode::Name;
        default:
            return TokenCode::Name;
    }
}

TokenCode ClassifyWord(std::string_view text, const CMacroCategoryCmdList& categories) {
    const TokenCode code = ClassifyKeyword(text);
    return code == TokenCode::Name && categories.IsCategory(text, {}) ? TokenCode::Category : code;
}

/// The codes of the tokens of one character.
class CharacterCodes {
public:
    constexpr CharacterCodes() {
        for (TokenCode& code : codes_)
            code = TokenCode::Other;
        Set('\n', TokenCode::LineEnd);
        Set('(', TokenCode::OpenParenthesis);
        Set(')', TokenCode::CloseParenthesis);
        Set('[', TokenCode::OpenBracket);
        Set(']', TokenCode::CloseBracket);
        Set('=', TokenCode::Assign);
        Set('<', TokenCode::Less);
        Set('>', TokenCode::Greater);
        Set('+', TokenCode::Plus);
        Set('-', TokenCode::Minus);
        Set('*', TokenCode::Times);
        Set('/', TokenCode::Divide);
        Set('.', TokenCode::Point);
        Set(',', TokenCode::Comma);
        Set('|', TokenCode::BitOr);
        Set('&', TokenCode::BitAnd);
    }

    constexpr TokenCode operator[](char c) const { return codes_[static_cast<unsigned char>(c)]; }

private:
    constexpr void Set(char c, TokenCode code) { codes_[static_cast<unsigned char>(c)] = code; }

    TokenCode codes_[256] = {};
};

constexpr CharacterCodes kCharacterCodes;

}  // namespace

TokenCode ClassifyToken(const Token& token, const CMacroCategoryCmdList& categories) {
    switch (token.kind) {
        case TokenKind::Integer:
            return TokenCode::Integer;
        case TokenKind::Real:
            return TokenCode::Real;
        case TokenKind::String:
            return TokenCode::String;
        case TokenKind::Word:
            return ClassifyWord(token.text, categories);
        default:
            break;
    }
    if (token.IsEnd()) return TokenCode::End;
    if (IsNameStart(token.text.front())) return ClassifyWord(token.text, categories);
    if (token.text.size() == 1) return kCharacterCodes[token.text.front()];
    return token.text.front() == '#' ? Find(kDirectives, token.text) : Find(kPairs, token.text);
}

}  // namespace macroengine
