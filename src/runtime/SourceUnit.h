#pragma once

#include <cstdint>
#include <string>

#include "host/CErrorMessageTable.h"

namespace macroengine {

/// What the statements of one compiled file share.
struct SourceUnit {
    std::string fileName;
    std::uint32_t compileNumber = 0;  ///< the include depth: 0 for the loaded file, 1 for what it includes
    const std::string* workFolder = nullptr;  ///< of the run under way
    bool hasBreakpoints = false;              ///< whether a statement has ever had its break flag set

    /// What the statement that ran last has to report. Statements run one at a time and the runner collects
    /// the lines after each, so one table serves them all.
    CErrorMessageTable errors;
};

}  // namespace macroengine
