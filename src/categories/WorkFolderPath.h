#pragma once

#include <string>

#include "macroengine/CMacroPropertyIF.h"

namespace macroengine {

/// @return the path of a name under the work folder; empty when the interface, which may be a plug-in's own, has
///         none.
inline std::string WorkFolderPath(CMacroPropertyIF* property, const char* name) {
    const char* const path = property->GetFullPathFromWorkFolder(name);
    return path == nullptr ? std::string() : path;
}

}  // namespace macroengine
