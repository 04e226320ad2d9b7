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

}  // namespace macroengine
