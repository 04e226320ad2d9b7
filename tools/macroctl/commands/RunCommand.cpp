#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "commands/LanguageOptions.h"
#include "commands/Subcommands.h"
#include "macro/Macro.h"

namespace macroctl {

namespace {

struct Options {
    std::string file;
    LanguageOptions language;
    RunOptions run;
};

ExitStatus Run(const Options& options) {
    MacroEnvironment environment(options.language);
    if (const auto refused = environment.Prepare()) return *refused;
    Macro macro(environment, options.file);
    if (const auto refused = macro.Load()) return *refused;
    return macro.Run(options.run);
}

}  // namespace

void AddRun(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* run = app.add_subcommand("run", "Load a macro file and run it");
    run->add_option("FILE", options->file, "Macro file")->required()->option_text("REQUIRED");
    run->add_option("--work-dir", options->run.workDirectory,
                    "Folder that commands complete relative paths with; a relative one is taken from the\n"
                    "macro's folder, which is also the default")
        ->type_name("DIR");
    AddLanguageOptions(*run, options->language);
    run->add_flag("--trace-bus", options->language.traceBus,
                  "A line on standard error for each transaction of the board:\n"
                  "bus 2-wire write 0x0010 <- 0x3C\n"
                  "bus 3-wire read 0x0010 -> 0x3C")
        ->disable_flag_override()
        ->option_text("(needs --board or --registers)");
    run->add_flag("--keep-going", options->run.keepGoing,
                  "Go on after a failed statement; all errors are shown at the end")
        ->disable_flag_override();
    run->footer(
        "Examples:\n"
        "  macroctl run --board --trace-bus bringup.mac\n"
        "  macroctl run --registers amplifier.rgi bringup.mac\n");
    run->callback([options, &chosen] {
        if (options->language.traceBus && !options->language.HasBoard())
            throw CLI::RequiresError("--trace-bus", "--board or --registers");
        chosen = [options] { return Run(*options); };
    });
}

}  // namespace macroctl
