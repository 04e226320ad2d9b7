#pragma once

#include <string>
#include <string_view>

#include "platform/NativePath.h"

namespace macroengine::platform {

/// Returns the path as the system takes it. Every path goes through here on its way to a system call, and
/// nowhere else: the texts that scripts and messages see keep their "\".
inline std::string ToSystemPath(std::string_view path) {
    return WithSeparator(path, '/');
}

}  // namespace macroengine::platform
