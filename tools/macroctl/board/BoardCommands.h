#pragma once

#include <string>

#include "board/BoardCommand.h"
#include "board/RegisterBus.h"

namespace macroctl {

/// `x = board.read(address)` and `x = board.read3(address)`: the value of a register.
class ReadCommand : public BoardCommand {
public:
    /// @param name  the command's name; a literal.
    /// @param bus   outlives this object.
    ReadCommand(const char* name, Console& console, RegisterBus& bus, BusKind kind);

private:
    bool Execute(CMacroPropertyIF& property) override;

    RegisterBus& bus_;
    BusKind kind_;
};

/// `board.write(address, value)` and `board.write3(address, value)`.
class WriteCommand : public BoardCommand {
public:
    /// As for ReadCommand.
    WriteCommand(const char* name, Console& console, RegisterBus& bus, BusKind kind);

private:
    bool Execute(CMacroPropertyIF& property) override;

    RegisterBus& bus_;
    BusKind kind_;
};

/// `board.print(value, ...)`: a line on standard output, the values separated by a blank.
class PrintCommand : public BoardCommand {
public:
    explicit PrintCommand(Console& console);

private:
    bool Execute(CMacroPropertyIF& property) override;

    std::string line_;  // kept for its memory
};

/// `board.expect(actual, expected, "label")`: fails when the values differ.
class ExpectCommand : public BoardCommand {
public:
    explicit ExpectCommand(Console& console);

private:
    bool Execute(CMacroPropertyIF& property) override;
};

}  // namespace macroctl
