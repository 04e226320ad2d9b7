#pragma once

#include "runtime/CMacroCommonValue.h"

namespace macroengine {

/// Stores a datum into `variable[subscript]...`, which grows and becomes an array as needed: a gap is filled
/// with the integer 0, and what is no array where one is needed gives way to one.
///
/// @param variable    the variable's value; of kind none when the variable does not exist yet.
/// @param subscripts  outermost first; at least one.
/// @param source      may be a part of the variable itself.
/// @return false when a subscript is no integer, is negative or too large, or when there is no memory; the
///         variable is then as it was.
bool StoreElement(CMacroCommonValue& variable, const OperandList& subscripts, const ValueView& source);

}  // namespace macroengine
