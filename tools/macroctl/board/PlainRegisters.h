#pragma once

#include <cstddef>
#include <vector>

#include "board/RegisterBus.h"

namespace macroctl {

/// Registers and nothing else: each keeps what was written last and starts at zero.
class PlainRegisters : public RegisterBus {
public:
    PlainRegisters() : twoWire_(kRegisterCount), threeWire_(kRegisterCount) {}

    std::uint8_t Read(BusKind bus, std::uint32_t address) override { return Space(bus)[address]; }

    void Write(BusKind bus, std::uint32_t address, std::uint8_t value) override {
        Space(bus)[address] = value;
    }

private:
    static constexpr std::size_t kRegisterCount = 0x10000;

    std::vector<std::uint8_t>& Space(BusKind bus) { return bus == BusKind::TwoWire ? twoWire_ : threeWire_; }

    std::vector<std::uint8_t> twoWire_;
    std::vector<std::uint8_t> threeWire_;
};

}  // namespace macroctl
