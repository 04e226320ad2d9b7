#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "runtime/ElementReference.h"
#include "runtime/SharedArray.h"
#include "runtime/SharedText.h"
#include "runtime/ValueView.h"

namespace macroengine {

/// The one value of the language: a literal, the content of a variable, a result, an argument. As an operand
/// it may also stand for a variable, for an element of one, or for the result of another statement.
///
/// Copies are independent of each other, and cheap: what is long is shared until it is written to. A value
/// and its copies belong to one program and so to one thread.
class CMacroCommonValue {
public:
    CMacroCommonValue() noexcept = default;
    CMacroCommonValue(const CMacroCommonValue& other) : CMacroCommonValue(other.view_) {}
    CMacroCommonValue(CMacroCommonValue&& other) noexcept : view_(std::exchange(other.view_, ValueView())) {}

    /// Takes a share in what the view sees.
    explicit CMacroCommonValue(const ValueView& view) : view_(view) { Retain(view_); }

    virtual ~CMacroCommonValue() { macroengine::Release(view_); }

    CMacroCommonValue& operator=(const CMacroCommonValue& other) {
        Assign(other.view_);
        return *this;
    }

    CMacroCommonValue& operator=(CMacroCommonValue&& other) noexcept {
        std::swap(view_, other.view_);
        return *this;
    }

    static CMacroCommonValue Integer(std::int32_t value);
    static CMacroCommonValue Floating(double value);
    static CMacroCommonValue String(std::string_view text);
    static CMacroCommonValue Boolean(bool value);

    /// @param array  its reference goes over to the value.
    static CMacroCommonValue Array(SharedArray* array);

    /// An operand that stands for a variable of the program.
    static CMacroCommonValue VariableReference(Variable& variable);

    /// An operand that stands for a result, which outlives it; null stands for no value.
    static CMacroCommonValue ResultReference(CMacroCommonValue* result);

    /// An operand that stands for `variable[subscripts...]`.
    static CMacroCommonValue Element(Variable& variable, OperandList subscripts);

    const ValueView& View() const { return view_; }
    ValueKind GetType() const { return view_.eType; }

    /// @return the value itself, for who keeps count of the references in it.
    ValueView& Cell() { return view_; }

    /// Becomes a copy of what the view sees, which may be a part of this very value.
    void Assign(const ValueView& view) {
        Retain(view);
        macroengine::Release(std::exchange(view_, view));
    }

    /// Becomes a value of kind none.
    void Clear() { macroengine::Release(std::exchange(view_, ValueView())); }

    /// @return the elements, made this value's own if they were shared; requires an array.
    SharedArray& MutableArray();

private:
    ValueView view_;
};

static_assert(sizeof(CMacroCommonValue) == 24 || sizeof(void*) != 8, "values stay three words small");

// Most values hold no reference, and most of those that do hold a text.

inline void Retain(const ValueView& view) {
    if (!HoldsReference(view.eType)) return;
    if (view.eType == ValueKind::String) {
        if (view.text != nullptr) view.text->AddReference();
    } else if (view.eType == ValueKind::Array) {
        view.array->AddReference();
    } else {
        view.element->AddReference();
    }
}

inline void Release(const ValueView& view) {
    if (!HoldsReference(view.eType)) return;
    if (view.eType == ValueKind::String) {
        if (view.text != nullptr) view.text->Release();
    } else if (view.eType == ValueKind::Array) {
        view.array->Release();
    } else {
        view.element->Release();
    }
}

}  // namespace macroengine
