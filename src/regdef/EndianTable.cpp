#include "regdef/EndianTable.h"

#include <numeric>

namespace macroengine {

namespace {

constexpr std::uint32_t kFirstLittleEndianByRule = 0x3000;

}  // namespace

void EndianTable::Enter(std::uint32_t first, std::uint32_t last, bool isBigEndian) {
    if (orders_.empty()) {
        // The orders come last, because they say whether the table is there.
        searchFrom_.resize(kLastAddress + 2);
        std::iota(searchFrom_.begin(), searchFrom_.end(), 0U);
        orders_.assign(kLastAddress + 1, Order::Unknown);
    }
    for (std::uint32_t address = FirstFree(first); address <= last; address = FirstFree(address)) {
        orders_[address] = isBigEndian ? Order::Big : Order::Little;
        searchFrom_[address] = address + 1;
    }
}

std::optional<bool> EndianTable::IsBigEndian(std::uint32_t address) const {
    if (orders_.empty()) return address < kFirstLittleEndianByRule;
    if (address > kLastAddress || orders_[address] == Order::Unknown) return std::nullopt;
    return orders_[address] == Order::Big;
}

/// @return the first address at or above the given one that has no entry; kLastAddress + 1 when all have.
std::uint32_t EndianTable::FirstFree(std::uint32_t address) {
    std::uint32_t found = address;
    while (searchFrom_[found] != found)
        found = searchFrom_[found];
    while (searchFrom_[address] != found) {
        const std::uint32_t next = searchFrom_[address];
        searchFrom_[address] = found;
        address = next;
    }
    return found;
}

}  // namespace macroengine
