#pragma once

#include "macroengine/CMacroCategoryBase.h"

namespace macroengine {

/// `rows = system.csvfile_read(file[, convert])`: an array of rows, each an array of cells, as texts or, with
/// a convert flag of 1, as numbers where they read as such.
class CMacroCategorySystem_CsvfileRead : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

}  // namespace macroengine
