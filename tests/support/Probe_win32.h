#pragma once

#include <string>

#include "platform/WindowsHeaders_win32.h"

namespace macroengine::test {

/// Returns the folder of the test programs, without a separator at its end.
inline std::string ProgramFolder() {
    char path[MAX_PATH] = "";
    const std::string program(path, GetModuleFileNameA(nullptr, path, MAX_PATH));
    return program.substr(0, program.find_last_of('\\'));
}

/// Returns the path of the program that tests/programs/probe_win32.cpp becomes.
inline std::string ProbePath() {
    return ProgramFolder() + R"(\probe.exe)";
}

/// Returns whether the process takes texts for those of the code page.
inline bool HasSystemCodePage(unsigned int codePage) {
    return GetACP() == codePage;
}

}  // namespace macroengine::test
