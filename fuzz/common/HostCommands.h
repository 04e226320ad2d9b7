#pragma once

#include <memory>
#include <string>
#include <vector>

#include "categories/CMacroCategoryCmdList.h"
#include "host/CMacroPrg.h"

namespace macroengine::fuzz {

/// The category `fuzz`: the commands of a host that wants to see into a program.
///
/// | Command | |
/// |---|---|
/// | `fuzz.show(...)` | leaves its arguments for the host |
/// | `fuzz.take(...) = x` | leaves an assigned number |
/// | `fuzz.truth()` | gives the boolean true |
/// | `fuzz.nothing()` | succeeds and gives nothing |
/// | `fuzz.refuse(...)` | fails |
/// | `fuzz.stop()` | aborts the program |
class HostCommands {
public:
    HostCommands(CMacroCategoryCmdList& list, CMacroPrg& program);
    ~HostCommands();

    const std::vector<std::string>& GetShown() const { return shown_; }

private:
    std::vector<std::string> shown_;
    std::vector<std::unique_ptr<CMacroCategoryBase>> commands_;
};

}  // namespace macroengine::fuzz
