#pragma once

#include <string>

namespace macroctl {

/// Tells by the content which of the two formats a register file has.
///
/// @return true for a line-based file; false when the file has the header of a section, plain or encoded, or
///         a line that may be one misspelt, and when it can't be read, so that the reader of the sectioned
///         format tells why.
bool LooksLineBased(const std::string& path);

}  // namespace macroctl
