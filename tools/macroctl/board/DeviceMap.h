#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "registers/RegisterFile.h"
#include "registers/RegisterIndex.h"

namespace macroctl {

/// What a macro wants to do with a register. Preset is what the device itself does, beyond all rights.
enum class Operation { Read, Write, Preset };

/// The registers of a device by name and by address, and what may be done with them.
///
/// The reasons against an operation are the same whether a macro runs or is only checked.
class DeviceMap {
public:
    /// The bits of one address.
    struct Byte {
        std::uint8_t covered = 0;  ///< the bits of registers; the others can be read and written
        std::uint8_t readable = 0;
        std::uint8_t writable = 0;
        std::uint8_t initial = 0;
        const Register* first = nullptr;  ///< the first register of the file that has bits here
    };

    /// @param file  outlives this object.
    explicit DeviceMap(const RegisterFile& file);

    /// @return null for an address where no register is.
    const Byte* Find(BusKind bus, std::uint32_t address) const;

    /// @param reason  receives why there is no such register on this bus when the result is null.
    const Register* Find(BusKind bus, std::string_view name, std::string& reason) const;

    /// @return the highest address that a macro may use; where no register is one reads and writes plain
    /// bytes.
    std::uint32_t HighestAddress() const { return highestAddress_; }

    /// @return why the operation is refused, or the empty text.
    static std::string ReasonAgainst(Operation operation, const Register& reg);
    std::string ReasonAgainst(Operation operation, BusKind bus, std::uint32_t address) const;

    /// @return why the register can't hold the value, or the empty text. A value of 32 bits is as good
    /// negative
    ///         as unsigned.
    static std::string ReasonAgainstValue(const Register& reg, int value);

private:
    void Enter(const Register& reg, BusKind bus);

    RegisterIndex names_;
    std::unordered_map<std::uint64_t, Byte> bytes_;
    std::uint32_t highestAddress_ = 0xFFFF;
};

}  // namespace macroctl
