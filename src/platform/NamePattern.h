#pragma once

#include <string_view>

namespace macroengine::platform {

/// Returns whether a file name matches a pattern in which "*" stands for any characters and "?" for one
/// character, which may be a double-byte one. ASCII letters match in upper and lower case alike. "*.*"
/// matches every name.
bool MatchesNamePattern(std::string_view name, std::string_view pattern);

}  // namespace macroengine::platform
