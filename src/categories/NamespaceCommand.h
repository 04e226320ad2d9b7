#pragma once

#include "macroengine/CMacroCategoryBase.h"

namespace macroengine {

/// `using.namespace("name")` makes a namespace current; `using.namespace()` goes back to the one before.
class CMacroCategoryUsingNameSpace : public CMacroCategoryBase {
public:
    CMacroCategoryUsingNameSpace(const char* category, const char* property, CMacroCategoryCmdList& list);
    bool Run(CMacroPropertyIF* property) override;

private:
    CMacroCategoryCmdList& commands_;
};

}  // namespace macroengine
