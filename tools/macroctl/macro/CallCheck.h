#pragma once

class CMacroFileIF;

namespace macroctl {

class DeviceMap;
class ErrorLines;

/// Holds the literal arguments of the board's commands in a loaded macro against the registers of a device.
///
/// Nothing runs. What is known only when the macro runs, such as the value of a variable, is passed over.
///
/// @param findings  receives the lines that a run would give, in the order of the program.
void FindRegisterMistakes(CMacroFileIF& file, const DeviceMap& device, ErrorLines& findings);

}  // namespace macroctl
