#pragma once

#include <cstdint>

#include "registers/BusKind.h"

namespace macroctl {

/// What the board's commands talk to. A transaction reads or writes one register of 8 bits.
class RegisterBus {
public:
    virtual ~RegisterBus() = default;
    virtual std::uint8_t Read(BusKind bus, std::uint32_t address) = 0;
    virtual void Write(BusKind bus, std::uint32_t address, std::uint8_t value) = 0;
};

}  // namespace macroctl
