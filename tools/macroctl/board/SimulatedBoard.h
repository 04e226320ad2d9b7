#pragma once

#include "board/BoardCommands.h"
#include "board/BusTrace.h"
#include "board/PlainRegisters.h"

class CMacroFileIF;

namespace macroctl {

/// A board without hardware: the commands of the category `board` over plain registers. It outlives the macro
/// file that it is registered with.
class SimulatedBoard {
public:
    /// @param trace  whether each transaction is told on standard error.
    explicit SimulatedBoard(bool trace);
    SimulatedBoard(const SimulatedBoard&) = delete;
    SimulatedBoard& operator=(const SimulatedBoard&) = delete;

    /// @return false when the file has a category `board` of another form.
    bool RegisterWith(CMacroFileIF& file);

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
