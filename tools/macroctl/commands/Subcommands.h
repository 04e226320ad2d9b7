#pragma once

#include <functional>

#include "ExitStatus.h"

namespace CLI {  // NOLINT(readability-identifier-naming): the library's name
class App;
}

namespace macroctl {

/// What a subcommand does once the whole command line has been read.
struct Action {
    std::function<ExitStatus()> run;
    ExitStatus failure = kExitFailed;  ///< what to tell when it ends in an exception
};

// Each adds one subcommand with its options to the program. When the command line names the subcommand,
// `chosen`, which outlives `app`, receives its action.

void AddRun(CLI::App& app, Action& chosen);        ///< Runs a macro file.
void AddCheck(CLI::App& app, Action& chosen);      ///< Compiles macro files and looks at what they say.
void AddRegisters(CLI::App& app, Action& chosen);  ///< Shows the registers of register files.
void AddDiff(CLI::App& app, Action& chosen);       ///< Compares two register files.
void AddEncode(CLI::App& app, Action& chosen);     ///< Writes the encoded form of a text file.
void AddDecode(CLI::App& app, Action& chosen);     ///< Writes the text of an encoded file.

}  // namespace macroctl
