#pragma once

#include "macroengine/CMacroFileIF.h"
#include "macroengine/Export.h"

/// @file
/// The entry point of a plug-in: a shared library that brings commands to a host which loads it.
///
/// @code
/// extern "C" MACROENGINE_PLUGIN_EXPORT bool RegisterMacroPlugin(CMacroFileIF* file) {
///     static Twice twice;
///     return file->RegisterCategory(nullptr, &twice, false);
/// }
/// @endcode

/// Registers the plug-in's commands with a macro file. The plug-in defines it; the host finds it by this name
/// in the loaded library and calls it once for each macro file, before Load, on the thread that owns the
/// file.
///
/// The command objects stay the plug-in's and outlive the file; the host unloads the library only after the
/// file is deleted.
///
/// @param file  never null; not owned.
/// @return true when the commands are in place; false makes the host refuse the plug-in.
extern "C" MACROENGINE_PLUGIN_EXPORT bool RegisterMacroPlugin(CMacroFileIF* file);
