#pragma once

#include <cstddef>
#include <string_view>

namespace macroctl {

/// The parts of a finished error line. It reads `file(line): error : text`, `file: error : text` when it
/// belongs to no line of the file, or `error : text`.
struct ErrorLine {
    std::string_view file;  ///< Empty when the error belongs to no file.
    std::size_t line = 0;   ///< Counted from 1; 0 when the error belongs to no line.
    std::string_view text;
};

/// @return the parts, which point into `line`. What is no error line is all text.
ErrorLine ParseErrorLine(std::string_view line);

/// What stands before the text of every error line.
constexpr std::string_view kErrorMark = "error : ";

}  // namespace macroctl
