#pragma once

#include <charconv>
#include <string>
#include <vector>

#include "runtime/CMacroCommonValue.h"

namespace macroengine::test {

/// Writes the kind and the exact content of a value, so that one comparison tells all of it: `integer 3`,
/// `floating 2.5`, `text "a"`, `boolean true`, `[integer 1, text "b"]`, `none`.
inline std::string Describe(const ValueView& view) {
    switch (view.eType) {
        case ValueKind::Integer:
            return "integer " + std::to_string(view.integer);
        case ValueKind::Floating: {
            // The shortest text that reads back as the very same number.
            char digits[64];
            return "floating " + std::string(digits, std::to_chars(digits, digits + 64, view.floating).ptr);
        }
        case ValueKind::String:
            return "text \"" + std::string(view.Text()) + "\"";
        case ValueKind::Boolean:
            return view.boolean ? "boolean true" : "boolean false";
        case ValueKind::Array: {
            std::string text = "[";
            for (std::uint32_t i = 0; i < view.array->GetSize(); ++i)
                text.append(i > 0 ? ", " : "").append(Describe(view.array->At(i)));
            return text + "]";
        }
        case ValueKind::None:
            return "none";
        default:
            return "reference of kind " + std::to_string(static_cast<int>(view.eType));
    }
}

inline std::string Describe(const CMacroCommonValue& value) {
    return Describe(value.View());
}

inline CMacroCommonValue Integer(std::int32_t value) {
    return CMacroCommonValue::Integer(value);
}
inline CMacroCommonValue Floating(double value) {
    return CMacroCommonValue::Floating(value);
}
inline CMacroCommonValue Text(std::string_view text) {
    return CMacroCommonValue::String(text);
}
inline CMacroCommonValue Boolean(bool value) {
    return CMacroCommonValue::Boolean(value);
}

inline CMacroCommonValue ArrayOf(const std::vector<CMacroCommonValue>& elements) {
    CMacroCommonValue array = CMacroCommonValue::Array(SharedArray::Create());
    for (const CMacroCommonValue& element : elements)
        array.MutableArray().Append(element.View());
    return array;
}

inline std::vector<ValueView> ViewsOf(const std::vector<CMacroCommonValue>& values) {
    std::vector<ValueView> views;
    for (const CMacroCommonValue& value : values)
        views.push_back(value.View());
    return views;
}

/// `a[0] = a`, `depth` times, from `a = 0` on.
inline CMacroCommonValue NestedArray(int depth) {
    CMacroCommonValue value = Integer(0);
    for (int i = 0; i < depth; ++i) {
        CMacroCommonValue outer = CMacroCommonValue::Array(SharedArray::Create());
        outer.MutableArray().Append(value.View());
        value = outer;
    }
    return value;
}

}  // namespace macroengine::test
