#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "runtime/ValueView.h"

namespace macroengine {

class OperandList;

/// What a statement operates on: a literal, or something that stands for a value (a variable, an element of
/// one, the result of another statement).
///
/// A program holds more operands than anything else, so one is a single word. A number that fits stands in it,
/// as do the addresses of what is referred to; any other literal is one that the operand owns.
class Operand {
public:
    /// An operand of kind none.
    Operand() noexcept = default;

    /// Stands for the same as a value.
    Operand(const CMacroCommonValue& value);  // NOLINT(google-explicit-constructor)

    Operand(Operand&& other) noexcept : word_(std::exchange(other.word_, kNothing)) {}
    Operand& operator=(Operand&& other) noexcept {
        std::swap(word_, other.word_);
        return *this;
    }
    Operand(const Operand&) = delete;
    Operand& operator=(const Operand&) = delete;
    ~Operand() {
        if (IsOwner()) Release();
    }

    static Operand Integer(std::int32_t value) {
        return Operand(Word{static_cast<std::uint32_t>(value)} << 32U | kInteger);
    }
    static Operand Floating(double value);
    static Operand String(std::string_view text);
    static Operand VariableReference(Variable& variable) { return Operand(ToWord(&variable, kVariable)); }

    /// Stands for a result, which outlives the operand; null stands for no value.
    static Operand ResultReference(CMacroCommonValue* result) { return Operand(ToWord(result, kResult)); }

    /// Stands for `variable[subscripts...]`.
    static Operand Element(Variable& variable, OperandList subscripts);

    ValueKind GetType() const { return View().eType; }

    /// @return what the operand is, with the kind that says how to go on from there.
    ValueView View() const;

private:
    friend class OperandList;

    using Word = std::uint64_t;

    // The lowest bits of the word tell what it is: everything that an operand points to is aligned to eight.
    static constexpr Word kTagMask = 7;
    static constexpr Word kInteger = 0;   ///< in the upper half
    static constexpr Word kFloating = 1;  ///< one that single precision holds as well, in the upper half
    static constexpr Word kVariable = 2;
    static constexpr Word kResult = 3;
    static constexpr Word kText = 4;  ///< a block that is never extended; null for the empty text
    static constexpr Word kElement = 5;
    static constexpr Word kLiteral = 6;  ///< any other value
    static constexpr Word kList = 7;     ///< the operands of a list: see OperandList
    static constexpr Word kNothing = kVariable;

    explicit Operand(Word word) noexcept : word_(word) {}

    static Word ToWord(const void* address, Word tag) {
        return static_cast<Word>(reinterpret_cast<std::uintptr_t>(address)) | tag;
    }

    template <class Object>
    Object* Address() const {
        return reinterpret_cast<Object*>(static_cast<std::uintptr_t>(word_ & ~kTagMask));
    }

    Word Tag() const { return word_ & kTagMask; }
    bool IsOwner() const { return Tag() >= kText; }
    bool IsNothing() const { return word_ == kNothing; }
    ValueView OtherView() const;
    void Release();

    Word word_ = kNothing;
};

inline ValueView Operand::View() const {
    ValueView view;
    switch (Tag()) {
        case kInteger:
            return ValueView::Integer(static_cast<std::int32_t>(static_cast<std::uint32_t>(word_ >> 32U)));
        case kVariable:
            if (IsNothing()) return view;
            view.eType = ValueKind::VariableReference;
            view.variable = Address<Variable>();
            return view;
        case kResult:
            view.eType = ValueKind::ResultReference;
            view.result = Address<CMacroCommonValue>();
            return view;
        default:
            return OtherView();
    }
}

}  // namespace macroengine
