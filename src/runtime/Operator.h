#pragma once

#include <cstdint>
#include <string_view>

namespace macroengine {

/// The operators of operations and comparisons, turned from their texts into numbers once.
enum class Operator : std::uint8_t {
    Add,
    Subtract,
    Multiply,
    Divide,
    And,
    Or,
    ShiftLeft,
    ShiftRight,
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    LogicalAnd,
    LogicalOr,
    Unknown
};

/// @return the operator that the text spells, Unknown for any other text.
Operator OperatorFromText(std::string_view text);

}  // namespace macroengine
