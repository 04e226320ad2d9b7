#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/CMacroCommonValue.h"

namespace macroengine {

/// A variable of a program. As long as nothing was assigned to it its value is of kind none, and it does not
/// exist for the script.
struct alignas(8) Variable {
    explicit Variable(std::string_view itsName) : name(itsName) {}

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
    struct Slot {
        Variable* variable = nullptr;
        std::uint32_t hash = 0;
    };

    std::size_t FindSlot(std::string_view name, std::uint32_t hash) const;
    void Grow();

    std::deque<Variable> variables_;

    /// Where the name of each variable leads. The compiler asks for every name that it meets, so the slots lie
    /// side by side: as many as a power of two, and a name whose slot is taken has the next free one.
    std::vector<Slot> slots_;
};

}  // namespace macroengine
