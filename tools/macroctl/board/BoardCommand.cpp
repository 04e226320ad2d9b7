#include "board/BoardCommand.h"

#include "macro/Console.h"

namespace macroctl {

BoardCommand::BoardCommand(const char* name, bool givesValue, Console& console)
    : CMacroCategoryBase(kBoardCategory, name, givesValue, false, ""), console_(console) {}

bool BoardCommand::Run(CMacroPropertyIF* property) {
    console_.NotePlace(*property);
    return Execute(*property);
}

}  // namespace macroctl
