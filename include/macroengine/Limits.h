#pragma once

#include <cstdint>

#include "macroengine/CMacroFileIF.h"
#include "macroengine/Export.h"

/// @file
/// Limits for runs of a macro, for hosts that run what others have written.
///
/// @code
/// MacroLimits limits;
/// limits.statements = 10000000;
/// limits.seconds = 5.0;
/// limits.valueBytes = 64 << 20;
/// SetMacroLimits(file, limits);
/// if (!file->Run()) ...  // the last line may be "a.mac(7): error : Macro aborted. (limit of 5 seconds)"
/// @endcode

/// What one run may use. Zero, the default, is no limit.
struct MacroLimits {
    /// How many statements may be carried out. Each operation, comparison, assignment, jump and call of a
    /// command is one: a line of a macro has one or more.
    std::uint64_t statements = 0;

    /// How many seconds may pass, by a clock that nobody sets; time in which the macro waits counts.
    double seconds = 0.0;

    /// How many bytes the texts and arrays of the program may take, those of earlier runs included. What is
    /// shared counts once. Error lines do not count: a run that passes over errors gathers as many as its
    /// statements and its time allow.
    std::uint64_t valueBytes = 0;
};

/// Sets the limits of the runs that follow. A run that is under way keeps those it began with.
///
/// A run that meets a limit ends as one that is aborted: Run returns false, the last line is located at the
/// statement that was not to run or did not get its memory, says "Macro aborted." and names the limit, and
/// Run is refused until a Load has added a statement. Limits are looked at between statements: a command that
/// takes long is not interrupted. They cost nothing when there are none.
///
/// May be called from the thread that uses the file, also by a command.
///
/// @param file    a macro file that the library has made.
/// @param limits  copied.
/// @return false for null, for an object of another origin, and for a negative number of seconds or one that
///         is no number; nothing changes then.
MACROENGINE_API bool SetMacroLimits(CMacroFileIF* file, const MacroLimits& limits);
