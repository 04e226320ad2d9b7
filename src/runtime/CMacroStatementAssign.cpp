#include "runtime/CMacroStatementAssign.h"

#include "runtime/ElementStore.h"
#include "runtime/VariableTable.h"

namespace macroengine {

CMacroStatementAssign::CMacroStatementAssign(SourceUnit& unit, std::uint32_t line)
    : CMacroStatementBase(Kind::Assign, unit, line) {}

bool CMacroStatementAssign::vfRun() {
    ValueView value;
    if (!Resolve(source_, value)) return false;
    const ValueView& destination = destination_.View();
    if (destination.eType == ValueKind::ElementReference) {
        const ElementReference& element = *destination.element;
        return StoreElement(element.variable->value, element.subscripts, value) ||
               Fail("failed to update array variable");
    }
    if (value.eType == ValueKind::Array && source_.GetType() == ValueKind::ResultReference) {
        // Only a command gives an array as a result, and gives a new one before anybody reads it again. Taken
        // over whole, it need not be copied when it is written to.
        destination.variable->value = std::move(*source_.View().result);
        source_.View().result->Clear();
        return true;
    }
    destination.variable->value.Assign(value);
    return true;
}

}  // namespace macroengine
