#pragma once

#include <mutex>
#include <optional>
#include <string>

/// @file
/// The environment of the process, which the engine's system variables live in.
///
/// The functions may be called from any thread. They are safe against each other, not against a host that
/// changes the environment by other means at the same time.

namespace macroengine::platform {

/// Returns the variable's text, nothing when it is not set or the name is not valid. On Windows an empty text
/// counts as not set, as everywhere on that system. A name is valid when it is not empty and holds neither
/// "=" nor NUL.
std::optional<std::string> GetEnvironmentText(const std::string& name);

/// Sets the variable to the value up to its first NUL and returns whether the environment accepted it. A name
/// that is not valid or too little memory give false and change nothing. On Windows an empty value removes
/// the variable.
bool SetEnvironmentText(const std::string& name, const std::string& value);

/// Keeps SetEnvironmentText of other threads waiting for as long as the lock is held: for system calls that
/// read the environment themselves. The two functions above must not be called meanwhile.
std::unique_lock<std::mutex> LockEnvironment();

}  // namespace macroengine::platform
