#pragma once

#include <cstdint>
#include <string>

namespace macroctl {

/// @return the number with "0x" and at least so many digits, upper case.
std::string Hexadecimal(std::uint64_t value, int digits);

}  // namespace macroctl
