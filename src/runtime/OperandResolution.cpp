#include "runtime/OperandResolution.h"

#include <string_view>

namespace macroengine {

namespace {

constexpr const char* kInvalidOperand = "invalied destination value in assign statement.";
constexpr const char* kSubscriptIsNoInteger = "Array subscript isn't integer.";

bool Fail(std::string& error, std::string_view text) {
    error = text;
    return false;
}

bool FailOnUndefined(const Variable& variable, std::string& error) {
    return Fail(error, "Didn't define valiable name[" + variable.name + "]");
}

/// Names an element up to and including the given subscript in a message, as in "m[1][2]".
///
/// Only a failure needs the name, so it is worked out then; the subscripts have been resolved before.
bool FailOnElement(const ElementReference& element, std::size_t last, std::string_view text,
                   std::string& error) {
    std::string name = element.variable->name;
    for (std::size_t i = 0; i <= last; ++i) {
        std::int32_t index = 0;
        if (!ResolveSubscript(element.subscripts[i].View(), index, error)) return false;
        name.append("[").append(std::to_string(index)).append("]");
    }
    return Fail(error, "Valiable name(" + name + std::string(text));
}

}  // namespace

bool ResolveSubscript(const ValueView& subscript, std::int32_t& index, std::string& error) {
    ValueView value;
    if (!ResolveOperand(subscript, value, error)) return false;
    if (value.eType != ValueKind::Integer) return Fail(error, kSubscriptIsNoInteger);
    index = value.integer;
    return true;
}

bool ResolveElement(const ElementReference& element, ValueView& value, std::string& error) {
    const Variable& variable = *element.variable;
    value = variable.value.View();
    if (value.eType == ValueKind::None) return FailOnUndefined(variable, error);
    for (std::size_t i = 0; i < element.subscripts.size(); ++i) {
        std::int32_t index = 0;
        if (!ResolveSubscript(element.subscripts[i].View(), index, error)) return false;
        if (value.eType != ValueKind::Array) {
            return FailOnElement(element, i, ") isn't array, or not exist elements.", error);
        }
        if (static_cast<std::uint32_t>(index) >= value.array->GetSize()) {
            return FailOnElement(element, i, ") isn't exist elements.", error);
        }
        value = value.array->At(static_cast<std::uint32_t>(index));
    }
    return true;
}

namespace detail {

/// Resolves what the inline part does not: everything but a datum or a variable that holds one.
bool ResolveReference(const ValueView& operand, ValueView& value, std::string& error) {
    value = operand;
    if (operand.eType == ValueKind::VariableReference) return FailOnUndefined(*operand.variable, error);
    if (operand.eType == ValueKind::ResultReference) {
        if (operand.result == nullptr) return Fail(error, "value is null.");
        value = operand.result->View();
    } else if (operand.eType == ValueKind::ElementReference) {
        return ResolveElement(*operand.element, value, error);
    }
    return IsConcrete(value.eType) || Fail(error, kInvalidOperand);
}

}  // namespace detail

}  // namespace macroengine
