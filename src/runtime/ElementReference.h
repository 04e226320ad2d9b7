#pragma once

#include <utility>

#include "runtime/OperandList.h"
#include "runtime/ReferenceCount.h"

namespace macroengine {

/// What an operand of kind ElementReference stands for: `variable[subscript]...`. Shared by the copies of the
/// operand.
struct alignas(8) ElementReference {
    ElementReference(Variable& base, OperandList indexes) : variable(&base), subscripts(std::move(indexes)) {}

    void AddReference() { references.Add(); }

    /// Gives a reference back; the last one frees the object.
    void Release() {
        if (references.Drop()) delete this;
    }

    ReferenceCount references;
    Variable* variable;
    OperandList subscripts;  ///< outermost first
};

}  // namespace macroengine
