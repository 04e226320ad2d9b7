#pragma once

#include <macroengine/Limits.h>

namespace CLI {  // NOLINT(readability-identifier-naming): the library's name
class App;
}

namespace macroctl {

/// Adds --max-statements, --max-seconds and --max-memory to a subcommand.
void AddLimitOptions(CLI::App& command, MacroLimits& limits);

}  // namespace macroctl
