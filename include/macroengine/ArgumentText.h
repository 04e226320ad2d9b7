#pragma once

#include "macroengine/Export.h"

class CMacroPropertyIF;

/// Writes an argument of any kind as text, also where no typed operation reads it: booleans and nested
/// arrays.
///
/// An integer is written in decimal, a floating value with up to six significant digits as `"" + value`
/// writes it, a boolean as `true` or `false`, and a text as it is. An array is written as `[1, "two", [3.5,
/// true]]`: the texts in it stand in double quotes, and a double quote inside such a text as `\"`.
///
/// @param property  the object that the engine handed to CMacroCategoryBase::Run.
/// @param index     0-based.
/// @return the text, which stays valid as long as `property`; null when there is no such argument or when
///         `property` is null or not the engine's own. A text of an array that would exceed 64 MiB is cut
///         there and ends in `...`. Throws nothing but the standard allocation failure.
MACROENGINE_API const char* FormatMacroArgument(CMacroPropertyIF* property, unsigned int index);
