#include "io/ErrorLines.h"

#include <cstdio>

namespace macroctl {

ErrorLines::~ErrorLines() {
    if (lines_.empty()) return;
    // What was printed before comes first, also where both streams go to the same place.
    std::fflush(stdout);
    std::fwrite(lines_.data(), 1, lines_.size(), stderr);
}

void ErrorLines::Add(std::string_view line) {
    lines_.append(line).append(1, '\n');
}

}  // namespace macroctl
