#pragma once

#include "macroengine/CMacroCategoryBase.h"

namespace macroengine {

/// `code = system.command_exec(seconds, directory, command[, parameter...])`: runs a program of the directory
/// and gives its exit code.
class CMacroCategorySystem_CommandExec : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

}  // namespace macroengine
