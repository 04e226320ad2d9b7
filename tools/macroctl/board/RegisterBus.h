#pragma once

#include <cstdint>

namespace macroctl {

/// A board has two register spaces, told apart by the bus that reaches them.
enum class BusKind { TwoWire, ThreeWire };

/// What the board's commands talk to. A transaction reads or writes one register of 8 bits.
class RegisterBus {
public:
    virtual ~RegisterBus() = default;
    virtual std::uint8_t Read(BusKind bus, std::uint16_t address) = 0;
    virtual void Write(BusKind bus, std::uint16_t address, std::uint8_t value) = 0;
};

}  // namespace macroctl
