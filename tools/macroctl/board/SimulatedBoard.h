#pragma once

#include "board/Board.h"
#include "board/BoardCommands.h"
#include "board/BusTrace.h"
#include "board/PlainRegisters.h"

namespace macroctl {

/// A board of plain registers.
class SimulatedBoard : public Board {
public:
    /// @param console  outlives this object.
    /// @param trace    whether each transaction is told on standard error.
    SimulatedBoard(Console& console, bool trace);
    SimulatedBoard(const SimulatedBoard&) = delete;
    SimulatedBoard& operator=(const SimulatedBoard&) = delete;

    bool RegisterWith(CMacroFileIF& file) override;

private:
    // In this order: the commands refer to the bus.
    PlainRegisters registers_;
    BusTrace tracedRegisters_;
    RegisterBus& bus_;
    ReadCommand read_;
    WriteCommand write_;
    ReadCommand read3_;
    WriteCommand write3_;
    PrintCommand print_;
    ExpectCommand expect_;
};

}  // namespace macroctl
