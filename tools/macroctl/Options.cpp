#include "Options.h"

#include <CLI/CLI.hpp>
#include <cstdio>

#ifndef MACROENGINE_VERSION
#define MACROENGINE_VERSION "unknown version"
#endif

namespace macroctl {

namespace {

const char kFooter[] =
    "Exit status:\n"
    "  0  the macro ran to its end; check: all files compiled\n"
    "  1  a file failed to load, or the macro failed while it ran\n"
    "  2  wrong usage, or a plug-in that can't be used\n"
    "  3  the run was aborted (Ctrl-C; a second Ctrl-C ends the process at once)\n"
    "\n"
    "A macro can write files and start programs: run only macros that you trust.\n";

/// The options that decide which commands a macro may name, so that loading needs them too.
CLI::Option* AddLanguageOptions(CLI::App& command, Options& options) {
    command.add_option("--namespace", options.nameSpace, "Namespace in force when the macro starts")
        ->type_name("NS");
    // Without a limit to one value the option would swallow the file behind it.
    command.add_option("--plugin", options.plugins, "Shared library that brings commands; may be repeated")
        ->type_name("LIB")
        ->option_text("LIB")
        ->allow_extra_args(false);
    return command.add_flag("--board", options.board, "Register the commands of the simulated board")
        ->disable_flag_override();
}

void AddRun(CLI::App& app, Options& options) {
    CLI::App* run = app.add_subcommand("run", "Load a macro file and run it");
    run->add_option_function<std::string>(
           "FILE", [&options](const std::string& file) { options.files = {file}; }, "Macro file")
        ->required()
        ->option_text("REQUIRED");
    run->add_option("--work-dir", options.workDirectory,
                    "Folder that commands complete relative paths with; a relative one is taken from the\n"
                    "macro's folder, which is also the default")
        ->type_name("DIR");
    CLI::Option* board = AddLanguageOptions(*run, options);
    run->add_flag("--trace-bus", options.traceBus,
                  "A line on standard error for each transaction of the board:\n"
                  "bus 2-wire write 0x0010 <- 0x3C\n"
                  "bus 3-wire read 0x0010 -> 0x3C")
        ->disable_flag_override()
        ->needs(board)
        ->option_text("(needs --board)");
    run->add_flag("--keep-going", options.keepGoing,
                  "Go on after a failed statement; all errors are shown at the end")
        ->disable_flag_override();
    run->callback([&options] { options.action = Options::Action::Run; });
}

void AddCheck(CLI::App& app, Options& options) {
    CLI::App* check = app.add_subcommand("check", "Compile macro files without running them");
    check->add_option("FILE", options.files, "Macro files, each compiled by itself")
        ->required()
        ->option_text("... REQUIRED");
    AddLanguageOptions(*check, options);
    check->callback([&options] { options.action = Options::Action::Check; });
}

}  // namespace

std::optional<ExitStatus> ParseOptions(int argc, char** argv, Options& options) {
    CLI::App app("Runs macro files from the command line.", "macroctl");
    app.set_version_flag("--version", "macroctl " MACROENGINE_VERSION);
    app.footer(kFooter);
    // "/" begins a path here on every platform.
    app.allow_windows_style_options(false);
    // Checked below: so a word that is no subcommand is called unexpected before one is called missing.
    app.require_subcommand(0, 1);
    AddRun(app, options);
    AddCheck(app, options);
    try {
        app.parse(argc, argv);
        if (app.get_subcommands().empty()) throw CLI::RequiredError("A subcommand (run or check)");
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            app.exit(error);  // writes the help text or the version
            return kExitDone;
        }
        std::fprintf(stderr, "macroctl: %s\nRun with --help for more information.\n", error.what());
        return kExitUsage;
    }
    return std::nullopt;
}

}  // namespace macroctl
