#pragma once

#include <string>
#include <vector>

#include "platform/SharedLibrary.h"

class CMacroFileIF;

namespace macroctl {

/// The plug-ins of this process. They stay loaded as long as this object, which therefore outlives every
/// macro file that it has registered commands with.
class Plugins {
public:
    /// Loads the libraries in order and finds their entry points.
    ///
    /// @param reason  receives what is wrong with which library when the result is false.
    bool Load(const std::vector<std::string>& paths, std::string& reason);

    /// Lets every plug-in register its commands with a macro file, before the file is loaded.
    ///
    /// @param reason  receives the name of the plug-in that refused when the result is false.
    bool RegisterWith(CMacroFileIF& file, std::string& reason) const;

private:
    using Entry = bool (*)(CMacroFileIF*);

    struct Plugin {
        std::string path;
        SharedLibrary library;
        Entry entry = nullptr;
    };

    std::vector<Plugin> plugins_;
};

}  // namespace macroctl
