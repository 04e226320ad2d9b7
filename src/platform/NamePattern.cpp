#include "platform/NamePattern.h"

#include <cstddef>

#include "platform/CodePage.h"

namespace macroengine::platform {

namespace {

/// Cuts the first character off.
std::string_view TakeCharacter(std::string_view& text) {
    const std::string_view character =
        text.substr(0, CharacterLength(text.data(), text.data() + text.size()));
    text.remove_prefix(character.size());
    return character;
}

char ToUpper(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

/// A byte of a double-byte character may look like a letter, but has no case.
bool IsSameCharacter(std::string_view left, std::string_view right) {
    if (left.size() == 1 && right.size() == 1) return ToUpper(left[0]) == ToUpper(right[0]);
    return left == right;
}

}  // namespace

bool MatchesNamePattern(std::string_view name, std::string_view pattern) {
    if (pattern == "*.*") return true;

    // The last "*" takes as little as possible and one character more whenever the rest does not match.
    // Earlier ones need not be tried again, so the time stays within the product of both lengths.
    bool hasStar = false;
    std::string_view nameAtStar;
    std::string_view patternAfterStar;
    while (!name.empty()) {
        if (!pattern.empty() && pattern.front() == '*') {
            pattern.remove_prefix(1);
            hasStar = true;
            nameAtStar = name;
            patternAfterStar = pattern;
            continue;
        }
        if (!pattern.empty()) {
            const std::string_view wanted = TakeCharacter(pattern);
            const std::string_view character = TakeCharacter(name);
            if (wanted == "?" || IsSameCharacter(wanted, character)) continue;
        }
        if (!hasStar) return false;
        TakeCharacter(nameAtStar);
        name = nameAtStar;
        pattern = patternAfterStar;
    }
    return pattern.find_first_not_of('*') == std::string_view::npos;
}

}  // namespace macroengine::platform
