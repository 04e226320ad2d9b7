#pragma once

#include "macroengine/Export.h"
#include "macroengine/WindowHandle.h"

/// @file
/// Facts that a host and its plug-ins share across the process: a table of 100 plug-in windows in named
/// shared memory, and the id and window of the board module.
///
/// The shared memory is named `TOV_MACRO_PLUGIN_INFO_SHARED_MEMORY` followed by the decimal process id and is
/// 1200 bytes long: 100 ids of 32 bits, then 100 handles of 64 bits. It lives as long as the process that
/// made it. There is no lock: callers on several threads serialise their changes themselves.

/// Enters a plug-in into the first free place of the table. A full table ignores it. A window that is already
/// there is entered again.
MACROENGINE_API void SetMacroPluginInfo(int id, HWND window);

/// Reads one place of the table.
///
/// @param index   0 to 99.
/// @param id      receives the plug-in's id; may be null.
/// @param window  receives its window; may be null.
/// @return false, with the out-parameters untouched, for any other index, for a free place and as long as the
///         process has entered no plug-in.
MACROENGINE_API bool GetMacroPluginInfo(int index, int* id, HWND* window);

/// Frees the first place that holds the window. Without such a place nothing happens.
MACROENGINE_API void RemoveMacroPluginInfo(HWND window);

/// Stores the id and the window of the board module; both are zero until then.
MACROENGINE_API void SetBoardModuleInfo(int id, HWND window);

/// Reads the id and the window of the board module.
///
/// @param ignored  has no meaning.
/// @param id       receives the id; may be null.
/// @param window   receives the window; may be null.
/// @return true.
MACROENGINE_API bool GetBoardModuleInfo(int ignored, int* id, HWND* window);
