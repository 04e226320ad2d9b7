#pragma once

#include <cstddef>
#include <deque>
#include <exception>
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

/// Belongs to one load: when the load runs out of memory, what it has gathered goes again. A part of a header
/// line would stay in force for the load that follows.
class LoadGuard {
public:
    explicit LoadGuard(RegisterContents& contents)
        : contents_(contents),
          records_(contents.records.size()),
          columns_(contents.columns.size()),
          preamble_(contents.preamble.size()),
          exceptions_(std::uncaught_exceptions()) {}
    LoadGuard(const LoadGuard&) = delete;
    LoadGuard& operator=(const LoadGuard&) = delete;
    ~LoadGuard() {
        if (std::uncaught_exceptions() == exceptions_) return;
        contents_.records.resize(records_);
        contents_.columns.resize(columns_);
        contents_.preamble.resize(preamble_);
    }

private:
    RegisterContents& contents_;
    std::size_t records_;
    std::size_t columns_;
    std::size_t preamble_;
    int exceptions_;
};

}  // namespace macroengine
