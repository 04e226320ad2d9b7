#pragma once

#include "macroengine/CMacroCategoryBase.h"

namespace macroengine {

/// `wait_ms(milliseconds)`: sleeps. A negative number does not wait at all.
class CMacroCategoryCmdWaitms_waitms : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

}  // namespace macroengine
