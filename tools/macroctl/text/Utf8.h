#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace macroctl {

/// Copies a text, with U+FFFD for each byte that is no UTF-8 and for what no XML document may hold.
std::string ValidUtf8(std::string_view text);

/// @return the number of columns that a terminal needs for the text. A byte that is no UTF-8 counts as one.
std::size_t DisplayWidth(std::string_view text);

/// Shortens a text that needs more than `width` columns, and ends it with "..." then.
std::string CutToWidth(std::string_view text, std::size_t width);

/// As CutToWidth, but keeps the end of the text, and begins it with "..." then.
std::string CutStartToWidth(std::string_view text, std::size_t width);

/// Copies a text with one blank for each run of blanks, line ends and other control characters, so that it
/// stays on its line and can't steer a terminal.
std::string OnOneLine(std::string_view text);

}  // namespace macroctl
