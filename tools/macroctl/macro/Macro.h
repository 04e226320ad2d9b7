#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <macroengine/Limits.h>

#include "ExitStatus.h"
#include "board/Board.h"
#include "board/DeviceMap.h"
#include "io/Report.h"
#include "macro/Console.h"
#include "macro/MacroSource.h"
#include "macro/Plugins.h"

class CMacroFileIF;

namespace macroctl {

/// What decides which commands a macro may name.
struct LanguageOptions {
    std::string nameSpace;             ///< In force until the macro changes it.
    std::vector<std::string> plugins;  ///< In the order given.
    bool board = false;
    bool traceBus = false;     ///< Never without a board.
    std::string registerFile;  ///< Of the device on the board; empty: plain registers.

    bool HasBoard() const { return board || !registerFile.empty(); }
};

struct RunOptions {
    std::string workDirectory;  ///< Empty: the macro's own folder.
    bool keepGoing = false;
    MacroLimits limits;
};

/// What the macros of one process share: the plug-ins and the device on the board. It outlives its macros.
class MacroEnvironment {
public:
    /// @param options  kept by reference.
    /// @param report   receives what the engine has to say; kept by reference.
    MacroEnvironment(const LanguageOptions& options, Report& report) : options_(options), report_(report) {}

    /// Loads the plug-ins and the register file.
    ///
    /// @return nothing on success; otherwise the exit status, after the reason has been told.
    std::optional<ExitStatus> Prepare();

    const LanguageOptions& Options() const { return options_; }
    Report& Errors() const { return report_; }
    const Plugins& LoadedPlugins() const { return plugins_; }

    /// @return null without a register file.
    const DeviceMap* Device() const { return device_.get(); }

private:
    const LanguageOptions& options_;
    Report& report_;
    Plugins plugins_;
    std::unique_ptr<RegisterFile> registerFile_;
    std::unique_ptr<DeviceMap> device_;
};

/// One macro file with the commands that it may name. Everything that the engine has to say goes to the
/// environment's report.
class Macro {
public:
    /// @param environment  prepared.
    /// @param file         a path, or "-" for standard input.
    /// @param output       receives what the macro prints; null: it goes to standard output.
    Macro(const MacroEnvironment& environment, const std::string& file, std::string* output = nullptr);
    ~Macro();
    Macro(const Macro&) = delete;
    Macro& operator=(const Macro&) = delete;

    /// Registers the commands and loads the file.
    ///
    /// @return nothing on success; otherwise the exit status, after the reason has been told.
    std::optional<ExitStatus> Load();

    /// Holds the calls of the loaded file against the device on the board, if there is one.
    ///
    /// @return false after a line for each finding.
    bool CheckRegisterCalls();

    ExitStatus Run(const RunOptions& options);

private:
    bool RegisterCommands(std::string& reason);
    void ReportErrors(const char* fallback) const;
    void Tell(std::vector<std::string> lines) const;
    bool WasAborted() const;

    // In this order: the board uses the console and outlives the file.
    const MacroEnvironment& environment_;
    MacroSource source_;
    Console console_;
    std::unique_ptr<Board> board_;
    CMacroFileIF* file_ = nullptr;
};

}  // namespace macroctl
