#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace macroengine::test {

/// Encodes a source line as encoded files hold it: complemented, in Base64 with "-" as the last letter and
/// "*" as the pad.
inline std::string EncodedLine(std::string_view line) {
    constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+-";
    std::string encoded;
    for (std::size_t i = 0; i < line.size(); i += 3) {
        const std::string_view group = line.substr(i, 3);
        unsigned bits = 0;
        for (std::size_t k = 0; k < 3; ++k)
            bits = bits << 8 | (k < group.size() ? ~static_cast<unsigned>(group[k]) & 0xFF : 0);
        for (std::size_t k = 0; k < 4; ++k)
            encoded += k <= group.size() ? kAlphabet[bits >> (18 - 6 * k) & 63] : '*';
    }
    return encoded;
}

}  // namespace macroengine::test
