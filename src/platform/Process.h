#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace macroengine::platform {

/// What became of a program.
struct ProcessResult {
    bool started = false;   ///< false: there was nothing to run; the rest says nothing.
    bool timedOut = false;  ///< It was still running after the time-out and has been ended.
    bool exitCodeKnown =
        false;  ///< false after a time-out, and when the system gives the code to somebody else.
    std::uint32_t exitCode = 0;
};

/// Runs a program and waits until it ends. The calling thread is blocked meanwhile.
///
/// On POSIX the program gets its arguments by SplitParameterLine, reads from an empty standard input and
/// inherits the standard output and error streams, the environment and nothing else. It runs in a process
/// group of its own, all of which is killed after a time-out as far as it is not another user's; programs
/// that it left running when it ended by itself go on. One that is ended by a signal has the exit code 128
/// and the signal's number. On Windows the shell opens the file, with the program that belongs to it.
///
/// @param folder          the folder that it works in; empty for the current one.
/// @param command         the file to run, relative to the folder unless it is absolute.
/// @param parameterLine   the parameters in one text.
/// @param timeOutSeconds  how long to wait at most; 0 for no limit.
ProcessResult RunProcess(const std::string& folder, const std::string& command,
                         const std::string& parameterLine, std::uint32_t timeOutSeconds);

/// Cuts a parameter line into arguments as the C runtime of Windows does. Blanks and tabs separate. Double
/// quotes group: what stands in them, blanks included, belongs to one argument, which may be empty; two
/// quotes inside such a part are one quote. Backslashes are plain characters except before a quote: there
/// each two are one, and a single one that is left over makes the quote a plain character.
std::vector<std::string> SplitParameterLine(std::string_view line);

}  // namespace macroengine::platform
