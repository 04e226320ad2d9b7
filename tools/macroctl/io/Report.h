#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace macroctl {

/// Receives the finished error lines of a subcommand, in whatever form they reach the user.
class Report {
public:
    Report() = default;
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;
    virtual ~Report() = default;

    /// @param lines  without line ends.
    virtual void Add(const std::vector<std::string>& lines) = 0;

    /// Makes a source text known that error lines name but that can't be read from a file of that name.
    virtual void AddSource(std::string_view name, std::string_view text) = 0;
};

}  // namespace macroctl
