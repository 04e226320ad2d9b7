#pragma once

#include <string>
#include <vector>

#include "reference/Value.h"

namespace macroengine::reference {

/// A call of a command, its operands resolved.
struct CommandCall {
    std::string name;  ///< "category.command"
    std::vector<Value> arguments;
    bool isAssignedTo = false;
    Value assigned;

    Value result;                     ///< none as long as the command gives none
    std::vector<std::string> errors;  ///< texts, oldest first
    std::string shown;                ///< what it leaves for the host to see
    bool aborts = false;
    bool isOutOfRange =
        false;  ///< given: a conversion of this run has met a number out of range, so all fail
};

/// @return whether the command succeeded.
bool RunCommand(CommandCall& call);

}  // namespace macroengine::reference
