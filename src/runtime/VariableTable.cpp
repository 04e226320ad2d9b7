#include "runtime/VariableTable.h"

namespace macroengine {

namespace {

constexpr std::size_t kFirstSlots = 16;

std::uint32_t HashOf(std::string_view name) {
    // FNV-1a: names are short.
    std::uint32_t hash = 2166136261U;
    for (const char c : name)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    return hash;
}

}  // namespace

/// @return the slot of the name: the one that holds it, or the free one where it belongs. There is one.
std::size_t VariableTable::FindSlot(std::string_view name, std::uint32_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = hash & mask;
    while (slots_[slot].variable != nullptr &&
           (slots_[slot].hash != hash || slots_[slot].variable->name != name)) {
        slot = (slot + 1) & mask;
    }
    return slot;
}

/// Doubles the slots, so that half of them at least are free.
void VariableTable::Grow() {
    std::vector<Slot> slots(slots_.empty() ? kFirstSlots : slots_.size() * 2);
    slots.swap(slots_);
    for (const Slot& slot : slots) {
        if (slot.variable != nullptr) slots_[FindSlot(slot.variable->name, slot.hash)] = slot;
    }
}

Variable& VariableTable::Bind(std::string_view name) {
    if (variables_.size() * 2 >= slots_.size()) Grow();
    const std::uint32_t hash = HashOf(name);
    Slot& slot = slots_[FindSlot(name, hash)];
    if (slot.variable != nullptr) return *slot.variable;
    Variable& variable = variables_.emplace_back(name);
    slot = {&variable, hash};
    return variable;
}

const Variable* VariableTable::Find(std::string_view name) const {
    if (slots_.empty()) return nullptr;
    const Variable* const variable = slots_[FindSlot(name, HashOf(name))].variable;
    return variable == nullptr || variable->value.GetType() == ValueKind::None ? nullptr : variable;
}

}  // namespace macroengine
