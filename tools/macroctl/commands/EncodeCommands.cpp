#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "commands/Subcommands.h"
#include "io/TextReport.h"
#include "io/WholeFile.h"
#include "text/SourceEncoding.h"

namespace macroctl {

namespace {

using Conversion = bool (*)(const std::string& text, std::string& result, ConversionError& error);

struct Options {
    std::string input;
    std::string output;
};

ExitStatus Convert(const Options& options, Conversion convert) {
    std::string bytes;
    std::string result;
    std::string reason;
    ConversionError error;
    if (!ReadWholeFile(options.input, bytes)) {
        reason = "error : File open error. (" + options.input + ")";
    } else if (!convert(bytes, result, error)) {
        reason = options.input + "(" + std::to_string(error.line) + "): error : " + error.reason;
    } else if (!WriteWholeFile(options.output, result)) {
        reason = "error : File write error. (" + options.output + ")";
    }
    if (reason.empty()) return kExitDone;
    TextReport().Add({reason});
    return kExitFailed;
}

void Add(CLI::App& app, Action& chosen, const char* name, const char* description, const char* footer,
         Conversion convert) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand(name, description);
    command->add_option("IN", options->input, "File to read")->required()->option_text(" ");
    command
        ->add_option("OUT", options->output,
                     "File to write, which may be the same; it is left as it\n"
                     "was when IN is refused")
        ->required()
        ->option_text(" ");
    command->footer(footer);
    command->callback([options, convert, &chosen] {
        chosen.run = [options, convert] { return Convert(*options, convert); };
    });
}

}  // namespace

void AddEncode(CLI::App& app, Action& chosen) {
    Add(app, chosen, "encode", "Write the encoded form of a text file",
        "The engine reads the encoded form from files named .dat and .iod, and from a\n"
        ".rgi file that isn't plain text.\n"
        "\n"
        "Example:\n"
        "  macroctl encode bringup.mac bringup.dat",
        EncodeText);
}

void AddDecode(CLI::App& app, Action& chosen) {
    Add(app, chosen, "decode", "Write the text of an encoded file",
        "Example:\n"
        "  macroctl decode bringup.dat bringup.mac",
        DecodeText);
}

}  // namespace macroctl
