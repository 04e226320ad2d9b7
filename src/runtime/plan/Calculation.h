#pragma once

#include <cstdint>

#include "runtime/Operator.h"

// What the operators do to values of one kind. Each step is made for one operator.

namespace macroengine::plan {

/// Unsigned, so that sums and products wrap, quotients and shifts to the right are unsigned ones.
template <Operator op>
std::int32_t Calculate(std::int32_t leftValue, std::int32_t rightValue) {
    const auto left = static_cast<std::uint32_t>(leftValue);
    const auto right = static_cast<std::uint32_t>(rightValue);
    std::uint32_t result = 0;
    if constexpr (op == Operator::Add) result = left + right;
    if constexpr (op == Operator::Subtract) result = left - right;
    if constexpr (op == Operator::Multiply) result = left * right;
    if constexpr (op == Operator::Divide) result = left / right;
    if constexpr (op == Operator::And) result = left & right;
    if constexpr (op == Operator::Or) result = left | right;
    if constexpr (op == Operator::ShiftLeft) result = right < 32 ? left << right : 0;
    if constexpr (op == Operator::ShiftRight) result = right < 32 ? left >> right : 0;
    return static_cast<std::int32_t>(result);
}

template <Operator op>
double Calculate(double left, double right) {
    if constexpr (op == Operator::Add) return left + right;
    if constexpr (op == Operator::Subtract) return left - right;
    if constexpr (op == Operator::Multiply) return left * right;
    return left / right;
}

template <Operator op, class Value>
bool Holds(Value left, Value right) {
    if constexpr (op == Operator::Equal) return left == right;
    if constexpr (op == Operator::NotEqual) return left != right;
    if constexpr (op == Operator::Less) return left < right;
    if constexpr (op == Operator::LessOrEqual) return left <= right;
    if constexpr (op == Operator::Greater) return left > right;
    if constexpr (op == Operator::GreaterOrEqual) return left >= right;
    if constexpr (op == Operator::LogicalAnd) return left && right;
    if constexpr (op == Operator::LogicalOr) return left || right;
}

}  // namespace macroengine::plan
