#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace macroengine {

// The numbers of the line-based format. Whatever exceeds 32 bits wraps around.

/// Reads hexadecimal digits, at least one and nothing else.
std::optional<std::uint32_t> ParseHexadecimal(std::string_view text);

/// Reads decimal digits, at least one and nothing else.
std::optional<std::uint32_t> ParseDecimal(std::string_view text);

/// Works out `A*B`, `A*B+C` or `A*B-C`: A times B, rounded, and C added.
///
/// A and B are floating-point numbers of single precision, C is an integer of 32 bits. A and B may stand in
/// parentheses; outside of them a sign ends B.
/// @return nothing when the text is no such expression or A times B is too large.
std::optional<std::uint32_t> ParseScaledValue(std::string_view text);

}  // namespace macroengine
