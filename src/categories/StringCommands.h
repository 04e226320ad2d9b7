#pragma once

#include "macroengine/CMacroCategoryBase.h"

namespace macroengine {

/// `s = string.format(format, value)`: one value, as the C library's printf writes it.
class CMacroCategoryCmdString_Format : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

/// `s = string.int2hex(value[, width])`: unsigned upper-case hexadecimal, filled with zeros.
class CMacroCategoryCmdString_int2Hexstr : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

/// `s = string.int2dec(value[, width[, padding]])`: decimal, filled with blanks, or with zeros for a padding
/// of 0.
class CMacroCategoryCmdString_int2Decstr : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

}  // namespace macroengine
