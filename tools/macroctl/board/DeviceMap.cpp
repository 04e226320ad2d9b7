#include "board/DeviceMap.h"

#include <algorithm>
#include <cstdio>

namespace macroctl {

namespace {

constexpr unsigned int kIntegerBits = 32;

std::uint64_t KeyOf(BusKind bus, std::uint32_t address) {
    return (bus == BusKind::ThreeWire ? std::uint64_t{1} << 32 : 0) | address;
}

std::string Named(const Register& reg) {
    return "register \"" + std::string(reg.name) + "\"";
}

std::string AccessWords(Access access) {
    switch (access) {
        case Access::ReadOnly:
            return " is read only (RO)";
        case Access::WriteOnly:
            return " is write only (WO)";
        default:
            return " is not connected (NC)";
    }
}

bool Allows(Access access, Operation operation) {
    if (operation == Operation::Preset) return true;
    return operation == Operation::Read ? CanRead(access) : CanWrite(access);
}

std::uint8_t InitialBits(const Register& reg, const RegisterPart& part) {
    if (part.firstBit >= kIntegerBits) return 0;
    return static_cast<std::uint8_t>(reg.initialValue >> part.firstBit << part.lsb & part.Mask());
}

}  // namespace

DeviceMap::DeviceMap(const RegisterFile& file) : names_(file.Registers()) {
    for (const Register& reg : file.Registers()) {
        for (const BusKind bus : kBuses)
            Enter(reg, bus);
    }
}

void DeviceMap::Enter(const Register& reg, BusKind bus) {
    const RegisterPlace& place = reg.On(bus);
    if (!place.given) return;
    ForEachPart(reg, place, [&](const RegisterPart& part) {
        Byte& byte = bytes_[KeyOf(bus, part.address)];
        if (byte.first == nullptr) byte.first = &reg;
        const std::uint8_t mask = part.Mask();
        byte.covered |= mask;
        if (CanRead(reg.access)) byte.readable |= mask;
        if (CanWrite(reg.access)) byte.writable |= mask;
        byte.initial |= InitialBits(reg, part);
        highestAddress_ = std::max(highestAddress_, part.address);
    });
}

const DeviceMap::Byte* DeviceMap::Find(BusKind bus, std::uint32_t address) const {
    const auto found = bytes_.find(KeyOf(bus, address));
    return found != bytes_.end() ? &found->second : nullptr;
}

const Register* DeviceMap::Find(BusKind bus, std::string_view name, std::string& reason) const {
    const Register* const reg = names_.Find(name);
    if (reg == nullptr) {
        reason = "unknown register \"" + std::string(name) + "\"";
        const std::string_view similar = names_.FindSimilar(name);
        if (!similar.empty()) reason += ", did you mean \"" + std::string(similar) + "\"?";
        return nullptr;
    }
    if (!reg->On(bus).given) {
        reason = Named(*reg) +
                 (bus == BusKind::TwoWire ? " has no two-wire address" : " has no three-wire address");
        return nullptr;
    }
    return reg;
}

std::string DeviceMap::ReasonAgainst(Operation operation, const Register& reg) {
    if (!Allows(reg.access, operation)) return Named(reg) + AccessWords(reg.access);
    if (reg.length == 0) return Named(reg) + " has no bits";
    if (reg.length > kIntegerBits)
        return Named(reg) + " has " + std::to_string(reg.length) +
               " bits, which no integer holds: use its addresses";
    return {};
}

std::string DeviceMap::ReasonAgainst(Operation operation, BusKind bus, std::uint32_t address) const {
    const Byte* const byte = Find(bus, address);
    if (byte == nullptr || operation == Operation::Preset) return {};
    if ((operation == Operation::Read ? byte->readable : byte->writable) != 0) return {};
    char place[32];
    std::snprintf(place, sizeof place, " at 0x%04X", static_cast<unsigned int>(address));
    return Named(*byte->first) + place + AccessWords(byte->first->access);
}

std::string DeviceMap::ReasonAgainstValue(const Register& reg, int value) {
    if (reg.length >= kIntegerBits) return {};
    const std::uint32_t highest = (std::uint32_t{1} << reg.length) - 1;
    if (static_cast<std::uint32_t>(value) <= highest) return {};
    return "value " + std::to_string(value) + " does not fit " + Named(reg) + " of " +
           std::to_string(reg.length) + (reg.length == 1 ? " bit" : " bits") + " (0 to " +
           std::to_string(highest) + ")";
}

}  // namespace macroctl
