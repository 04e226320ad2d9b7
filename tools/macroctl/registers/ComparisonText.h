#pragma once

#include <string>

#include "io/Output.h"
#include "registers/Comparison.h"

namespace macroctl {

/// Writes a line for each change; nothing when there is none.
void WriteComparisonText(const Comparison& comparison, Output& out);

/// Writes one object with all changes.
void WriteComparisonJson(const Comparison& comparison, const std::string& before, const std::string& after,
                         Output& out);

}  // namespace macroctl
