#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace macroengine {

/// The byte order of the addresses of a device.
class EndianTable {
public:
    static constexpr std::uint32_t kLastAddress = 0xFFFF;

    /// Enters every address from `first` to `last`, which is not below `first` and not above kLastAddress.
    /// Addresses that have been entered before stay as they are.
    void Enter(std::uint32_t first, std::uint32_t last, bool isBigEndian);

    /// @return the byte order of an address, nothing for one that was not entered. A table without any entry
    ///         knows every address: those below 0x3000 are big-endian.
    std::optional<bool> IsBigEndian(std::uint32_t address) const;

private:
    enum class Order : std::uint8_t { Unknown, Little, Big };

    std::uint32_t FirstFree(std::uint32_t address);

    // Both empty until the first entry.
    std::vector<Order> orders_;
    /// For each address one at or above it from where to search the next address without an entry; an address
    /// that has none itself leads to itself. It makes a line that covers what other lines have covered cheap.
    std::vector<std::uint32_t> searchFrom_;
};

}  // namespace macroengine
