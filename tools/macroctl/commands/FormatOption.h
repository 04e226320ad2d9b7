#pragma once

#include <string>
#include <vector>

#include "commands/Subcommands.h"

namespace macroctl {

/// Adds `--format`, which takes one of several names.
///
/// @param names   the formats that there are.
/// @param format  holds the default and receives what the command line says; outlives `command`.
void AddFormatOption(CLI::App& command, const std::vector<std::string>& names, std::string& format);

}  // namespace macroctl
