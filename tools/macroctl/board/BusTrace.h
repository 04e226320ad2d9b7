#pragma once

#include "board/RegisterBus.h"

namespace macroctl {

class Console;

/// Passes every transaction on to another bus and writes a line about it to standard error.
///
/// @code
/// bus 2-wire write 0x0010 <- 0x3C
/// bus 3-wire read 0x0010 -> 0x3C
/// @endcode
class BusTrace : public RegisterBus {
public:
    /// @param target  outlives this object.
    /// @param console  likewise.
    BusTrace(RegisterBus& target, Console& console) : target_(target), console_(console) {}

    std::uint8_t Read(BusKind bus, std::uint32_t address) override;
    void Write(BusKind bus, std::uint32_t address, std::uint8_t value) override;

private:
    void WriteLine(BusKind bus, const char* direction, std::uint32_t address, const char* arrow,
                   std::uint8_t value);

    RegisterBus& target_;
    Console& console_;
};

}  // namespace macroctl
