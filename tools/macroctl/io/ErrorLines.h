#pragma once

#include <string>
#include <string_view>

namespace macroctl {

/// Gathers finished lines and writes them to standard error at the end of its life, behind what has been
/// written to standard output.
class ErrorLines {
public:
    ErrorLines() = default;
    ErrorLines(const ErrorLines&) = delete;
    ErrorLines& operator=(const ErrorLines&) = delete;
    ~ErrorLines();

    /// @param line  without a line end.
    void Add(std::string_view line);

    bool IsEmpty() const { return lines_.empty(); }

private:
    std::string lines_;
};

}  // namespace macroctl
