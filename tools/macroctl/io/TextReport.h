#pragma once

#include <optional>

#include "io/Report.h"
#include "io/SourceExcerpts.h"

namespace macroctl {

/// Writes error lines to standard error as they stand, behind what has been written to standard output.
///
/// On a terminal the source line that an error belongs to follows it, and the word "error" is coloured unless
/// the environment variable NO_COLOR is set.
class TextReport : public Report {
public:
    TextReport();

    void Add(const std::vector<std::string>& lines) override;
    void AddSource(std::string_view name, std::string_view text) override;

private:
    std::string OnTerminal(const std::vector<std::string>& lines);

    bool coloured_ = false;
    std::optional<SourceExcerpts> excerpts_;  // only on a terminal
};

}  // namespace macroctl
