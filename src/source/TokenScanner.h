#pragma once

#include <cstdint>
#include <string_view>

#include "source/SourceLoader.h"

namespace macroengine {

/// Cuts a source text into the texts of its tokens, and counts its lines.
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
    /// @param token  receives the token's characters, a view into the text.
    /// @return End at the end of the text, with an empty token; Failed with the reason in GetFailure(), and
    ///         the scanner positioned where it may go on.
    Result Next(std::string_view& token);

    std::uint32_t GetLine() const { return line_; }

    /// @return the message of the last failure.
    std::string_view GetFailure() const { return failure_; }

private:
    void SkipBlanksAndComments();
    const char* FindStringEnd() const;
    Result ScanString(std::string_view& token);
    Result ScanWord(std::string_view& token);
    Result ScanNumber(std::string_view& token);
    Result Take(std::string_view& token, const char* end);
    Result FailOnInvalidLetter(std::string_view& token);

    const char* position_ = "";
    const char* end_ = position_;
    std::uint32_t line_ = 1;
    std::string_view failure_;
};

}  // namespace macroengine
