#pragma once

#include <string>

#include "regdef/RegisterContents.h"

namespace macroengine {

/// Writes the byte order of the addresses 0 to 255 and then all records, for people to read. Lines end with
/// CR LF.
std::string WriteListing(const RegisterContents& contents);

}  // namespace macroengine
