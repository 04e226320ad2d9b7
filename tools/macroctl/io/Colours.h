#pragma once

namespace macroctl {

constexpr char kErrorColour[] = "\x1b[1;31m";  ///< Bold red, until kNoColour.
constexpr char kNoColour[] = "\x1b[0m";

}  // namespace macroctl
