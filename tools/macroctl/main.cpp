#include <cstdio>
#include <exception>
#include <new>

#include "CommandLine.h"

int main(int argc, char** argv) {
    // Not every C runtime leaves error output unbuffered, and lines of both streams shall keep their order.
    std::setvbuf(stderr, nullptr, _IONBF, 0);
    macroctl::Action action;
    try {
        const auto finished = macroctl::ParseCommandLine(argc, argv, action);
        return finished ? *finished : action.run();
    } catch (const std::bad_alloc&) {
        std::fflush(stdout);
        std::fputs("macroctl: out of memory\n", stderr);
    } catch (const std::exception& exception) {
        // The system refuses a thread, for instance.
        std::fflush(stdout);
        std::fprintf(stderr, "macroctl: %s\n", exception.what());
    }
    return action.failure;
}
