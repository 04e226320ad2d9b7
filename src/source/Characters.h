#pragma once

namespace macroengine {

// The source language is made of ASCII letters and digits, whatever the process's locale says.

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr bool IsHexadecimalDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// Whether a word may begin with the character.
constexpr bool IsNameStart(char c) {
    return IsLetter(c) || c == '_';
}

/// Whether a word may go on with the character.
constexpr bool IsNamePart(char c) {
    return IsNameStart(c) || IsDigit(c);
}

/// Whether the byte is above 127.
constexpr bool IsNonAscii(char c) {
    return static_cast<unsigned char>(c) > 127;
}

}  // namespace macroengine
