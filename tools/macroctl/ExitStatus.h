#pragma once

namespace macroctl {

/// What the process tells its caller at its end.
enum ExitStatus : int {
    kExitDone = 0,     ///< All went well.
    kExitFailed = 1,   ///< A file can't be read, compiled or run, or has findings.
    kExitUsage = 2,    ///< Wrong usage, or a plug-in that can't be used.
    kExitAborted = 3,  ///< The run was aborted.

    // `diff` answers a question, and its failure has to differ from every answer.
    kExitSame = 0,        ///< No change.
    kExitCompatible = 1,  ///< Changes, none of them breaking.
    kExitBreaking = 2,    ///< At least one breaking change.
    kExitUnreadable = 3,  ///< One of the files can't be read without an error.
};

}  // namespace macroctl
