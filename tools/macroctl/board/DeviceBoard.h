#pragma once

#include "board/Board.h"
#include "board/BoardCommands.h"
#include "board/BusTrace.h"
#include "board/DeviceCommands.h"

namespace macroctl {

/// A board with the registers of a device, which a macro may call by their names.
class DeviceBoard : public Board {
public:
    /// @param map      outlives this object.
    /// @param console  likewise.
    /// @param trace    whether each transaction is told on standard error.
    DeviceBoard(const DeviceMap& map, Console& console, bool trace);
    DeviceBoard(const DeviceBoard&) = delete;
    DeviceBoard& operator=(const DeviceBoard&) = delete;

    bool RegisterWith(CMacroFileIF& file) override;

private:
    // In this order: the commands refer to the registers.
    DeviceRegisters registers_;
    BusTrace tracedRegisters_;
    DeviceAccess access_;
    DeviceReadCommand read_;
    DeviceWriteCommand write_;
    DeviceWriteCommand preset_;
    DeviceReadCommand read3_;
    DeviceWriteCommand write3_;
    DeviceWriteCommand preset3_;
    PrintCommand print_;
    ExpectCommand expect_;
};

}  // namespace macroctl
