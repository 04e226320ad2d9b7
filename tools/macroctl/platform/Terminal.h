#pragma once

#include <cstddef>

namespace macroctl {

/// @return the width of the terminal that standard output goes to, in columns; 0 when it goes elsewhere.
std::size_t TerminalColumns();

/// @return the same of standard error; a terminal that doesn't tell its width counts as one of 80 columns.
std::size_t ErrorTerminalColumns();

/// Makes the terminal of standard error ready for colours.
///
/// @return false when it has none.
bool EnableErrorColours();

/// Makes standard output take bytes as they are, line ends included.
void KeepOutputBytes();

}  // namespace macroctl
