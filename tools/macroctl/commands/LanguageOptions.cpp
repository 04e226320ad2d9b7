#include "commands/LanguageOptions.h"

#include <CLI/CLI.hpp>

namespace macroctl {

void AddLanguageOptions(CLI::App& command, LanguageOptions& options) {
    command.add_option("--namespace", options.nameSpace, "Namespace in force when the macro starts")
        ->type_name("NS");
    // Without a limit to one value the option would swallow the file behind it.
    command
        .add_option("--plugin", options.plugins,
                    "Shared library that brings commands; may be\n"
                    "repeated")
        ->type_name("LIB")
        ->option_text("LIB")
        ->allow_extra_args(false);
    command.add_flag("--board", options.board, "Register the commands of the simulated board")
        ->disable_flag_override();
    command
        .add_option("--registers", options.registerFile,
                    "Register file of the device on the simulated board,\n"
                    "whose registers the macro may then name; implies\n"
                    "--board")
        ->type_name("DEVICE");
}

}  // namespace macroctl
