#pragma once

#include <cstdint>
#include <string_view>

#include "source/SourceLoader.h"
#include "source/Token.h"

namespace macroengine {

/// Cuts a source text into tokens, and counts its lines.
///
/// The line counter is advanced when a line end is reached, before its token is given, so a line end carries
/// the number of the line that it leads to.
class TokenScanner {
public:
    enum class Result { Token, End, Failed };

    TokenScanner() = default;

    /// Starts over with a text, which must outlive the scanner's use of it.
    void Start(const SourceText& text);

    /// Skips blanks and comments and scans one token.
    ///
    /// @param token  receives all of the token but what takes a closer look: a string has its quotes and
    ///               backslashes, and a number that is not a few decimal digits is of kind None.
    /// @return End at the end of the text, with an empty token; Failed with the reason in GetFailure(), and
    ///         the scanner positioned where it may go on.
    Result Next(Token& token);

    std::uint32_t GetLine() const { return line_; }

    /// @return where the next token is looked for.
    const char* GetPosition() const { return position_; }

    /// @return the message of the last failure.
    std::string_view GetFailure() const { return failure_; }

private:
    // The scanning itself goes on copies of the position, which the compiler can keep in registers.
    const char* SkipBlanksAndComments(const char* position);
    const char* FindStringEnd(const char* begin) const;
    Result ScanLineEnd(Token& token, const char* begin);
    Result ScanString(Token& token, const char* begin);
    Result ScanWord(Token& token, const char* begin);
    Result ScanNumber(Token& token, const char* begin);
    Result ScanOperator(Token& token, const char* begin);
    Result Take(Token& token, TokenKind kind, const char* begin, const char* end);
    Result FailOnInvalidLetter();

    const char* position_ = "";
    const char* end_ = position_;
    std::uint32_t line_ = 1;
    std::string_view failure_;
};

}  // namespace macroengine
