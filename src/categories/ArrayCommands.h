#pragma once

#include "macroengine/CMacroCategoryBase.h"

namespace macroengine {

/// `a = array.init(value, ...)`: an array of its arguments, all integers, all floating values or all texts.
class CMacroCategoryCmdArray_Init : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

/// `n = array.max(array)`: the number of elements.
class CMacroCategoryCmdArray_Max : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

}  // namespace macroengine
