#pragma once

#include <string>

#include <macroengine/CMacroCategoryBase.h>

#include "board/RegisterBus.h"

namespace macroctl {

/// The category of all commands of a board.
constexpr char kBoardCategory[] = "board";

/// `x = board.read(address)` and `x = board.read3(address)`: the value of a register.
class ReadCommand : public CMacroCategoryBase {
public:
    /// @param name  the command's name; a literal.
    /// @param bus   outlives this object.
    ReadCommand(const char* name, RegisterBus& bus, BusKind kind);
    bool Run(CMacroPropertyIF* property) override;

private:
    RegisterBus& bus_;
    BusKind kind_;
};

/// `board.write(address, value)` and `board.write3(address, value)`.
class WriteCommand : public CMacroCategoryBase {
public:
    /// As for ReadCommand.
    WriteCommand(const char* name, RegisterBus& bus, BusKind kind);
    bool Run(CMacroPropertyIF* property) override;

private:
    RegisterBus& bus_;
    BusKind kind_;
};

/// `board.print(value, ...)`: a line on standard output, the values separated by a blank.
class PrintCommand : public CMacroCategoryBase {
public:
    PrintCommand();
    bool Run(CMacroPropertyIF* property) override;

private:
    std::string line_;  // kept for its memory
};

/// `board.expect(actual, expected, "label")`: fails when the values differ.
class ExpectCommand : public CMacroCategoryBase {
public:
    ExpectCommand();
    bool Run(CMacroPropertyIF* property) override;
};

}  // namespace macroctl
