#pragma once

#include <optional>
#include <string>
#include <vector>

namespace macroctl {

/// What the process tells its caller at its end.
enum ExitStatus : int {
    kExitDone = 0,     ///< The macro ran to its end; for `check`, all files compiled.
    kExitFailed = 1,   ///< A file failed to load, or the macro failed while it ran.
    kExitUsage = 2,    ///< Wrong usage, or a plug-in that can't be used.
    kExitAborted = 3,  ///< The run was aborted.
};

/// What the command line asks for.
struct Options {
    enum class Action { Run, Check };

    Action action = Action::Run;
    std::vector<std::string> files;    ///< Exactly one for Run.
    std::string workDirectory;         ///< Empty: the macro's own folder.
    std::string nameSpace;             ///< In force until the macro changes it.
    std::vector<std::string> plugins;  ///< In the order given.
    bool board = false;
    bool traceBus = false;  ///< Never without `board`.
    bool keepGoing = false;
};

/// Reads the command line.
///
/// @return nothing when `options` says what to do; otherwise the exit status, after the help text, the
///         version or the reason for refusal has been written.
std::optional<ExitStatus> ParseOptions(int argc, char** argv, Options& options);

}  // namespace macroctl
