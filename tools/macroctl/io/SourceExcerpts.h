#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "io/ErrorLine.h"

namespace macroctl {

/// Shows the source lines that errors belong to, each with a mark under what the error is about.
///
/// @code
///     3 | total = total + cuont
///       |                 ^~~~~
/// @endcode
class SourceExcerpts {
public:
    /// @param columns  the width that a line has to keep within.
    SourceExcerpts(std::size_t columns, bool coloured) : columns_(columns), coloured_(coloured) {}

    /// Gives the text of a name that is no file's.
    void AddSource(std::string_view name, std::string_view text);

    /// @return both lines, with line ends; the empty text when the error belongs to no line, or to one that
    ///         can't be shown: who encodes a file doesn't mean its text to be seen.
    std::string Below(const ErrorLine& error);

private:
    using Lines = std::vector<std::string>;

    const Lines& LinesOf(std::string_view file);

    const std::size_t columns_;
    const bool coloured_;
    std::map<std::string, Lines, std::less<>> sources_;
};

}  // namespace macroctl
