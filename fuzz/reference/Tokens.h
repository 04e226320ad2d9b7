#pragma once

#include <string>
#include <vector>

namespace macroengine::reference {

struct Token {
    enum class Kind { Number, Text, Word, Other, LineEnd, End };

    Kind kind = Kind::End;
    std::string text;
    int line = 1;
};

/// @return the tokens of a text, `#define` applied, its lines taken out, an End token last. Knows what the
/// generated programs use: ASCII, LF and CR LF.
/// @throws NotUnderstood
std::vector<Token> ReadTokens(const std::string& text);

}  // namespace macroengine::reference
