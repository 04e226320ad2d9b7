#include "CommandLine.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "text/Similar.h"

#ifndef MACROENGINE_VERSION
#define MACROENGINE_VERSION "unknown version"
#endif

namespace macroctl {

namespace {

const char kFooter[] =
    "Examples:\n"
    "  macroctl run --registers amplifier.rgi bringup.mac\n"
    "  macroctl check --registers amplifier.rgi bringup.mac\n"
    "  macroctl registers amplifier.rgi\n"
    "  macroctl run --help\n"
    "\n"
    "Exit status:\n"
    "  0  all went well: the macro ran to its end, the files have no findings\n"
    "  1  a file can't be read, compiled or run, or has findings\n"
    "  2  wrong usage, or a plug-in that can't be used\n"
    "  3  the run was aborted (Ctrl-C; a second Ctrl-C ends the process at once)\n"
    "diff answers with statuses of its own: see macroctl diff --help.\n"
    "\n"
    "A macro can write files and start programs: run only macros that you trust.";

/// @return what is wrong with the first argument that nobody expected, when that is a mistyped word.
///
/// @param first  the first argument, which is where a subcommand stands.
std::string MistypedArgument(const CLI::App& app, const std::string& first) {
    const std::vector<std::string> unexpected = app.remaining(true);
    if (unexpected.empty()) return {};
    const std::string written = unexpected.front().substr(0, unexpected.front().find('='));
    if (written.empty()) return {};
    const std::vector<CLI::App*> chosen = app.get_subcommands();
    const bool isOption = written.front() == '-';
    std::vector<std::string> names;
    if (isOption) {
        for (const CLI::Option* option : (chosen.empty() ? app : *chosen.front()).get_options()) {
            for (const std::string& name : option->get_lnames())
                names.push_back("--" + name);
        }
    } else if (written == first && (chosen.empty() || chosen.front()->get_name() != written)) {
        for (const CLI::App* subcommand : app.get_subcommands(nullptr))
            names.push_back(subcommand->get_name());
    } else {
        return {};
    }

    Similar similar(written);
    for (const std::string& name : names)
        similar.Offer(name);
    return std::string("there is no ") + (isOption ? "option " : "subcommand ") + written +
           DidYouMean(similar.Best());
}

bool RemoveEnd(std::string_view& text, std::string_view end) {
    if (text.size() < end.size() || text.substr(text.size() - end.size()) != end) return false;
    text.remove_suffix(end.size());
    return true;
}

/// @return the parser's message, in our words where its own are those of a programmer. It may quote an
///         argument of any length.
std::string Explain(const CLI::ParseError& error) {
    constexpr std::string_view kRequired = ": 1 required ";
    constexpr std::string_view kAtMost = ": At Most 1 required but received ";
    std::string message = error.what();
    std::string_view text = message;
    if (RemoveEnd(text, " was given a disallowed flag override"))
        return "--" + std::string(text) + " takes no value";
    std::size_t place = text.find(kRequired);
    if (place != std::string_view::npos && RemoveEnd(text, " missing"))
        return std::string(text.substr(0, place)) + " needs a value, " +
               std::string(text.substr(place + kRequired.size()));
    place = text.find(kAtMost);
    if (place != std::string_view::npos &&
        text.find_first_not_of("0123456789", place + kAtMost.size()) == std::string_view::npos)
        return std::string(text.substr(0, place)) + " is given more than once";
    return message;
}

}  // namespace

std::optional<ExitStatus> ParseCommandLine(int argc, char** argv, Action& chosen) {
    CLI::App app("Runs macro files and reads register files from the command line.", "macroctl");
    app.get_formatter()->label("Positionals", "Arguments");
    app.get_formatter()->column_width(24);
    app.set_help_flag("-h,--help", "Show this help and exit");
    app.set_version_flag("--version", "macroctl " MACROENGINE_VERSION, "Show the version and exit");
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
        const std::string mistyped = MistypedArgument(app, argc > 1 ? argv[1] : "");
        std::fprintf(stderr, "macroctl: %s\nRun with --help for more information.\n",
                     (mistyped.empty() ? Explain(error) : mistyped).c_str());
        return kExitUsage;
    }
    return std::nullopt;
}

}  // namespace macroctl
