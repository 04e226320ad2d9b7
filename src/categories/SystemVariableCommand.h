#pragma once

#include "macroengine/CMacroCategoryBase.h"

namespace macroengine {

/// `x = system.variable("name")` reads a system variable, `system.variable("name") = x` sets it.
class CMacroCategorySystem_Variable : public CMacroCategoryBase {
public:
    CMacroCategorySystem_Variable();
    bool Run(CMacroPropertyIF* property) override;
};

}  // namespace macroengine
