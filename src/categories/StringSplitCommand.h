#pragma once

#include "macroengine/CMacroCategoryBase.h"

namespace macroengine {

/// `a = string.split(text[, delimiter[, trim]])`: the pieces between the delimiters, as an array of texts.
class CMacroCategoryCmdString_Split : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

}  // namespace macroengine
