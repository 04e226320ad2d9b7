#include "commands/FormatOption.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "text/Similar.h"

namespace macroctl {

namespace {

/// @return "table (the default), csv or json", in lines that the help has room for.
std::string Enumerate(const std::vector<std::string>& names, const std::string& usual) {
    constexpr std::size_t kWidth = 54;
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::string entry = names[i];
        if (names[i] == usual) entry += " (the default)";
        if (i + 1 < names.size()) entry += i + 2 < names.size() ? "," : " or";
        const std::size_t written = text.size() - (text.rfind('\n') + 1);
        if (i > 0) text += written + 1 + entry.size() <= kWidth ? ' ' : '\n';
        text += entry;
    }
    return text;
}

}  // namespace

void AddFormatOption(CLI::App& command, const std::vector<std::string>& names, std::string& format) {
    const auto refuse = [names](const std::string& name) -> std::string {
        if (std::find(names.begin(), names.end(), name) != names.end()) return {};
        Similar similar(name);
        for (const std::string& offered : names)
            similar.Offer(offered);
        return "there is no format named " + name + DidYouMean(similar.Best());
    };
    command.add_option("--format", format, Enumerate(names, format))
        ->type_name("FORMAT")
        ->option_text("FORMAT")
        ->check(CLI::Validator([refuse](std::string& name) { return refuse(name); }, ""));
}

}  // namespace macroctl
