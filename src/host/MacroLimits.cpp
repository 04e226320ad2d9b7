#include "host/CMacroFile.h"
#include "macroengine/Limits.h"

bool SetMacroLimits(CMacroFileIF* file, const MacroLimits& limits) {
    auto* const own = dynamic_cast<macroengine::CMacroFile*>(file);
    if (own == nullptr || !(limits.seconds >= 0.0)) return false;
    own->SetLimits(limits);
    return true;
}
