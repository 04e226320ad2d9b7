#pragma once

// The one place that includes the Windows headers, so that their macros stay out of everything else and every
// file sees the same subset.

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif

#include <windows.h>
