#include "io/Output.h"

#include <cstdio>

#include "platform/Terminal.h"

namespace macroctl {

Output::Output() {
    KeepOutputBytes();
}

void Output::Write(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) good_ = false;
}

bool Output::Finish() {
    if (std::fflush(stdout) != 0) good_ = false;
    if (!good_) std::fputs("macroctl: can't write to standard output\n", stderr);
    return good_;
}

}  // namespace macroctl
