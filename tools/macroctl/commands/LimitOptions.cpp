#include "commands/LimitOptions.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>

namespace macroctl {

namespace {

template <class Number>
bool Read(const std::string& text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && last == end;
}

std::string RefuseStatements(const std::string& text) {
    std::uint64_t number = 0;
    return Read(text, number) ? std::string() : text + " is no whole number from 0 on";
}

std::string RefuseSeconds(const std::string& text) {
    double number = 0;
    const bool isGood = Read(text, number) && std::isfinite(number) && number >= 0;
    return isGood ? std::string() : text + " is no number from 0 on";
}

/// Makes the size a number of bytes.
std::string ReadSize(std::string& text) {
    std::string reason = text + " is no size such as 65536, 64KB or 64MB";
    // What follows the number is looked at below, where a number that is negative or too large would wrap.
    std::uint64_t number = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc()) return reason;
    try {
        return CLI::AsSizeValue(false)(text).empty() ? std::string() : reason;
    } catch (const CLI::ParseError&) {
        return reason;
    }
}

}  // namespace

void AddLimitOptions(CLI::App& command, MacroLimits& limits) {
    command.add_option("--max-statements", limits.statements, "Abort the run after so many statements")
        ->option_text("N")
        ->type_name("N")
        ->check(RefuseStatements);
    command.add_option("--max-seconds", limits.seconds, "Abort the run after so many seconds")
        ->option_text("S")
        ->type_name("S")
        ->check(RefuseSeconds);
    command
        .add_option("--max-memory", limits.valueBytes,
                    "Abort the run when its texts and arrays need more\n"
                    "bytes; KB, MB and GB may follow the number")
        ->option_text("BYTES")
        ->type_name("BYTES")
        ->transform(CLI::Validator(ReadSize, ""));
}

}  // namespace macroctl
