#include "macroengine/LineEncoding.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "source/EncodedText.h"

namespace macroengine {

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+-";
constexpr char kPad = '*';

bool CanBeEncoded(std::string_view line) {
    return line.size() <= kEncodedLineLimit &&
           std::none_of(line.begin(), line.end(), [](char c) { return c == '\0' || c == '\xFF'; });
}

/// Encodes up to three bytes into four characters.
void EncodeGroup(std::string_view bytes, char* out) {
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const unsigned int byte = i < bytes.size() ? static_cast<unsigned char>(~bytes[i]) : 0U;
        group = group << 8 | byte;
    }
    for (std::size_t i = 0; i < 4; ++i) {
        out[i] = i <= bytes.size() ? kAlphabet[group >> (18 - 6 * i) & 0x3F] : kPad;
    }
}

}  // namespace

}  // namespace macroengine

int EncodeSourceLine(const char* line, unsigned int length, char* encoded, unsigned int capacity) {
    const std::string_view text(line, length);
    if (!macroengine::CanBeEncoded(text)) return -1;
    const std::size_t size = (text.size() + 2) / 3 * 4;
    if (size > capacity) return -1;
    for (std::size_t i = 0; i < text.size(); i += 3)
        macroengine::EncodeGroup(text.substr(i, 3), encoded + i / 3 * 4);
    return static_cast<int>(size);
}

int DecodeSourceLine(const char* encoded, unsigned int length, char* line, unsigned int capacity) {
    std::string text;
    if (!macroengine::DecodeLineWithinLimit(std::string_view(encoded, length), text)) return -1;
    if (text.size() > capacity) return -1;
    std::copy(text.begin(), text.end(), line);
    return static_cast<int>(text.size());
}
