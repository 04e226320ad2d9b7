#pragma once

#include "regdef/CRegDefFile.h"

namespace macroengine {

/// The reader of the line-based format. Its [ENDIAN] table and its preamble stay empty.
class PSCRegDefFile : public CRegDefFile {
public:
    PSCRegDefFile();
    ~PSCRegDefFile() override;

    bool Load(const char* path) override;

    /// Joins each record to the one before it that it continues.
    /// @return true.
    virtual bool MergeSplitRegisters();
};

}  // namespace macroengine
