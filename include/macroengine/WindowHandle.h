#pragma once

/// @file
/// The window handle that hosts and plug-ins exchange, the same type on every platform.
///
/// The engine stores handles and compares them, it never looks behind one: where there are no windows any
/// pointer that tells its owner apart will do. The declaration is compatible with the Windows headers' own,
/// in either order of inclusion.

struct HWND__;
typedef struct HWND__* HWND;  ///< A window, opaque to the engine.
