#pragma once

#include "macroengine/CMacroCategoryBase.h"

namespace macroengine {

/// `system.abort("message")`: reports the message and stops the macro by failing.
class CMacroCategorySystem_Abort : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

/// `n = system.get_variable_type(value)`: the number of the value's kind, -1 for no value.
class CMacroCategorySystem_GetVariableType : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

}  // namespace macroengine
