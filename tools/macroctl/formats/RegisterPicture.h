#pragma once

#include <string>

#include "registers/Register.h"

namespace macroctl {

/// Draws the bits of a register as an SVG element: a row for each address from the lowest on, the register's
/// own bits marked and numbered.
///
/// Where the byte order differs between the buses there is a drawing for each.
///
/// @return the empty text for a register without bits.
std::string DrawRegister(const Register& reg);

}  // namespace macroctl
