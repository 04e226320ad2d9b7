#include "runtime/CMacroCommonValue.h"

#include <utility>

namespace macroengine {

CMacroCommonValue CMacroCommonValue::Integer(std::int32_t value) {
    CMacroCommonValue result;
    result.view_ = ValueView::Integer(value);
    return result;
}

CMacroCommonValue CMacroCommonValue::Floating(double value) {
    CMacroCommonValue result;
    result.view_ = ValueView::Floating(value);
    return result;
}

CMacroCommonValue CMacroCommonValue::String(std::string_view text) {
    CMacroCommonValue result;
    ValueView& view = result.view_;
    view.text = text.empty() ? nullptr : SharedText::Create(text, {}, text.size());
    view.length = static_cast<std::uint32_t>(text.size());
    view.eType = ValueKind::String;
    return result;
}

CMacroCommonValue CMacroCommonValue::Boolean(bool value) {
    CMacroCommonValue result;
    result.view_.eType = ValueKind::Boolean;
    result.view_.boolean = value;
    return result;
}

CMacroCommonValue CMacroCommonValue::Array(SharedArray* array) {
    CMacroCommonValue result;
    result.view_.eType = ValueKind::Array;
    result.view_.array = array;
    return result;
}

CMacroCommonValue CMacroCommonValue::VariableReference(Variable& variable) {
    CMacroCommonValue result;
    result.view_.eType = ValueKind::VariableReference;
    result.view_.variable = &variable;
    return result;
}

CMacroCommonValue CMacroCommonValue::ResultReference(CMacroCommonValue* result) {
    CMacroCommonValue reference;
    reference.view_.eType = ValueKind::ResultReference;
    reference.view_.result = result;
    return reference;
}

CMacroCommonValue CMacroCommonValue::Element(Variable& variable, OperandList subscripts) {
    CMacroCommonValue result;
    result.view_.element = new ElementReference(variable, std::move(subscripts));
    result.view_.eType = ValueKind::ElementReference;
    return result;
}

SharedArray& CMacroCommonValue::MutableArray() {
    if (view_.array->IsShared()) {
        SharedArray* const own = view_.array->Clone();
        view_.array->Release();
        view_.array = own;
    }
    return *view_.array;
}

}  // namespace macroengine
