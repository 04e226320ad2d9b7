#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "runtime/CMacroCommonValue.h"

namespace macroengine {

/// The text of a value that is no array, in a buffer of its own. Conversions do not depend on the locale.
class ValueText {
public:
    /// An integer in decimal, a floating value with six significant digits in fixed or exponent notation, a
    /// boolean as "true" or "false", a text as it is (a view, not a copy).
    explicit ValueText(const ValueView& value);

    ValueText(const ValueText&) = delete;
    ValueText& operator=(const ValueText&) = delete;

    std::string_view Get() const { return text_; }

private:
    char buffer_[32];
    std::string_view text_;
};

/// Truncates toward zero to a 64-bit integer, of which the low 32 bits are kept. A value that no 64-bit
/// integer holds gives 0.
std::int32_t TruncateToInteger(double value);

/// @param left  a text; it is extended in place where nobody can tell.
/// @return the text `left` followed by `right`, which may be a part of `left`.
CMacroCommonValue Concatenate(const ValueView& left, std::string_view right);

}  // namespace macroengine
