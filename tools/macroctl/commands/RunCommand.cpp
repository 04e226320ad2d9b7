#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "commands/FormatOption.h"
#include "commands/LanguageOptions.h"
#include "commands/LimitOptions.h"
#include "commands/Subcommands.h"
#include "io/JsonReport.h"
#include "io/TextReport.h"
#include "macro/Macro.h"

namespace macroctl {

namespace {

struct Options {
    std::string file;
    std::string format = "text";
    LanguageOptions language;
    RunOptions run;
};

/// @param output  receives what the macro prints; null: it goes to standard output.
ExitStatus Run(const Options& options, Report& report, std::string* output) {
    MacroEnvironment environment(options.language, report);
    if (const auto refused = environment.Prepare()) return *refused;
    Macro macro(environment, options.file, output);
    if (const auto refused = macro.Load()) return *refused;
    return macro.Run(options.run);
}

ExitStatus Run(const Options& options) {
    if (options.format == "json") {
        JsonReport report;
        std::string output;
        const ExitStatus status = Run(options, report, &output);
        report.SetOutput(output);
        return report.Finish(status);
    }
    TextReport report;
    return Run(options, report, nullptr);
}

}  // namespace

void AddRun(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* run = app.add_subcommand("run", "Load a macro file and run it");
    run->add_option("FILE", options->file, "Macro file; - stands for standard input")
        ->required()
        ->option_text(" ");
    run->add_option("--work-dir", options->run.workDirectory,
                    "Folder that commands complete relative paths with; a\n"
                    "relative one is taken from the macro's folder, which\n"
                    "is also the default")
        ->type_name("DIR");
    AddLanguageOptions(*run, options->language);
    run->add_flag("--trace-bus", options->language.traceBus,
                  "Write a line to standard error for each transaction\n"
                  "of the board, such as\n"
                  "  bus 2-wire write 0x0010 <- 0x3C\n"
                  "  bus 3-wire read 0x0010 -> 0x3C\n"
                  "Needs --board or --registers")
        ->disable_flag_override();
    run->add_flag("--keep-going", options->run.keepGoing,
                  "Go on after a failed statement; all errors are shown\n"
                  "at the end")
        ->disable_flag_override();
    AddLimitOptions(*run, options->run.limits);
    AddFormatOption(*run, {"text", "json"}, options->format);
    run->footer(
        "Examples:\n"
        "  macroctl run --board --trace-bus register_bits.mac\n"
        "  macroctl run --registers amplifier.rgi bringup.mac\n"
        "  echo 'board.print(\"hello\")' | macroctl run --board -\n"
        "  macroctl run --registers amplifier.rgi --format json bringup.mac > result.json");
    run->callback([options, &chosen] {
        if (options->language.traceBus && !options->language.HasBoard())
            throw CLI::RequiresError("--trace-bus", "--board or --registers");
        chosen.run = [options] { return Run(*options); };
    });
}

}  // namespace macroctl
