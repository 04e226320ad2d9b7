#include "CommandLine.h"

#include <CLI/CLI.hpp>
#include <cstdio>

#ifndef MACROENGINE_VERSION
#define MACROENGINE_VERSION "unknown version"
#endif

namespace macroctl {

namespace {

const char kFooter[] =
    "Exit status:\n"
    "  0  all went well: the macro ran to its end, the files have no findings\n"
    "  1  a file can't be read, compiled or run, or has findings\n"
    "  2  wrong usage, or a plug-in that can't be used\n"
    "  3  the run was aborted (Ctrl-C; a second Ctrl-C ends the process at once)\n"
    "diff answers with statuses of its own: see macroctl diff --help.\n"
    "\n"
    "A macro can write files and start programs: run only macros that you trust.\n";

}  // namespace

std::optional<ExitStatus> ParseCommandLine(int argc, char** argv, Action& chosen) {
    CLI::App app("Runs macro files and reads register files from the command line.", "macroctl");
    app.set_version_flag("--version", "macroctl " MACROENGINE_VERSION);
    app.footer(kFooter);
    // "/" begins a path here on every platform.
    app.allow_windows_style_options(false);
    // Checked below: so a word that is no subcommand is called unexpected before one is called missing.
    app.require_subcommand(0, 1);
    AddRun(app, chosen);
    AddCheck(app, chosen);
    AddRegisters(app, chosen);
    AddDiff(app, chosen);
    AddEncode(app, chosen);
    AddDecode(app, chosen);
    try {
        app.parse(argc, argv);
        if (app.get_subcommands().empty())
            throw CLI::RequiredError("A subcommand (run, check, registers, diff, encode or decode)");
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
