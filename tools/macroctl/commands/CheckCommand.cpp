#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "commands/LanguageOptions.h"
#include "commands/Subcommands.h"
#include "macro/Macro.h"

namespace macroctl {

namespace {

struct Options {
    std::vector<std::string> files;
    LanguageOptions language;
};

ExitStatus Check(const Options& options) {
    MacroEnvironment environment(options.language);
    if (const auto refused = environment.Prepare()) return *refused;
    ExitStatus status = kExitDone;
    for (const std::string& file : options.files) {
        Macro macro(environment, file);
        const auto refused = macro.Load();
        if (refused == kExitUsage) return kExitUsage;
        if (refused || !macro.CheckRegisterCalls()) status = kExitFailed;
    }
    return status;
}

}  // namespace

void AddCheck(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* check = app.add_subcommand("check", "Compile macro files without running them");
    check->add_option("FILE", options->files, "Macro files, each compiled by itself")
        ->required()
        ->option_text("... REQUIRED");
    AddLanguageOptions(*check, options->language);
    check->footer(
        "With --registers the literal arguments of the board's commands are held against the register file:\n"
        "unknown names, values that don't fit, writes to what is read only, reads of what is write only.\n"
        "\n"
        "Example:\n"
        "  macroctl check --registers amplifier.rgi bringup.mac\n");
    check->callback([options, &chosen] { chosen = [options] { return Check(*options); }; });
}

}  // namespace macroctl
