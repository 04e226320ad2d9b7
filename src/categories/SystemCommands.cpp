#include "categories/SystemCommands.h"

#include "macroengine/CMacroPropertyIF.h"
#include "runtime/ValueView.h"

namespace macroengine {

bool CMacroCategorySystem_Abort::Run(CMacroPropertyIF* property) {
    if (property->CheckArgumentCount(1, 1) < 0) return false;
    if (property->GetArgType(0) == static_cast<int>(ValueKind::String)) {
        property->AddErrorMessage(property->GetArgString(0));
    } else {
        property->SetResultString("");
    }
    return false;
}

bool CMacroCategorySystem_GetVariableType::Run(CMacroPropertyIF* property) {
    if (property->CheckArgumentCount(1, 1) < 0) {
        property->SetResultString("");
        return false;
    }
    const int kind = property->GetArgType(0);
    return property->SetResultInteger(kind == static_cast<int>(ValueKind::None) ? -1 : kind);
}

}  // namespace macroengine
