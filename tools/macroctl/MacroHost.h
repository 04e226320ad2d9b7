#pragma once

#include "Options.h"
#include "Plugins.h"

namespace macroctl {

/// Carries out what the command line asks for. Everything that the engine has to say goes to standard error
/// as it stands.
class MacroHost {
public:
    /// @param options  kept by reference.
    explicit MacroHost(const Options& options) : options_(options) {}

    ExitStatus Execute();

private:
    class Macro;

    ExitStatus RunFile(const std::string& path);
    ExitStatus CheckFiles();

    const Options& options_;
    Plugins plugins_;
};

}  // namespace macroctl
