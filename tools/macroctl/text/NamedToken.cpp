#include "text/NamedToken.h"

#include <algorithm>
#include <string>
#include <vector>

namespace macroctl {

namespace {

constexpr std::string_view kSyntaxError = "syntax error '";
constexpr std::string_view kNoOperand = ". Can't find Variable or value.";
constexpr std::string_view kOutOfRange = " is out of range";
constexpr std::string_view kBlanks = " \t";

bool StartsWith(std::string_view text, std::string_view begin) {
    return text.substr(0, begin.size()) == begin;
}

bool IsWordLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// Adds what stands between two marks, with and without them: a message quotes a name, and a source a text.
void AddEnclosed(std::string_view message, char open, char close, std::vector<std::string_view>& tokens) {
    std::size_t begin = message.find(open);
    while (begin != std::string_view::npos) {
        const std::size_t end = message.find(close, begin + 1);
        if (end == std::string_view::npos) return;
        if (open == close) tokens.push_back(message.substr(begin, end + 1 - begin));
        const std::string_view token = message.substr(begin + 1, end - begin - 1);
        // "argument[1]" is a place, no token.
        if (open != '[' || token.find_first_not_of("0123456789") != std::string_view::npos)
            tokens.push_back(token);
        begin = message.find(open, end + 1);
    }
}

/// Adds the `category.command` of a `category.command()`.
void AddCommand(std::string_view message, std::vector<std::string_view>& tokens) {
    const std::size_t end = message.find("()");
    if (end == std::string_view::npos) return;
    std::size_t begin = end;
    while (begin > 0 && (IsWordLetter(message[begin - 1]) || message[begin - 1] == '.'))
        --begin;
    tokens.push_back(message.substr(begin, end - begin));
}

/// The tokens that a message names, the ones that tell most first.
std::vector<std::string_view> TokensIn(std::string_view message) {
    std::vector<std::string_view> tokens;
    if (StartsWith(message, kSyntaxError)) {
        message.remove_prefix(kSyntaxError.size());
        tokens.push_back(message.substr(0, message.substr(0, message.find(kNoOperand)).rfind('\'')));
        return tokens;
    }
    AddEnclosed(message, '"', '"', tokens);
    AddEnclosed(message, '[', ']', tokens);
    AddCommand(message, tokens);
    AddEnclosed(message, '(', ')', tokens);
    const std::size_t number = message.find(kOutOfRange);
    if (number != std::string_view::npos) tokens.push_back(message.substr(0, number));
    for (std::string_view& token : tokens) {
        token.remove_prefix(std::min(token.find_first_not_of(kBlanks), token.size()));
        token = token.substr(0, token.find_last_not_of(kBlanks) + 1);
    }
    return tokens;
}

/// The line with blanks for its comments, and for its texts unless they are wanted.
std::string Masked(std::string_view line, bool keepTexts) {
    std::string masked(line);
    std::size_t at = 0;
    while (at < line.size()) {
        std::size_t end = at + 1;
        bool hidden = true;
        if (StartsWith(line.substr(at), "//")) {
            end = line.size();
        } else if (StartsWith(line.substr(at), "/*")) {
            end = std::min(line.find("*/", at + 2), line.size() - 2) + 2;
        } else if (line[at] == '"') {
            while (end < line.size() && line[end] != '"')
                end += line[end] == '\\' ? 2 : 1;
            end = std::min(end + 1, line.size());
            hidden = !keepTexts;
        } else {
            hidden = false;
        }
        if (hidden)
            std::fill(masked.begin() + static_cast<long>(at), masked.begin() + static_cast<long>(end), ' ');
        at = end;
    }
    return masked;
}

/// @return the first place of a token that is no part of a longer word; npos when there is none.
std::size_t FindWhole(std::string_view line, std::string_view token) {
    for (std::size_t at = line.find(token); at != std::string_view::npos; at = line.find(token, at + 1)) {
        const std::size_t end = at + token.size();
        const bool joinedBefore = at > 0 && IsWordLetter(line[at - 1]) && IsWordLetter(token.front());
        const bool joinedBehind = end < line.size() && IsWordLetter(line[end]) && IsWordLetter(token.back());
        if (!joinedBefore && !joinedBehind) return at;
    }
    return std::string_view::npos;
}

}  // namespace

TextRange FindNamedToken(std::string_view message, std::string_view line) {
    const std::string code = Masked(line, false);
    const std::string codeAndTexts = Masked(line, true);
    for (const std::string_view token : TokensIn(message)) {
        if (token.empty()) continue;
        const std::size_t at = FindWhole(token.front() == '"' ? codeAndTexts : code, token);
        if (at != std::string_view::npos) return {at, token.size()};
    }
    const std::size_t first = line.find_first_not_of(kBlanks);
    return {first == std::string_view::npos ? line.size() : first, 1};
}

bool IsAboutLineEnd(std::string_view message) {
    return StartsWith(message, "syntax error '<EOL>'");
}

bool IsAboutFileEnd(std::string_view message) {
    return StartsWith(message, "syntax error '<EOF>'");
}

}  // namespace macroctl
