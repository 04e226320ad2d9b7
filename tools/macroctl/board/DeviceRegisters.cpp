#include "board/DeviceRegisters.h"

namespace macroctl {

std::uint8_t DeviceRegisters::Read(BusKind bus, std::uint32_t address) {
    const DeviceMap::Byte* const byte = map_.Find(bus, address);
    const std::uint8_t value = Peek(bus, address);
    return byte == nullptr ? value : static_cast<std::uint8_t>(value & (byte->readable | ~byte->covered));
}

void DeviceRegisters::Write(BusKind bus, std::uint32_t address, std::uint8_t value) {
    const DeviceMap::Byte* const byte = map_.Find(bus, address);
    if (byte != nullptr) {
        const int writable = byte->writable | ~byte->covered;
        value = static_cast<std::uint8_t>((value & writable) | (Peek(bus, address) & ~writable));
    }
    Poke(bus, address, value);
}

std::uint8_t DeviceRegisters::Peek(BusKind bus, std::uint32_t address) const {
    const auto& space = bus == BusKind::TwoWire ? twoWire_ : threeWire_;
    const auto found = space.find(address);
    if (found != space.end()) return found->second;
    const DeviceMap::Byte* const byte = map_.Find(bus, address);
    return byte == nullptr ? std::uint8_t{0} : byte->initial;
}

void DeviceRegisters::Poke(BusKind bus, std::uint32_t address, std::uint8_t value) {
    (bus == BusKind::TwoWire ? twoWire_ : threeWire_)[address] = value;
}

}  // namespace macroctl
