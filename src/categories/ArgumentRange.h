#pragma once

#include "macroengine/CMacroPropertyIF.h"

namespace macroengine {

/// Reads an integer argument that lies between two limits, neither of them negative.
///
/// The interface may be a plug-in's own, which need not look at the range.
inline bool ReadInRange(CMacroPropertyIF* property, unsigned int index, int min, int max, int& value) {
    return property->GetArgInteger(index, static_cast<unsigned int>(min), static_cast<unsigned int>(max),
                                   value) &&
           value >= min && value <= max;
}

}  // namespace macroengine
