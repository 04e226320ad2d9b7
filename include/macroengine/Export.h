#pragma once

/// @file
/// The marks of what the library and what a plug-in export.
///
/// A host defines nothing to use the shared library. It defines `MACROENGINE_STATIC` to link the library
/// statically. `MACROENGINE_BUILDING` is defined by the library's own build alone.

/// The mark of what the library exports.
#if defined(MACROENGINE_STATIC)
#define MACROENGINE_API
#elif defined(_WIN32)
#if defined(MACROENGINE_BUILDING)
#define MACROENGINE_API __declspec(dllexport)
#else
#define MACROENGINE_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define MACROENGINE_API __attribute__((visibility("default")))
#else
#define MACROENGINE_API
#endif

/// The mark of the one function that a plug-in exports (Plugin.h).
#if defined(_WIN32)
#define MACROENGINE_PLUGIN_EXPORT __declspec(dllexport)
#elif defined(__GNUC__)
#define MACROENGINE_PLUGIN_EXPORT __attribute__((visibility("default")))
#else
#define MACROENGINE_PLUGIN_EXPORT
#endif
