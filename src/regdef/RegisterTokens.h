#pragma once

#include <cstdint>

#include "source/CLex.h"

namespace macroengine {

/// Walks over the tokens of a register file with the current one in hand.
class RegisterTokens {
public:
    explicit RegisterTokens(CLex& lexer) : lexer_(lexer) {}

    /// Moves to the next token; the first call moves to the first one.
    /// @return false on a lexical error. Its message is in the lexer's table, there is no current token, and
    ///         the next call goes on behind it.
    bool Advance() {
        failed_ = !lexer_.ReadToken(token_, CLex::Substitution::None);
        return !failed_;
    }

    const Token& Current() const { return token_; }

    /// @return whether the line ends here, at the end of the text too.
    bool IsAtLineEnd() const { return !failed_ && (token_.IsLineEnd() || token_.IsEnd()); }

    /// Moves to the end of the current line, whatever stands before it.
    void SkipLine() {
        while (!IsAtLineEnd())
            Advance();
    }

    /// @return the line that the lexer is at, which is where a lexical error is.
    std::uint32_t GetLexerLine() const { return lexer_.GetLine(); }

    CErrorMessageTable& GetLexerErrors() { return lexer_.GetErrors(); }

private:
    CLex& lexer_;
    Token token_;
    bool failed_ = false;
};

}  // namespace macroengine
