#pragma once

#include <cstddef>
#include <string_view>

namespace macroctl {

/// A part of a line.
struct TextRange {
    std::size_t begin = 0;
    std::size_t length = 0;
};

/// Tells which part of a source line an error message is about.
///
/// @return the first place in the line of a token that the message names, whole and outside of comments; the
///         line's first character that is no blank when the message names none.
TextRange FindNamedToken(std::string_view message, std::string_view line);

/// @return whether the message is about the end of a line: the line before the one that the error line gives.
bool IsAboutLineEnd(std::string_view message);

/// @return whether the message is about the end of the file.
bool IsAboutFileEnd(std::string_view message);

}  // namespace macroctl
