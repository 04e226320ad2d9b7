#pragma once

#include <string>

class CMacroPropertyIF;

namespace macroctl {

/// The kinds that CMacroPropertyIF::GetArgType tells apart.
enum class ArgumentKind { Integer = 0, Floating = 1, Text = 2, Boolean = 3, Array = 6, None = 8 };

/// Compares two arguments by kind and value.
///
/// Numbers compare by value, so 1 equals 1.0. A text equals only a text, a boolean only a boolean. Arrays are
/// equal when all their elements, at any depth, are written alike, which is how a script sees them.
bool ArgumentsEqual(CMacroPropertyIF& property, unsigned int left, unsigned int right);

/// Writes an argument so that no two kinds look alike: a text stands in double quotes.
///
/// @param exact  gives a floating value all the digits that tell it apart instead of the usual six.
std::string DescribeArgument(CMacroPropertyIF& property, unsigned int index, bool exact);

}  // namespace macroctl
