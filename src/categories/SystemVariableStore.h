#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

/// @file
/// The system variables: numbers that macros, the host and its plug-ins share across the process. They live
/// as texts in the environment, so programs that the process starts see them too, and a text that is set
/// elsewhere is a system variable as far as it reads as a number.
///
/// The functions may be called from any thread; they are safe against each other and against the start of a
/// program.

namespace macroengine {

using SystemValue = std::variant<std::int32_t, double>;

/// Reads a variable.
///
/// A text that is a decimal integer as a whole is an integer, brought into the 32-bit range; any other one
/// that is a floating-point number as a whole is floating. Blanks may stand before either. A variable that is
/// not set or empty, or whose name is not valid, is the integer 0.
///
/// @return nothing when the text is no number or a floating one out of range.
std::optional<SystemValue> ReadSystemVariable(const std::string& name);

/// Sets a variable to a decimal integer.
/// @return false when the environment does not accept it: a name that is empty or holds "=".
bool WriteSystemVariable(const std::string& name, std::int64_t value);

/// Sets a variable to a number in fixed notation with six digits behind the point. Returns as above.
bool WriteSystemVariable(const std::string& name, double value);

}  // namespace macroengine
