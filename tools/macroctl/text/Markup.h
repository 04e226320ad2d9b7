#pragma once

#include <string>
#include <string_view>

namespace macroctl {

/// @return the text as it may stand in an element or a quoted attribute of HTML and XML, in valid UTF-8.
std::string EscapeMarkup(std::string_view text);

}  // namespace macroctl
