#include "source/TokenScanner.h"

#include <cstddef>

#include "platform/CodePage.h"
#include "source/Characters.h"

// The text ends with a NUL, which stops every loop below: none of them needs to know where the text ends.

namespace macroengine {

namespace {

constexpr std::string_view kInvalidLetter = "find invalid letter(s) in file.";
constexpr std::ptrdiff_t kFewDigits = 9;
constexpr std::string_view kOpenString = "Can't find [\"] for the end of string.";

const char* SkipDigits(const char* position) {
    while (IsDigit(*position))
        ++position;
    return position;
}

/// @return where the number at the position ends.
const char* FindNumberEnd(const char* position) {
    if (position[0] == '0' && (position[1] == 'x' || position[1] == 'X')) {
        const char* end = position + 2;
        while (IsHexadecimalDigit(*end))
            ++end;
        // Without a digit the number is the "0" alone, and the letter begins a word.
        return end == position + 2 ? position + 1 : end;
    }
    const char* const end = SkipDigits(position + 1);
    return *end == '.' ? SkipDigits(end + 1) : end;
}

/// @return the length of the operator at the position, 1 for anything that is none.
std::size_t OperatorLength(const char* position) {
    const char next = position[1];
    switch (position[0]) {
        case '=':
        case '!':
            return next == '=' ? 2 : 1;
        case '<':
            return next == '=' || next == '<' ? 2 : 1;
        case '>':
            return next == '=' || next == '>' ? 2 : 1;
        case '&':
        case '|':
            return next == position[0] ? 2 : 1;
        default:
            return 1;
    }
}

}  // namespace

void TokenScanner::Start(const SourceText& text) {
    position_ = text.Begin();
    end_ = text.End();
    line_ = 1;
    failure_ = {};
}

TokenScanner::Result TokenScanner::Next(Token& token) {
    token.text = {};
    token.readerCode = ReaderCode::None;
    const char* begin = position_;
    while (*begin == ' ')
        ++begin;
    if (MayBeSkipped(*begin)) begin = SkipBlanksAndComments(begin);
    token.line = line_;
    const char first = *begin;
    if (IsNameStart(first) || first == '#') return ScanWord(token, begin);
    if (IsDigit(first) || (first == '-' && IsDigit(begin[1]))) return ScanNumber(token, begin);
    if (first == '\n' || first == '\r') return ScanLineEnd(token, begin);
    if (first == '"') return ScanString(token, begin);
    return ScanOperator(token, begin);
}

/// @return where the next token begins.
const char* TokenScanner::SkipBlanksAndComments(const char* position) {
    enum class Comment { None, Block, Line } comment = Comment::None;
    for (;; ++position) {
        const char c = *position;
        const char next = c == '\0' ? '\0' : position[1];
        if (c == '\0') return position;
        if (c == '\n') {
            ++line_;
            if (comment != Comment::Block) return position;
        } else if (c == ' ' || c == '\t' || (c == '\r' && next == '\n')) {
            continue;
        } else if (c == '/' && next == '*' && comment == Comment::None) {
            comment = Comment::Block;
            ++position;
        } else if (c == '/' && next == '/' && comment == Comment::None) {
            comment = Comment::Line;
            ++position;
        } else if (c == '*' && next == '/') {
            // In a line comment too the closer stops the skip: what follows it is read as tokens.
            if (comment != Comment::Block) return position;
            comment = Comment::None;
            ++position;
        } else if (comment == Comment::None) {
            return position;
        }
    }
}

TokenScanner::Result TokenScanner::Take(Token& token, TokenKind kind, const char* begin, const char* end) {
    token.text = std::string_view(begin, static_cast<std::size_t>(end - begin));
    token.kind = kind;
    position_ = end;
    return Result::Token;
}

TokenScanner::Result TokenScanner::FailOnInvalidLetter() {
    failure_ = kInvalidLetter;
    position_ = end_;
    return Result::Failed;
}

TokenScanner::Result TokenScanner::ScanLineEnd(Token& token, const char* begin) {
    Take(token, TokenKind::Operator, begin, begin + 1);
    token.text = "\n";
    return Result::Token;
}

TokenScanner::Result TokenScanner::ScanWord(Token& token, const char* begin) {
    const char* end = begin + 1;
    while (IsNamePart(*end))
        ++end;
    if (IsNonAscii(*end)) return FailOnInvalidLetter();
    return Take(token, KindOfWord(std::string_view(begin, static_cast<std::size_t>(end - begin))), begin,
                end);
}

TokenScanner::Result TokenScanner::ScanNumber(Token& token, const char* begin) {
    if (*begin != '-') {
        // Most numbers are a few decimal digits, whose value comes by the way.
        const char* end = begin + 1;
        std::uint32_t value = static_cast<std::uint32_t>(*begin - '0');
        for (; IsDigit(*end); ++end)
            value = value * 10 + static_cast<std::uint32_t>(*end - '0');
        if (end - begin <= kFewDigits && *end != '.' && *end != 'x' && *end != 'X') {
            token.integerValue = value;
            return Take(token, TokenKind::Integer, begin, end);
        }
    }
    return Take(token, TokenKind::None, begin, FindNumberEnd(begin));
}

TokenScanner::Result TokenScanner::ScanOperator(Token& token, const char* begin) {
    if (IsNonAscii(*begin)) return FailOnInvalidLetter();
    if (*begin != '\0') return Take(token, TokenKind::Operator, begin, begin + OperatorLength(begin));
    position_ = begin;
    return Result::End;
}

TokenScanner::Result TokenScanner::ScanString(Token& token, const char* begin) {
    const char* const end = FindStringEnd(begin);
    if (*end == '"') return Take(token, TokenKind::String, begin, end + 1);
    failure_ = kOpenString;
    position_ = *end == '\n' ? end : end_;
    return Result::Failed;
}

/// @return the closing quote of the string that begins there, or the line feed or NUL before it.
const char* TokenScanner::FindStringEnd(const char* begin) const {
    bool escaped = false;
    const char* position = begin + 1;
    while (*position != '\0' && *position != '\n' && (*position != '"' || escaped)) {
        const std::size_t length = platform::CharacterLength(position, end_);
        // Only a backslash that is a character of its own counts, not the second byte of a double-byte one.
        escaped = *position == '\\' && !escaped;
        position += length;
    }
    return position;
}

}  // namespace macroengine
