#pragma once

#include <cstdint>
#include <string>

#include "runtime/CMacroCommonValue.h"
#include "runtime/VariableTable.h"

namespace macroengine {

/// Finds the datum that an operand stands for: an integer, a floating value, a text, a boolean or an array.
///
/// @param operand  a datum, or a reference to a variable, an element or a result.
/// @param value    receives a view of the datum, valid until something is assigned.
/// @param error    receives one message line without a location on failure.
/// @return false when there is no such datum.
bool ResolveOperand(const ValueView& operand, ValueView& value, std::string& error);

/// Finds the element that `variable[subscript]...` reads; its parameters are those of ResolveOperand.
bool ResolveElement(const ElementReference& element, ValueView& value, std::string& error);

/// Resolves the subscript of an element to an index, which for a read is taken as unsigned.
bool ResolveSubscript(const ValueView& subscript, std::int32_t& index, std::string& error);

namespace detail {

bool ResolveReference(const ValueView& operand, ValueView& value, std::string& error);

}  // namespace detail

inline bool ResolveOperand(const ValueView& operand, ValueView& value, std::string& error) {
    value = operand.eType == ValueKind::VariableReference ? operand.variable->value.View() : operand;
    return IsConcrete(value.eType) || detail::ResolveReference(operand, value, error);
}

}  // namespace macroengine
