#pragma once

#include "categories/RangeIndicator.h"
#include "macroengine/CMacroCategoryBase.h"

namespace macroengine {

// Each reads the number that begins a text, after spaces, and ignores what follows it.

/// `n = string.hex2dec(text)`: hexadecimal digits, with or without "0x".
class CMacroCategoryCmdString_Hex2Dec : public CMacroCategoryBase {
public:
    CMacroCategoryCmdString_Hex2Dec(const char* category, const char* property, RangeIndicator& indicator);
    bool Run(CMacroPropertyIF* property) override;

private:
    RangeIndicator& indicator_;
};

/// `n = string.str2dec(text)`: decimal digits.
class CMacroCategoryCmdString_Str2Dec : public CMacroCategoryBase {
public:
    CMacroCategoryCmdString_Str2Dec(const char* category, const char* property, RangeIndicator& indicator);
    bool Run(CMacroPropertyIF* property) override;

private:
    RangeIndicator& indicator_;
};

/// `x = string.str2float(text)`: decimal digits with or without a point, and no exponent.
class CMacroCategoryCmdString_Str2Float : public CMacroCategoryBase {
public:
    CMacroCategoryCmdString_Str2Float(const char* category, const char* property, RangeIndicator& indicator);
    bool Run(CMacroPropertyIF* property) override;

private:
    RangeIndicator& indicator_;
};

}  // namespace macroengine
