#pragma once

#include <optional>

#include "ExitStatus.h"
#include "commands/Subcommands.h"

namespace macroctl {

/// Reads the command line.
///
/// @param chosen  receives what the command line asks for when there is no result.
/// @return nothing when there is something to do; otherwise the exit status, after the help text, the version
///         or the reason for refusal has been written.
std::optional<ExitStatus> ParseCommandLine(int argc, char** argv, Action& chosen);

}  // namespace macroctl
