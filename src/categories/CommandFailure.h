#pragma once

#include <string>

#include "macroengine/CMacroPropertyIF.h"

namespace macroengine {

/// Reports a message of a command's own.
/// @return false.
inline bool Fail(CMacroPropertyIF* property, const std::string& message) {
    property->AddErrorMessage(message.c_str());
    return false;
}

}  // namespace macroengine
