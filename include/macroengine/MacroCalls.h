#pragma once

#include "macroengine/Export.h"

class CMacroFileIF;

/// @file
/// The calls in a loaded macro file, for tools that check a macro before anything runs.

/// An argument as it stands in the source.
struct MacroCallArgument {
    int type;          ///< 0 integer, 1 floating, 2 text; 8 for what is known only when the macro runs
    int integer;       ///< of an integer
    double floating;   ///< of a floating value
    const char* text;  ///< of a text; never null
};

/// A call `category.command(arguments)`. All that it points to is valid during the visit.
struct MacroCall {
    const char* file;                    ///< the file that it stands in, as error lines name it
    unsigned int line;                   ///< of its statement, counted from 1
    const char* category;                ///< the name before the point
    const char* command;                 ///< the name behind it; may be empty in a bare call
    unsigned int argumentCount;          ///< the number of arguments
    const MacroCallArgument* arguments;  ///< the first one; not to be read when there are none
    const MacroCallArgument* assigned;   ///< the value assigned to the call, null when there is none
};

/// Receives one call.
/// @param call     what is called, where and with what.
/// @param context  what was given to VisitMacroCalls.
/// @return whether to go on.
typedef bool (*MacroCallVisitor)(const MacroCall& call, void* context);

/// Visits the calls of all files loaded so far, included ones too, in the order of the program.
///
/// The visitor must neither load nor run nor delete the file. Visiting belongs to the thread that owns the
/// file.
///
/// @param file     what was loaded.
/// @param visit    receives the calls.
/// @param context  is passed on to it.
/// @return true when all calls were visited; false when the visitor stopped, or when `file` or `visit` is null
///         or `file` is not the engine's own. Throws nothing but the standard allocation failure and what the
///         visitor throws.
MACROENGINE_API bool VisitMacroCalls(CMacroFileIF* file, MacroCallVisitor visit, void* context);
