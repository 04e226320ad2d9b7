#pragma once

#include <cstdint>
#include <string_view>

#include "runtime/SharedText.h"

namespace macroengine {

class CMacroCommonValue;
class SharedArray;
struct ElementReference;
struct Variable;

/// What a value is. The numbers are seen by scripts and commands.
enum class ValueKind : std::uint32_t {
    Integer = 0,   ///< signed, 32 bits
    Floating = 1,  ///< double precision
    String = 2,
    Boolean = 3,
    VariableReference = 4,  ///< an operand: the content of a variable
    ResultReference =
        5,  ///< an operand: the result of another statement; without a target it stands for no value
    Array = 6,
    ElementReference = 7,  ///< an operand: an element of a variable
    None = 8               ///< nothing yet
};

/// @return whether a value of the kind is a datum, not an operand that stands for one.
constexpr bool IsConcrete(ValueKind kind) {
    return kind <= ValueKind::Boolean || kind == ValueKind::Array;
}

/// @return whether the payload of a value of the kind is a block that the value has a share in.
constexpr bool HoldsReference(ValueKind kind) {
    constexpr auto bit = [](ValueKind of) { return 1U << static_cast<unsigned int>(of); };
    constexpr unsigned int kHolders =
        bit(ValueKind::String) | bit(ValueKind::Array) | bit(ValueKind::ElementReference);
    return (bit(kind) & kHolders) != 0;
}

/// The kind and the payload of a value, without a share in what the payload points to. Cheap to copy; valid
/// as long as the value that it was taken from stays unchanged.
struct alignas(8) ValueView {
    ValueKind eType = ValueKind::None;
    std::uint32_t length = 0;  ///< of a text
    union {
        double floating = 0.0;
        std::int32_t integer;
        bool boolean;
        SharedText* text;  ///< null for the empty text
        SharedArray* array;
        Variable* variable;
        CMacroCommonValue* result;
        ElementReference* element;
    };

    static ValueView Integer(std::int32_t value) {
        ValueView view;
        view.eType = ValueKind::Integer;
        view.integer = value;
        return view;
    }

    static ValueView Floating(double value) {
        ValueView view;
        view.eType = ValueKind::Floating;
        view.floating = value;
        return view;
    }

    /// @return the characters of a text.
    std::string_view Text() const {
        return text == nullptr ? std::string_view() : std::string_view(text->Bytes(), length);
    }
};

/// Adds a reference to what the payload points to.
void Retain(const ValueView& view);

/// Gives a reference back. Nested arrays are destroyed without recursion, however deep.
void Release(const ValueView& view);

}  // namespace macroengine
