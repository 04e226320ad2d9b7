#include <cstdio>
#include <new>

#include "CommandLine.h"

int main(int argc, char** argv) {
    // Not every C runtime leaves error output unbuffered, and lines of both streams shall keep their order.
    std::setvbuf(stderr, nullptr, _IONBF, 0);
    try {
        macroctl::Action action;
        const auto finished = macroctl::ParseCommandLine(argc, argv, action);
        return finished ? *finished : action();
    } catch (const std::bad_alloc&) {
        std::fflush(stdout);
        std::fputs("macroctl: out of memory\n", stderr);
        return macroctl::kExitFailed;
    }
}
