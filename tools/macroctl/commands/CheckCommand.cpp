#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "commands/FormatOption.h"
#include "commands/LanguageOptions.h"
#include "commands/Subcommands.h"
#include "io/JsonReport.h"
#include "io/TextReport.h"
#include "macro/Macro.h"

namespace macroctl {

namespace {

struct Options {
    std::vector<std::string> files;
    std::string format = "text";
    LanguageOptions language;
};

ExitStatus Check(const Options& options, Report& report) {
    MacroEnvironment environment(options.language, report);
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

ExitStatus Check(const Options& options) {
    if (options.format == "json") {
        JsonReport report;
        return report.Finish(Check(options, report));
    }
    TextReport report;
    return Check(options, report);
}

}  // namespace

void AddCheck(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* check = app.add_subcommand("check", "Compile macro files without running them");
    check
        ->add_option("FILE", options->files,
                     "Macro files, each compiled by itself; - stands for\n"
                     "standard input")
        ->required()
        ->option_text("...");
    AddLanguageOptions(*check, options->language);
    AddFormatOption(*check, {"text", "json"}, options->format);
    check->footer(
        "With --registers the literal arguments of the board's commands are held against\n"
        "the register file: unknown names, values that don't fit, writes to what is read\n"
        "only, reads of what is write only.\n"
        "\n"
        "Examples:\n"
        "  macroctl check --registers amplifier.rgi bringup.mac\n"
        "  macroctl check --board --format json register_bits.mac");
    check->callback([options, &chosen] { chosen.run = [options] { return Check(*options); }; });
}

}  // namespace macroctl
