#pragma once

#include "macroengine/CMacroCategoryBase.h"

namespace macroengine {

/// `system.abort("message")`: reports the message and stops the macro by failing.
class CMacroCategorySystem_Abort : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

}  // namespace macroengine
