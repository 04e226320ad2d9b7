#include "io/ErrorLine.h"

#include <charconv>

namespace macroctl {

namespace {

/// Cuts the number in parentheses off the end of a place, if one is there.
void SplitPlace(std::string_view place, ErrorLine& parts) {
    parts.file = place;
    const std::size_t open = place.rfind('(');
    if (open == std::string_view::npos || place.back() != ')') return;
    const char* const last = place.data() + place.size() - 1;
    std::size_t line = 0;
    const auto [end, error] = std::from_chars(place.data() + open + 1, last, line);
    if (error != std::errc() || end != last) return;
    parts.file = place.substr(0, open);
    parts.line = line;
}

}  // namespace

ErrorLine ParseErrorLine(std::string_view line) {
    ErrorLine parts;
    if (line.substr(0, kErrorMark.size()) == kErrorMark) {
        parts.text = line.substr(kErrorMark.size());
        return parts;
    }
    constexpr std::string_view kBehindPlace = ": ";
    for (std::size_t at = line.find(kErrorMark); at != std::string_view::npos;
         at = line.find(kErrorMark, at + 1)) {
        if (at <= kBehindPlace.size() ||
            line.substr(at - kBehindPlace.size(), kBehindPlace.size()) != kBehindPlace)
            continue;
        SplitPlace(line.substr(0, at - kBehindPlace.size()), parts);
        parts.text = line.substr(at + kErrorMark.size());
        return parts;
    }
    parts.text = line;
    return parts;
}

}  // namespace macroctl
