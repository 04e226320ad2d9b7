#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace macroengine {

namespace detail {

/// What each character is, so that a scanner asks once where it would compare often. The source language is
/// made of ASCII letters and digits, whatever the process's locale says.
class CharacterTable {
public:
    static constexpr std::uint8_t kDigit = 1;
    static constexpr std::uint8_t kLetter = 2;
    static constexpr std::uint8_t kUnderscore = 4;
    static constexpr std::uint8_t kHexadecimalLetter = 8;
    static constexpr std::uint8_t kSkipped = 16;

    constexpr CharacterTable() {
        Add("0123456789", kDigit);
        Add("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ", kLetter);
        Add("abcdefABCDEF", kHexadecimalLetter);
        Add("_", kUnderscore);
        Add(" \t\r\n/*", kSkipped);
        classes_[0] = kSkipped;
    }

    constexpr bool Is(char c, unsigned int classes) const {
        return (classes_[static_cast<unsigned char>(c)] & classes) != 0;
    }

private:
    constexpr void Add(const char* characters, std::uint8_t characterClass) {
        for (; *characters != '\0'; ++characters) {
            std::uint8_t& classes = classes_[static_cast<unsigned char>(*characters)];
            classes = static_cast<std::uint8_t>(classes | characterClass);
        }
    }

    std::uint8_t classes_[256] = {};
};

inline constexpr CharacterTable kCharacters;

}  // namespace detail

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool IsLetter(char c) {
    return detail::kCharacters.Is(c, detail::CharacterTable::kLetter);
}

constexpr bool IsHexadecimalDigit(char c) {
    return detail::kCharacters.Is(
        c, detail::CharacterTable::kDigit | detail::CharacterTable::kHexadecimalLetter);
}

/// Whether a word may begin with the character.
constexpr bool IsNameStart(char c) {
    return detail::kCharacters.Is(c, detail::CharacterTable::kLetter | detail::CharacterTable::kUnderscore);
}

/// Whether a word may go on with the character.
constexpr bool IsNamePart(char c) {
    return detail::kCharacters.Is(c, detail::CharacterTable::kLetter | detail::CharacterTable::kUnderscore |
                                         detail::CharacterTable::kDigit);
}

/// Whether the character may be a blank, or begin or end a comment, a line or the text.
constexpr bool MayBeSkipped(char c) {
    return detail::kCharacters.Is(c, detail::CharacterTable::kSkipped);
}

/// Whether a text is the word. The length of the word is known to the compiler, which spares a call.
template <std::size_t Size>
bool IsWord(std::string_view text, const char (&word)[Size]) {
    return text.size() == Size - 1 && std::memcmp(text.data(), word, Size - 1) == 0;
}

/// Whether the byte is above 127.
constexpr bool IsNonAscii(char c) {
    return static_cast<unsigned char>(c) > 127;
}

}  // namespace macroengine
