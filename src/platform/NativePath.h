#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// @file
/// Paths as scripts write them: "\" and "/" both separate, on every platform. Nothing here asks the file
/// system. A "\" that is the second byte of a double-byte character is never taken for a separator.

namespace macroengine::platform {

/// Returns the path with every "\" that is a character of its own replaced by the separator.
std::string WithSeparator(std::string_view path, char separator);

/// Returns the length of the folder part, up to and including the last "\" or "/"; 0 when there is none.
std::size_t FolderLength(std::string_view path);

/// Returns the folder part as a folder to join names to: what FolderLength measures, or ".\" when there is
/// none.
std::string FolderOf(std::string_view path);

/// Returns whether the path begins with "\" or "/", or has ":" as its second character. An empty path is
/// relative.
bool IsAbsolute(std::string_view path);

/// Undoes doubled separators. A path that begins with four "\" (a doubled network prefix) keeps two of them;
/// from there on each pair of "\" becomes one, so a run of four becomes two and a run of three becomes two. A
/// path that begins with exactly two loses one. "/" stays as it is.
std::string CollapseDoubledBackslashes(std::string_view path);

}  // namespace macroengine::platform
