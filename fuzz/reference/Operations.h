#pragma once

#include <string>

#include "reference/Value.h"

namespace macroengine::reference {

/// @return false with the reason; the result is then untouched.
bool Operate(const std::string& operation, const Value& left, const Value& right, Value& result,
             std::string& error);

/// The same for comparisons, `&&` and `||`.
bool Compare(const std::string& operation, const Value& left, const Value& right, Value& result,
             std::string& error);

}  // namespace macroengine::reference
