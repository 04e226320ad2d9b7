#pragma once

#include <cstddef>

namespace macroctl {

/// @return the width of the terminal that standard output goes to, in columns; 0 when it goes elsewhere.
std::size_t TerminalColumns();

/// Makes standard output take bytes as they are, line ends included.
void KeepOutputBytes();

}  // namespace macroctl
