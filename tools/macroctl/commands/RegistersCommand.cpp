#include <CLI/CLI.hpp>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "commands/FormatOption.h"
#include "commands/Subcommands.h"
#include "formats/Formats.h"
#include "io/Output.h"
#include "io/TextReport.h"
#include "registers/RegisterFile.h"

namespace macroctl {

namespace {

const std::map<std::string, RegisterWriter> kWriters = {
    {"table", WriteTable},       {"listing", WriteListing}, {"csv", WriteCsv},          {"json", WriteJson},
    {"markdown", WriteMarkdown}, {"html", WriteHtml},       {"c-header", WriteCHeader}, {"svd", WriteSvd},
};

struct Options {
    std::vector<std::string> files;
    std::string format = "table";
    ReadingOptions reading;
};

/// What could be read is shown also when a file has errors.
ExitStatus ShowRegisters(const Options& options) {
    std::vector<RegisterFile> files;
    bool good = true;
    for (const std::string& path : options.files) {
        files.emplace_back(path, options.reading);
        good = good && files.back().IsGood();
    }
    Output out;
    kWriters.at(options.format)(files, out);
    if (!out.Finish()) good = false;
    TextReport report;
    for (const RegisterFile& file : files)
        report.Add(file.Errors());
    return good ? kExitDone : kExitFailed;
}

}  // namespace

void AddRegisters(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("registers", "Show the registers of register files");
    command->add_option("FILE", options->files, "Register files")->required()->option_text("...");
    AddFormatOption(*command, {"table", "listing", "csv", "json", "markdown", "html", "c-header", "svd"},
                    options->format);
    command
        ->add_flag("--psc", options->reading.lineBased,
                   "Read the files as line-based ones; without it their\n"
                   "content decides")
        ->disable_flag_override();
    command
        ->add_flag("--merge", options->reading.merge,
                   "Join the registers that a line-based file gives in\n"
                   "parts")
        ->disable_flag_override();
    command->footer(
        "Examples:\n"
        "  macroctl registers amplifier.rgi\n"
        "  macroctl registers --format html amplifier.rgi > amplifier.html\n"
        "\n"
        "Exit status:\n"
        "  0  all went well\n"
        "  1  a file can't be read or has errors; what could be read is shown too");
    command->callback([options, &chosen] { chosen.run = [options] { return ShowRegisters(*options); }; });
}

}  // namespace macroctl
