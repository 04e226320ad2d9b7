#pragma once

#include <string>
#include <string_view>

#include "registers/RegisterFile.h"

namespace macroctl {

/// @return an address of four digits or more; the empty text when the register isn't on this bus.
std::string AddressText(const RegisterPlace& place);

/// @return "big" or "little"; the empty text when the register isn't on this bus.
const char* EndianText(const RegisterPlace& place);

/// @return the byte order of both buses in one word when they agree, otherwise both, the two-wire bus first.
std::string EndianText(const Register& reg);

/// @return the initial value in as many digits as the register needs; the empty text when the file gives
/// none.
std::string InitialValueText(const RegisterFile& file, const Register& reg);

/// @return the description; the empty text for one that only repeats the name, as in line-based files.
std::string_view DescriptionText(const Register& reg);

/// @return description and function, with a line end between them when there are both.
std::string DescriptionAndFunction(const Register& reg);

/// @return the name of a file without its folder.
std::string FileName(const std::string& path);

/// @return the name of a file without folder and extension.
std::string FileStem(const std::string& path);

}  // namespace macroctl
