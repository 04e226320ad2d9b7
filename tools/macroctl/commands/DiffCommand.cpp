#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "commands/FormatOption.h"
#include "commands/Subcommands.h"
#include "io/Output.h"
#include "io/TextReport.h"
#include "registers/Comparison.h"
#include "registers/ComparisonText.h"
#include "registers/RegisterFile.h"

namespace macroctl {

namespace {

struct Options {
    std::string oldFile;
    std::string newFile;
    std::string format = "text";
    ReadingOptions reading;
};

ExitStatus Compare(const Options& options) {
    const RegisterFile before(options.oldFile, options.reading);
    const RegisterFile after(options.newFile, options.reading);
    TextReport report;
    report.Add(before.Errors());
    report.Add(after.Errors());
    // What couldn't be read would be called removed or added.
    if (!before.IsGood() || !after.IsGood()) return kExitUnreadable;

    const Comparison comparison(before, after);
    Output out;
    if (options.format == "json") {
        WriteComparisonJson(comparison, before.Path(), after.Path(), out);
    } else {
        WriteComparisonText(comparison, out);
    }
    if (!out.Finish()) return kExitUnreadable;
    if (comparison.Changes().empty()) return kExitSame;
    return comparison.IsBreaking() ? kExitBreaking : kExitCompatible;
}

}  // namespace

void AddDiff(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("diff", "Compare two register files");
    command->add_option("OLD", options->oldFile, "Register file to start from")->required()->option_text(" ");
    command->add_option("NEW", options->newFile, "Register file to compare with it")
        ->required()
        ->option_text(" ");
    AddFormatOption(*command, {"text", "json"}, options->format);
    command
        ->add_flag("--psc", options->reading.lineBased,
                   "Read both files as line-based ones; without it their\n"
                   "content decides")
        ->disable_flag_override();
    command->footer(
        "Example:\n"
        "  macroctl diff amplifier-1.rgi amplifier-2.rgi\n"
        "\n"
        "Exit status:\n"
        "  0  no change\n"
        "  1  changes, none of them breaking\n"
        "  2  at least one breaking change; also wrong usage\n"
        "  3  a file can't be read without an error");
    command->callback([options, &chosen] {
        chosen.run = [options] { return Compare(*options); };
        chosen.failure = kExitUnreadable;
    });
}

}  // namespace macroctl
