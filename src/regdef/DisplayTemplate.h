#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace macroengine {

/// Turns a register line into a template that a value can be formatted into: the directive takes the place of
/// the value word, and each "%" of the rest is doubled. So the line keeps its layout.
///
/// @param valueStart       where the value word begins in the line.
/// @param valueLength      0 when the line has none; the template has no directive then.
/// @param displayTemplate  receives the template.
void WriteDisplayTemplate(std::string_view line, std::size_t valueStart, std::size_t valueLength,
                          std::string_view directive, std::string& displayTemplate);

}  // namespace macroengine
