#pragma once

#include <string>
#include <string_view>

namespace macroctl {

/// The parts of a line-based register's function text, which is its line with a format directive for the
/// value, and the notes behind it.
struct LineTemplate {
    explicit LineTemplate(std::string_view function);

    std::string pieces;      ///< the addresses with their bits, with one blank between the words
    std::string_view notes;  ///< the comment of the line and the notes behind it
};

}  // namespace macroctl
