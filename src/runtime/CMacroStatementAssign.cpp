#include "runtime/CMacroStatementAssign.h"

#include "runtime/ElementStore.h"
#include "runtime/VariableTable.h"

namespace macroengine {

CMacroStatementAssign::CMacroStatementAssign(SourceUnit& unit, std::uint32_t line)
    : CMacroStatementBase(Kind::Assign, unit, line) {}

bool CMacroStatementAssign::vfRun() {
    ValueView value;
    if (!Resolve(source_, value)) return false;
    const ValueView destination = destination_.View();
    if (destination.eType == ValueKind::ElementReference) {
        const ElementReference& element = *destination.element;
        return StoreElement(element.variable->value, element.subscripts, value) ||
               Fail("failed to update array variable");
    }
    destination.variable->value.Assign(value);
    return true;
}

}  // namespace macroengine
