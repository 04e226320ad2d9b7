#pragma once

#include "macroengine/Export.h"

/// @file
/// System variables: numbers that macros (`system.variable`), the host and its plug-ins share across the
/// process.
///
/// @code
/// SetSystemVariable("LOT", 4711L);                 // system.variable("LOT") = 4711
/// long passed = 0;
/// if (!GetSystemVariable("PASSED", passed)) std::puts("PASSED holds no integer");
/// @endcode
///
/// They live as texts in the environment of the process, so programs that it starts see them too. A value is
/// typed by how its text reads: what is a decimal integer as a whole is an integer, any other floating-point
/// number is floating. The two kinds do not mix: the `long` form reads no floating value and the `double`
/// form no integer. An integer has 32 bits on every platform; a text that exceeds them reads as the nearest
/// one. A variable that is not set is the integer 0.
///
/// The functions may be called from any thread. They are safe against each other, not against a host that
/// changes the environment by other means at the same time. A null pointer passed as a name is taken as the
/// empty text. Nothing is thrown but the standard allocation failure.

/// Reads an integer.
///
/// @return false, with `value` untouched, when the variable holds a floating value or no number.
MACROENGINE_API bool GetSystemVariable(const char* name, long& value);

/// Reads a floating value.
///
/// @return false, with `value` untouched, when the variable holds an integer or no number, so also when it is
/// not set.
MACROENGINE_API bool GetSystemVariable(const char* name, double& value);

/// Sets a variable to an integer, written in decimal.
///
/// @return false, with nothing changed, when the environment does not accept it: an empty name or one that
/// holds "=".
MACROENGINE_API bool SetSystemVariable(const char* name, long value);

/// Sets a variable to a floating value, written with six digits behind the point: 1.5 is stored as
/// `1.500000`, and what is closer to zero than half of the last digit as zero.
///
/// @return as above.
MACROENGINE_API bool SetSystemVariable(const char* name, double value);
