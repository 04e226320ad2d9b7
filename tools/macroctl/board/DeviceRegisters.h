#pragma once

#include <cstdint>
#include <unordered_map>

#include "board/DeviceMap.h"
#include "board/RegisterBus.h"

namespace macroctl {

/// The registers of a device as the buses see them. Each starts with its initial value.
///
/// A read gives zero for the bits that can't be read, a write leaves the bits that can't be written as they
/// are. Where no register is, an address is a plain byte.
class DeviceRegisters : public RegisterBus {
public:
    /// @param map  outlives this object.
    explicit DeviceRegisters(const DeviceMap& map) : map_(map) {}

    std::uint8_t Read(BusKind bus, std::uint32_t address) override;
    void Write(BusKind bus, std::uint32_t address, std::uint8_t value) override;

    /// The bits as the device has them, whatever a bus may see of them.
    std::uint8_t Peek(BusKind bus, std::uint32_t address) const;
    void Poke(BusKind bus, std::uint32_t address, std::uint8_t value);

private:
    const DeviceMap& map_;
    std::unordered_map<std::uint32_t, std::uint8_t> twoWire_;  // what differs from the initial values
    std::unordered_map<std::uint32_t, std::uint8_t> threeWire_;
};

}  // namespace macroctl
