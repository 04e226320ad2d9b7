#include "categories/NamespaceCommand.h"

#include <string>

#include "categories/CMacroCategoryCmdList.h"
#include "macroengine/CMacroPropertyIF.h"

namespace macroengine {

CMacroCategoryUsingNameSpace::CMacroCategoryUsingNameSpace(const char* category, const char* property,
                                                           CMacroCategoryCmdList& list)
    : CMacroCategoryBase(category, property, false, false, ""), commands_(list) {}

bool CMacroCategoryUsingNameSpace::Run(CMacroPropertyIF* property) {
    const int count = property->CheckArgumentCount(0, 1);
    if (count < 0) return false;
    if (count == 0) return commands_.SetCurrentNamespace("");

    const char* const name = property->GetArgString(0);
    if (name == nullptr) return false;
    if (*name == '\0') {
        property->AddErrorMessage("Error: namespace is null string");
        return false;
    }
    if (!property->CheckNoAssignedValue(false)) return false;
    if (commands_.SetCurrentNamespace(name)) return true;
    property->AddErrorMessage(("Error: " + std::string(name) + " is invalid namespace").c_str());
    return false;
}

}  // namespace macroengine
