#include "runtime/OperandList.h"

#include <memory>
#include <new>

#include "runtime/CMacroCommonValue.h"

namespace macroengine {

namespace {

/// Rooms double: one is full when its count is a power of two.
bool IsFull(std::size_t count) {
    return (count & (count - 1)) == 0;
}

}  // namespace

OperandList::OperandList(const std::vector<CMacroCommonValue>& values) {
    for (const CMacroCommonValue& value : values)
        Append(value);
}

OperandList::OperandList(std::initializer_list<CMacroCommonValue> values) {
    for (const CMacroCommonValue& value : values)
        Append(value);
}

void OperandList::Append(Operand operand) {
    if (empty()) {
        operands_ = std::move(operand);
        return;
    }
    const std::size_t count = size();
    if (IsFull(count)) MoveTo(count * 2);
    new (OperandsOf(Many()) + count) Operand(std::move(operand));
    ++Many()->count;
}

/// Moves the operands to a room for more.
void OperandList::MoveTo(std::size_t capacity) {
    void* const memory = ::operator new(sizeof(Block) + capacity * sizeof(Operand));
    auto* const block = new (memory) Block{size()};
    Operand* const first = const_cast<Operand*>(begin());
    std::uninitialized_move_n(first, block->count, OperandsOf(block));
    // What is left behind owns nothing.
    operands_ = Operand(Operand::ToWord(block, Operand::kList));
}

/// @param block  null for an empty list.
void OperandList::Destroy(Block* block) {
    if (block == nullptr) return;
    std::destroy_n(OperandsOf(block), block->count);
    ::operator delete(block);
}

}  // namespace macroengine
