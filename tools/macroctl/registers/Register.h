#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "registers/BusKind.h"

namespace macroctl {

/// What may be done with a register, in the codes of CRegFieldsIF::GetRw.
enum class Access { ReadOnly = 0, WriteOnly = 1, ReadWrite = 2, NotConnected = 255 };

bool CanRead(Access access);
bool CanWrite(Access access);

/// @return "RO", "WO", "RW" or "NC".
const char* AccessText(Access access);

/// Where a register is on one bus.
struct RegisterPlace {
    bool given = false;  ///< Without it the rest means nothing.
    std::uint32_t address = 0;
    bool bigEndian = false;
};

/// One register of a register file. The texts belong to the reader of the file.
struct Register {
    std::string_view name;
    std::string_view description;
    std::string_view function;
    RegisterPlace twoWire;
    RegisterPlace threeWire;
    unsigned int lsb = 0;
    unsigned int length = 0;
    Access access = Access::ReadWrite;
    std::uint32_t initialValue = 0;

    const RegisterPlace& On(BusKind bus) const { return bus == BusKind::TwoWire ? twoWire : threeWire; }

    /// @return the number of 8-bit addresses that the bits spread over; 0 without any bits.
    unsigned int ByteCount() const { return length == 0 ? 0 : (lsb + length + 7) / 8; }
};

/// The bits of a register at one of its addresses: bits `lsb` to `lsb + length - 1` of the byte there are the
/// bits from `firstBit` on of the register's value.
struct RegisterPart {
    std::uint32_t address;
    unsigned int lsb;
    unsigned int length;
    unsigned int firstBit;

    std::uint8_t Mask() const { return static_cast<std::uint8_t>(((1U << length) - 1U) << lsb); }
};

/// Visits the parts of a register from the lowest address to the highest. An address that holds none of its
/// bits is left out.
///
/// The bits go on at the next address where those of a byte end. A big-endian register has its most
/// significant byte at the lowest address, any other its least significant one.
void ForEachPart(const Register& reg, const RegisterPlace& place,
                 const std::function<void(const RegisterPart&)>& visit);

}  // namespace macroctl
