#pragma once

#include <deque>
#include <vector>

#include "host/CErrorMessageTable.h"
#include "regdef/CRegFields.h"
#include "regdef/EndianTable.h"
#include "regdef/RegisterColumns.h"
#include "regdef/TextPool.h"

namespace macroengine {

/// What the loads of one reader have gathered. Each load adds to it.
struct RegisterContents {
    CErrorMessageTable errors;
    std::deque<CRegFields> records;  ///< a deque, because the host keeps pointers into it over further loads
    EndianTable endian;
    std::vector<RegisterColumn> columns;
    std::vector<const char*> preamble;
    TextPool texts;  ///< the texts of records and preamble
};

}  // namespace macroengine
