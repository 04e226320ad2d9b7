#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <utility>
#include <vector>

#include "runtime/Operand.h"

namespace macroengine {

/// The arguments of a call, or the subscripts of an element, in a single word: most have one operand, which
/// needs no memory of its own.
class OperandList {
public:
    OperandList() noexcept = default;
    OperandList(OperandList&& other) noexcept { std::swap(operands_.word_, other.operands_.word_); }
    OperandList& operator=(OperandList&& other) noexcept {
        std::swap(operands_.word_, other.operands_.word_);
        return *this;
    }

    // Lists of values, each of which is an operand.
    OperandList(const std::vector<CMacroCommonValue>& values);  // NOLINT(google-explicit-constructor)
    OperandList(std::initializer_list<CMacroCommonValue> values);

    void Append(Operand operand);

    std::size_t size() const { return IsMany() ? Many()->count : empty() ? 0 : 1; }
    bool empty() const { return operands_.word_ == Operand::kList; }
    const Operand* begin() const { return IsMany() ? OperandsOf(Many()) : &operands_; }
    const Operand* end() const { return begin() + size(); }
    const Operand& operator[](std::size_t index) const { return begin()[index]; }

private:
    friend class Operand;

    /// The head of two operands or more, which follow it in one room.
    struct alignas(8) Block {
        std::size_t count;
    };

    static Operand* OperandsOf(Block* block) { return reinterpret_cast<Operand*>(block + 1); }
    static void Destroy(Block* block);
    void MoveTo(std::size_t capacity);

    bool IsMany() const { return operands_.Tag() == Operand::kList && !empty(); }
    Block* Many() const { return operands_.Address<Block>(); }

    /// The only one, or where all of them are.
    Operand operands_{Operand::kList};
};

}  // namespace macroengine
