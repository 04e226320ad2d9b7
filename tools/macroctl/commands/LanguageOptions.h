#pragma once

#include "commands/Subcommands.h"
#include "macro/Macro.h"

namespace macroctl {

/// Adds the options that decide which commands a macro may name, so that compiling needs them too.
///
/// @param options  receives what the command line says; outlives `command`.
void AddLanguageOptions(CLI::App& command, LanguageOptions& options);

}  // namespace macroctl
