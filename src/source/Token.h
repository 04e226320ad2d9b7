#pragma once

#include <cstdint>
#include <string_view>

#include "source/Characters.h"

namespace macroengine {

enum class TokenKind : std::uint8_t {
    Integer = 0,
    Real = 1,
    String = 2,
    Word = 3,
    Operator =
        4,  ///< also a line end, a word that begins with "_", and the empty token at the end of the text
    Directive = 5,
    None = 6  ///< not classified yet
};

/// @return the kind of a word of the source, "#" and "_" being letters that it may begin with.
inline TokenKind KindOfWord(std::string_view text) {
    if (text.front() == '#' || IsWord(text, "include") || IsWord(text, "define")) return TokenKind::Directive;
    return text.front() == '_' ? TokenKind::Operator : TokenKind::Word;
}

/// What the reader of the tokens has worked out about one, in numbers of its own. A type by itself, so that
/// writing it can't change any other object.
enum class ReaderCode : std::uint8_t { None = 0xFF };

/// One token. Its text lives in the lexer that gave it, until that lexer dies or forgets what was read.
struct Token {
    std::string_view text;  ///< "\n" for a line end, empty at the end of the text
    std::uint32_t line = 0;
    TokenKind kind = TokenKind::None;

    ReaderCode readerCode = ReaderCode::None;

    union {
        double realValue = 0.0;      ///< of a real
        std::uint32_t integerValue;  ///< of an integer: the 32-bit pattern, so -1 is 4294967295
    };

    bool IsEnd() const { return text.empty(); }
    bool IsLineEnd() const { return text == "\n"; }
};

}  // namespace macroengine
