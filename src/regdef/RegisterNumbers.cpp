#include "regdef/RegisterNumbers.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "source/Characters.h"

namespace macroengine {

namespace {

constexpr std::uint32_t DigitValue(char c) {
    if (IsDigit(c)) return static_cast<std::uint32_t>(c - '0');
    return static_cast<std::uint32_t>((c | 0x20) - 'a' + 10);
}

std::string_view WithoutParentheses(std::string_view text) {
    while (text.size() >= 2 && text.front() == '(' && text.back() == ')')
        text = text.substr(1, text.size() - 2);
    return text;
}

/// @return where the addend begins, with its sign, or the size of the text when there is none. Signs in
///         parentheses do not count, and nothing does behind one that closes what was not opened.
std::size_t FindAddend(std::string_view text) {
    std::size_t open = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '(') {
            ++open;
        } else if (c == ')') {
            if (open == 0) break;
            --open;
        } else if ((c == '+' || c == '-') && open == 0) {
            return i;
        }
    }
    return text.size();
}

std::optional<float> ParseFactor(std::string_view text) {
    text = WithoutParentheses(text);
    // The conversion takes names of infinity as well, and no "+".
    const bool isSigned = !text.empty() && (text.front() == '+' || text.front() == '-');
    const std::string_view digits = text.substr(isSigned ? 1 : 0);
    if (digits.empty() || (!IsDigit(digits.front()) && digits.front() != '.')) return std::nullopt;
    if (text.front() == '+') text = digits;
    double value = 0.0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end) return std::nullopt;
    if (std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max())) return std::nullopt;
    return static_cast<float>(value);
}

/// @param text  a sign and the number; empty for no addend.
std::optional<std::int32_t> ParseAddend(std::string_view text) {
    if (text.empty()) return 0;
    if (text.size() < 2 || !IsDigit(text[1])) return std::nullopt;
    if (text.front() == '+') text.remove_prefix(1);
    std::int32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end) return std::nullopt;
    return value;
}

/// @return the low 32 bits of a finite whole number of any size.
std::uint32_t LowBits(double number) {
    constexpr double kTwoTo32 = 4294967296.0;
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(std::fmod(number, kTwoTo32)));
}

}  // namespace

std::optional<std::uint32_t> ParseHexadecimal(std::string_view text) {
    if (text.empty()) return std::nullopt;
    std::uint32_t value = 0;
    for (const char c : text) {
        if (!IsHexadecimalDigit(c)) return std::nullopt;
        value = value << 4 | DigitValue(c);
    }
    return value;
}

std::optional<std::uint32_t> ParseDecimal(std::string_view text) {
    if (text.empty()) return std::nullopt;
    std::uint32_t value = 0;
    for (const char c : text) {
        if (!IsDigit(c)) return std::nullopt;
        value = value * 10 + DigitValue(c);
    }
    return value;
}

std::optional<std::uint32_t> ParseScaledValue(std::string_view text) {
    const std::size_t star = text.find('*');
    if (star == std::string_view::npos) return std::nullopt;
    const std::string_view behind = text.substr(star + 1);
    const std::size_t sign = FindAddend(behind);
    const std::optional<float> value = ParseFactor(text.substr(0, star));
    const std::optional<float> scale = ParseFactor(behind.substr(0, sign));
    const std::optional<std::int32_t> addend = ParseAddend(behind.substr(sign));
    if (!value || !scale || !addend) return std::nullopt;
    const float product = *value * *scale;
    if (!std::isfinite(product)) return std::nullopt;
    const double rounded = std::floor(static_cast<double>(product) + 0.5);
    return LowBits(rounded) + static_cast<std::uint32_t>(*addend);
}

}  // namespace macroengine
