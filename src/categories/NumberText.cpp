#include "categories/NumberText.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

#include "source/Characters.h"

namespace macroengine {

namespace {

constexpr std::uint8_t kNoDigit = 99;

struct DigitValues {
    std::uint8_t of[256] = {};

    constexpr DigitValues() {
        for (std::uint8_t& value : of)
            value = kNoDigit;
        for (std::uint8_t i = 0; i < 16; ++i) {
            of[static_cast<unsigned char>("0123456789ABCDEF"[i])] = i;
            of[static_cast<unsigned char>("0123456789abcdef"[i])] = i;
        }
    }
};

constexpr DigitValues kDigitValues;

constexpr bool IsSign(char c) {
    return c == '+' || c == '-';
}

struct Magnitude {
    std::uint64_t value = 0;  ///< one above the 32-bit range when the digits exceed it
    std::size_t length = 0;   ///< with the sign
    bool isNegative = false;
};

template <unsigned int base>
Magnitude ReadMagnitude(std::string_view text) {
    constexpr std::uint64_t kTooLarge = std::uint64_t{std::numeric_limits<std::uint32_t>::max()} + 1;
    Magnitude magnitude;
    const std::size_t first = !text.empty() && IsSign(text.front()) ? 1 : 0;
    std::size_t position = first;
    std::uint64_t value = 0;
    for (; position < text.size(); ++position) {
        const unsigned int digit = kDigitValues.of[static_cast<unsigned char>(text[position])];
        if (digit >= base) break;
        // Digits that no 64 bits hold are too large already.
        if (value < kTooLarge) value = value * base + digit;
    }
    if (position == first) return magnitude;
    magnitude.value = std::min(value, kTooLarge);
    magnitude.length = position;
    magnitude.isNegative = text.front() == '-';
    return magnitude;
}

/// The decimal exponent of a number that std::from_chars has refused for its size, up to a constant: above 0
/// for a large one, below for a small one.
long long DecimalExponent(std::string_view number) {
    const std::size_t mantissaLength = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, mantissaLength);
    const std::string_view exponentText = number.substr(std::min(mantissaLength + 1, number.size()));
    const long long exponent = ToInteger(exponentText).value;
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t significant = std::min(mantissa.find_first_of("123456789"), mantissa.size());
    return exponent + static_cast<long long>(point) - static_cast<long long>(significant);
}

}  // namespace

ConvertedNumber<std::uint32_t> ToUnsigned(std::string_view text, unsigned int base) {
    const Magnitude magnitude = base == 16 ? ReadMagnitude<16>(text) : ReadMagnitude<10>(text);
    constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();
    if (magnitude.value > kMost) return {kMost, magnitude.length, true};
    const auto value = static_cast<std::uint32_t>(magnitude.value);
    return {magnitude.isNegative ? 0U - value : value, magnitude.length, false};
}

ConvertedNumber<std::int32_t> ToInteger(std::string_view text) {
    const Magnitude magnitude = ReadMagnitude<10>(text);
    const auto size = static_cast<std::int64_t>(magnitude.value);
    const std::int64_t value = magnitude.isNegative ? -size : size;
    const std::int64_t nearest = std::clamp<std::int64_t>(value, std::numeric_limits<std::int32_t>::min(),
                                                          std::numeric_limits<std::int32_t>::max());
    return {static_cast<std::int32_t>(nearest), magnitude.length, nearest != value};
}

ConvertedNumber<double> ToFloating(std::string_view text) {
    const bool hasSign = !text.empty() && IsSign(text.front());
    const bool isNegative = hasSign && text.front() == '-';
    std::string_view rest = text.substr(hasSign ? 1 : 0);
    if (!rest.empty() && IsSign(rest.front())) return {};

    const bool isHexadecimal = rest.size() > 2 && rest[0] == '0' && (rest[1] == 'x' || rest[1] == 'X') &&
                               (IsHexadecimalDigit(rest[2]) || rest[2] == '.');
    const auto format = isHexadecimal ? std::chars_format::hex : std::chars_format::general;
    if (isHexadecimal) rest.remove_prefix(2);

    double value = 0.0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value, format);
    if (error == std::errc::invalid_argument) {
        // Behind "0x" without digits the number is the "0" alone.
        return isHexadecimal ? ConvertedNumber<double>{isNegative ? -0.0 : 0.0, text.size() - rest.size() - 1}
                             : ConvertedNumber<double>{};
    }
    const auto numberLength = static_cast<std::size_t>(end - rest.data());
    const std::size_t length = text.size() - rest.size() + numberLength;
    bool isOutOfRange = false;
    if (error == std::errc::result_out_of_range) {
        isOutOfRange = isHexadecimal || DecimalExponent(rest.substr(0, numberLength)) > 0;
        value = isOutOfRange ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return {isNegative ? -value : value, length, isOutOfRange};
}

}  // namespace macroengine
