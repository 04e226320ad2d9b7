#pragma once

#include <string>
#include <vector>

class CMacroFileIF;

namespace macroctl {

class DeviceMap;

/// Holds the literal arguments of the board's commands in a loaded macro against the registers of a device.
///
/// Nothing runs. What is known only when the macro runs, such as the value of a variable, is passed over.
///
/// @return the lines that a run would give, in the order of the program.
std::vector<std::string> FindRegisterMistakes(CMacroFileIF& file, const DeviceMap& device);

}  // namespace macroctl
