#pragma once

#include <memory>
#include <vector>

#include "categories/CMacroCategoryCmdList.h"
#include "host/CMacroPrg.h"

namespace macroengine::fuzz {

/// Takes the place of the commands that reach out of the program: those that write files, start programs, wait
/// or set variables of the process. They succeed and do nothing. So do the commands of a board, which many macros
/// are written for.
///
/// Made for a list whose initial namespace is kNamespace: a command of that namespace and a built-in one of the
/// same name are told apart by the namespace in force, and a script can't leave the initial one.
///
/// The command `fuzz.tick()` aborts the program after some calls.
class HarmlessCommands {
public:
    static constexpr const char* kNamespace = "fuzz";

    HarmlessCommands(CMacroCategoryCmdList& list, CMacroPrg& program, int ticks);
    ~HarmlessCommands();

private:
    std::vector<std::unique_ptr<CMacroCategoryBase>> commands_;
};

}  // namespace macroengine::fuzz
