#pragma once

#include <charconv>
#include <string>
#include <vector>

#include "source/CLex.h"

namespace macroengine::test {

using Lines = std::vector<std::string>;

/// Spells a token with all it carries: "line: kind text", and "= value" behind a number. A line end is spelt
/// "\n" in two characters; the token at the end of the text is "line: end" whatever its kind.
inline std::string Spell(const Token& token) {
    constexpr const char* kKinds[] = {"integer", "real", "string", "word", "operator", "directive", "none"};
    std::string spelt = std::to_string(token.line) + ": ";
    if (token.IsEnd()) return spelt + "end";
    spelt.append(kKinds[static_cast<int>(token.kind)]).append(" ");
    spelt.append(token.IsLineEnd() ? "\\n" : token.text);
    if (token.kind == TokenKind::Integer) spelt.append(" = ").append(std::to_string(token.integerValue));
    if (token.kind == TokenKind::Real) {
        char digits[32];
        const auto end = std::to_chars(digits, digits + sizeof digits, token.realValue).ptr;
        spelt.append(" = ").append(digits, end);
    }
    return spelt;
}

/// The lines of a table, which is left empty.
inline Lines TakeLines(CErrorMessageTable& errors) {
    Lines lines;
    for (std::uint32_t i = 0; i < errors.GetCount(); ++i)
        lines.push_back(errors.GetMessage(i));
    errors.Clear();
    return lines;
}

/// Reads up to the end and spells every token. A read that fails stands as "failed" before the lines that it
/// has reported; the reading goes on behind it.
inline Lines ReadAll(CLex& lexer, CLex::Substitution substitution = CLex::Substitution::Macros) {
    Lines lines;
    Token token;
    do {
        token = Token();
        const bool succeeded = lexer.ReadToken(token, substitution);
        if (succeeded) {
            lines.push_back(Spell(token));
        } else {
            lines.push_back("failed");
            token.text = "failed";
        }
        for (std::string& line : TakeLines(lexer.GetErrors()))
            lines.push_back(std::move(line));
    } while (!token.IsEnd());
    return lines;
}

/// The tokens of a text as the file "t.mac".
inline Lines TokensOf(const std::string& text) {
    CLex lexer;
    lexer.LoadText("t.mac", text);
    return ReadAll(lexer);
}

}  // namespace macroengine::test
