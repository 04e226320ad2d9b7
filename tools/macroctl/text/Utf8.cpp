#include "text/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace macroctl {

namespace {

constexpr std::uint32_t kInvalid = 0xFFFFFFFF;

/// Stands for what is cut off.
constexpr std::string_view kMark = "...";

struct Character {
    std::uint32_t code;  // kInvalid for a byte that begins no character
    std::size_t size;
};

std::uint32_t ByteAt(std::string_view text, std::size_t index) {
    return static_cast<unsigned char>(text[index]);
}

/// @param size    of the whole character.
/// @param lowest  the first code that needs this size: no shorter one may be written longer.
Character ReadSequence(std::string_view text, std::uint32_t code, std::size_t size, std::uint32_t lowest) {
    if (text.size() < size) return {kInvalid, 1};
    for (std::size_t i = 1; i < size; ++i) {
        if ((ByteAt(text, i) & 0xC0) != 0x80) return {kInvalid, 1};
        code = code << 6 | (ByteAt(text, i) & 0x3F);
    }
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < lowest || code > 0x10FFFF || surrogate) return {kInvalid, 1};
    return {code, size};
}

Character FirstCharacter(std::string_view text) {
    const std::uint32_t byte = ByteAt(text, 0);
    if (byte < 0x80) return {byte, 1};
    if (byte >= 0xC0 && byte < 0xE0) return ReadSequence(text, byte & 0x1F, 2, 0x80);
    if (byte >= 0xE0 && byte < 0xF0) return ReadSequence(text, byte & 0x0F, 3, 0x800);
    if (byte >= 0xF0 && byte < 0xF8) return ReadSequence(text, byte & 0x07, 4, 0x10000);
    return {kInvalid, 1};
}

bool IsControl(std::uint32_t code) {
    return code < 0x20 || code == 0x7F || (code >= 0x80 && code < 0xA0);
}

/// The scripts of East Asia and the pictographs, whose characters take two columns.
bool IsWide(std::uint32_t code) {
    constexpr std::uint32_t kRanges[][2] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF},   {0xAC00, 0xD7A3},
                                            {0xF900, 0xFAFF}, {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},
                                            {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD}};
    return std::any_of(std::begin(kRanges), std::end(kRanges),
                       [code](const auto& range) { return code >= range[0] && code <= range[1]; });
}

std::size_t WidthOf(std::uint32_t code) {
    const bool combining = code >= 0x300 && code <= 0x36F;
    if (combining) return 0;
    return code != kInvalid && IsWide(code) ? 2 : 1;
}

bool FitsXml(std::uint32_t code) {
    if (code == '\t' || code == '\n' || code == '\r') return true;
    return code >= 0x20 && code != 0xFFFE && code != 0xFFFF && code != kInvalid;
}

}  // namespace

std::string ValidUtf8(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        if (FitsXml(character.code)) {
            result += text.substr(0, character.size);
        } else {
            result += "\xEF\xBF\xBD";
        }
        text.remove_prefix(character.size);
    }
    return result;
}

std::size_t DisplayWidth(std::string_view text) {
    std::size_t width = 0;
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        width += WidthOf(character.code);
        text.remove_prefix(character.size);
    }
    return width;
}

std::string CutToWidth(std::string_view text, std::size_t width) {
    if (DisplayWidth(text) <= width) return std::string(text);
    if (width <= kMark.size()) return std::string(kMark.substr(0, width));
    std::size_t used = kMark.size();
    std::size_t kept = 0;
    while (kept < text.size()) {
        const Character character = FirstCharacter(text.substr(kept));
        used += WidthOf(character.code);
        if (used > width) break;
        kept += character.size;
    }
    return std::string(text.substr(0, kept)).append(kMark);
}

std::string CutStartToWidth(std::string_view text, std::size_t width) {
    std::size_t rest = DisplayWidth(text);
    if (rest <= width) return std::string(text);
    if (width <= kMark.size()) return std::string(kMark.substr(0, width));
    while (rest + kMark.size() > width) {
        const Character character = FirstCharacter(text);
        rest -= WidthOf(character.code);
        text.remove_prefix(character.size);
    }
    return std::string(kMark).append(text);
}

std::string OnOneLine(std::string_view text) {
    std::string result;
    bool pendingBlank = false;
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        if (character.code == ' ' || IsControl(character.code)) {
            pendingBlank = !result.empty();
        } else {
            if (pendingBlank) result += ' ';
            pendingBlank = false;
            result += text.substr(0, character.size);
        }
        text.remove_prefix(character.size);
    }
    return result;
}

}  // namespace macroctl
