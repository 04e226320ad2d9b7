#include <cstdio>
#include <new>

#include "MacroHost.h"
#include "Options.h"

int main(int argc, char** argv) {
    try {
        macroctl::Options options;
        const auto finished = macroctl::ParseOptions(argc, argv, options);
        if (finished) return *finished;
        return macroctl::MacroHost(options).Execute();
    } catch (const std::bad_alloc&) {
        std::fflush(stdout);
        std::fputs("macroctl: out of memory\n", stderr);
        return macroctl::kExitFailed;
    }
}
