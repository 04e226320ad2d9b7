#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "runtime/CMacroCommonValue.h"

namespace macroengine {

/// A variable of a program. As long as nothing was assigned to it its value is of kind none, and it does not
/// exist for the script.
struct Variable {
    std::string name;
    CMacroCommonValue value;
};

/// The variables of one program: one flat scope, names compared byte by byte. An entry never moves, so
/// operands are bound to it once, when the program is compiled.
class VariableTable {
public:
    /// @return the variable of that name, entered without a value if it is new.
    Variable& Bind(std::string_view name);

    /// @return the variable if something was assigned to it, else null.
    const Variable* Find(std::string_view name) const;

    std::size_t GetCount() const { return variables_.size(); }

    /// Calls `visit(variable)` for each, also for those without a value.
    template <class Visit>
    void ForEach(Visit visit) const {
        for (const Variable& variable : variables_)
            visit(variable);
    }

private:
    std::deque<Variable> variables_;
    std::unordered_map<std::string_view, Variable*> byName_;  ///< keyed by the variables' own names
};

}  // namespace macroengine
