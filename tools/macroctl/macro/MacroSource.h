#pragma once

#include <string>

namespace macroctl {

/// What the command line names as a macro file: a file, or "-" for standard input.
///
/// The engine reads files only. So what comes from standard input stands in a file of the current folder
/// until it has been loaded, and includes are found there. Whatever is said of it calls it "<stdin>".
class MacroSource {
public:
    explicit MacroSource(const std::string& argument);
    MacroSource(const MacroSource&) = delete;
    MacroSource& operator=(const MacroSource&) = delete;
    ~MacroSource();

    /// Reads standard input, if that is meant.
    ///
    /// @param reason  receives what went wrong when the result is false.
    bool Open(std::string& reason);

    /// Removes the file that stands for standard input. To be called when the engine has read it.
    void Close();

    /// @return the path for the engine.
    const std::string& Path() const { return path_; }

    /// @return the name for the user.
    const std::string& Name() const { return name_; }

    bool IsStandardInput() const { return name_ != path_; }

    /// @return what standard input gave.
    const std::string& Text() const { return text_; }

    /// @return a text of the engine's with the name for the user in it.
    std::string Shown(std::string text) const;

private:
    std::string path_;
    std::string name_;
    std::string text_;
    bool isOnDisk_ = false;
};

}  // namespace macroctl
