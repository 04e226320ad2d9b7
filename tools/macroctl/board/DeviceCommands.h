#pragma once

#include <string>

#include "board/BoardCommand.h"
#include "board/DeviceMap.h"
#include "board/DeviceRegisters.h"

namespace macroctl {

/// What the commands of a device share. All of it outlives them.
struct DeviceAccess {
    const DeviceMap& map;
    DeviceRegisters& registers;
    RegisterBus& bus;  ///< leads to `registers`
    Console& console;
};

/// A command whose first argument is a register's name or an address.
class DeviceCommand : public BoardCommand {
protected:
    /// @param name  the command's name; a literal.
    DeviceCommand(const char* name, bool givesValue, Operation operation, const DeviceAccess& access,
                  BusKind kind);

    /// Finds out what the first argument means.
    ///
    /// @param reg      receives the register of a name, null for an address.
    /// @param address  receives the address.
    /// @return false, with the message given, when the operation is refused.
    bool FindTarget(CMacroPropertyIF& property, const Register*& reg, std::uint32_t& address);

    /// Adds a message when there is a reason to refuse.
    /// @return true when there is none.
    bool Accept(CMacroPropertyIF& property, const std::string& reason) const;

    const DeviceAccess access_;
    const BusKind kind_;

private:
    const Operation operation_;
};

/// `x = board.read("NAME")`, `x = board.read(address)`, and the same of `board.read3`.
class DeviceReadCommand : public DeviceCommand {
public:
    DeviceReadCommand(const char* name, const DeviceAccess& access, BusKind kind);

private:
    bool Execute(CMacroPropertyIF& property) override;
};

/// `board.write("NAME", value)` and `board.write(address, value)`; the same of `board.write3`, and of
/// `board.preset` and `board.preset3`, which make the device show a value without any transaction.
class DeviceWriteCommand : public DeviceCommand {
public:
    /// @param operation  Write or Preset.
    DeviceWriteCommand(const char* name, Operation operation, const DeviceAccess& access, BusKind kind);

private:
    bool Execute(CMacroPropertyIF& property) override;
    void Store(std::uint32_t address, std::uint8_t value);

    const bool presets_;
};

}  // namespace macroctl
