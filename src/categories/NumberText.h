#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// @file
/// Numbers at the start of a text, as the C library reads them, but with 32 bits and a decimal point on every
/// platform and in every locale. Blanks before a number are the caller's to skip.

namespace macroengine {

template <class Number>
struct ConvertedNumber {
    Number value{};
    std::size_t length = 0;     ///< of the part of the text that is the number; 0 without one
    bool isOutOfRange = false;  ///< the value is the limit that the number exceeds
};

/// A sign and digits of the base, 10 or 16. "-" negates modulo 2^32.
ConvertedNumber<std::uint32_t> ToUnsigned(std::string_view text, unsigned int base);

/// A sign and decimal digits.
ConvertedNumber<std::int32_t> ToInteger(std::string_view text);

/// A sign and a decimal number with or without a point and an exponent, a hexadecimal one after "0x", or
/// "inf" or "nan". A number too small to represent is its nearest value.
ConvertedNumber<double> ToFloating(std::string_view text);

}  // namespace macroengine
