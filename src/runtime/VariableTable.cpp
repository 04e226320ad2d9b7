#include "runtime/VariableTable.h"

namespace macroengine {

Variable& VariableTable::Bind(std::string_view name) {
    const auto found = byName_.find(name);
    if (found != byName_.end()) return *found->second;
    Variable& variable = variables_.emplace_back();
    variable.name = name;
    byName_.emplace(variable.name, &variable);
    return variable;
}

const Variable* VariableTable::Find(std::string_view name) const {
    const auto found = byName_.find(name);
    if (found == byName_.end() || found->second->value.GetType() == ValueKind::None) return nullptr;
    return found->second;
}

}  // namespace macroengine
