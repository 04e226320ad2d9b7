#pragma once

#include <macroengine/CMacroCategoryBase.h>

namespace macroctl {

class Console;

/// The category of all commands of a board.
constexpr char kBoardCategory[] = "board";

/// A command of a board. The console knows of each call, so that it can tell where the macro is.
class BoardCommand : public CMacroCategoryBase {
public:
    bool Run(CMacroPropertyIF* property) final;

protected:
    /// @param name     the command's name; a literal.
    /// @param console  outlives this object.
    BoardCommand(const char* name, bool givesValue, Console& console);

    /// Carries out one call, as CMacroCategoryBase::Run does.
    virtual bool Execute(CMacroPropertyIF& property) = 0;

    Console& GetConsole() const { return console_; }

private:
    Console& console_;
};

}  // namespace macroctl
