#include "categories/SystemVariableCommand.h"

#include <optional>
#include <string>

#include "categories/CMacroProperty.h"
#include "categories/CommandFailure.h"
#include "categories/SystemVariableStore.h"

namespace macroengine {

namespace {

bool Get(CMacroPropertyIF* property, const std::string& name) {
    const std::optional<SystemValue> value = ReadSystemVariable(name);
    if (!value) return Fail(property, "Can't get variable [" + name + "]");
    const auto* const integer = std::get_if<std::int32_t>(&*value);
    return integer != nullptr ? property->SetResultInteger(*integer)
                              : property->SetResultFloating(std::get<double>(*value));
}

/// Reads what is assigned, if the store can hold it.
std::optional<SystemValue> ReadAssigned(CMacroPropertyIF* property) {
    int integer = 0;
    double floating = 0.0;
    if (const auto* const call = dynamic_cast<const CMacroProperty*>(property)) {
        // The typed operations would tell the kind too, but by adding a line for each that does not fit.
        const ValueView assigned = call->GetAssigned();
        if (assigned.eType == ValueKind::Integer) return assigned.integer;
        if (assigned.eType == ValueKind::Floating) return assigned.floating;
    } else {
        if (property->GetAssignedInteger(0, 0, integer)) return std::int32_t{integer};
        if (property->GetAssignedFloating(0.0, 0.0, floating)) return floating;
    }
    return std::nullopt;
}

bool Set(CMacroPropertyIF* property, const std::string& name) {
    const std::optional<SystemValue> value = ReadAssigned(property);
    if (!value) return Fail(property, "Assigned value is invalid.");
    const auto* const integer = std::get_if<std::int32_t>(&*value);
    const bool isSet = integer != nullptr ? WriteSystemVariable(name, std::int64_t{*integer})
                                          : WriteSystemVariable(name, std::get<double>(*value));
    return isSet || Fail(property, "Can't set variable [" + name + "]");
}

}  // namespace

CMacroCategorySystem_Variable::CMacroCategorySystem_Variable()
    : CMacroCategoryBase("system", "variable", true, true, "") {}

bool CMacroCategorySystem_Variable::Run(CMacroPropertyIF* property) {
    if (property->CheckArgumentCount(1, 1) < 0) return false;
    const char* const name = property->GetArgString(0);
    if (name == nullptr) return false;
    if (*name == '\0') return Fail(property, "Error: variable name is null string");
    return property->CheckNoAssignedValue(true) ? Get(property, name) : Set(property, name);
}

}  // namespace macroengine
