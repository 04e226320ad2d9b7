#include "categories/SystemProcessCommand.h"

#include <cstdint>
#include <limits>
#include <string>

#include "categories/WorkFolderPath.h"
#include "macroengine/CMacroPropertyIF.h"
#include "platform/Directory.h"
#include "platform/Process.h"
#include "runtime/ValueView.h"

namespace macroengine {

namespace {

constexpr unsigned int kFirstParameter = 3;

bool Fail(CMacroPropertyIF* property, const std::string& reason) {
    property->AddErrorMessage(("system.command_exec() : " + reason).c_str());
    return false;
}

/// Each parameter is followed by a blank. What is no text does not count.
std::string JoinParameters(CMacroPropertyIF* property, unsigned int count) {
    std::string line;
    for (unsigned int i = kFirstParameter; i < count; ++i) {
        if (property->GetArgType(i) != static_cast<int>(ValueKind::String)) continue;
        const char* const parameter = property->GetArgString(i);
        if (parameter != nullptr) line.append(parameter).append(" ");
    }
    return line;
}

}  // namespace

bool CMacroCategorySystem_CommandExec::Run(CMacroPropertyIF* property) {
    const int count = property->CheckArgumentCount(kFirstParameter, std::numeric_limits<unsigned int>::max());
    int seconds = 0;
    if (count < 0 || !property->GetArgInteger(0, 0, 0, seconds)) return false;
    const char* const directory = property->GetArgString(1);
    if (directory == nullptr) return false;
    const std::string folder = WorkFolderPath(property, directory);
    const char* const command = property->GetArgString(2);
    if (command == nullptr) return false;
    if (*command == '\0') return Fail(property, "Command is null string");
    const std::string parameters = JoinParameters(property, static_cast<unsigned int>(count));
    if (!property->CheckNoAssignedValue(false)) return false;

    const std::string path = folder + "\\" + command;
    switch (platform::KindOfEntry(path)) {
        case platform::EntryKind::PlainDirectory:
            return Fail(property, "Command is directory.");
        case platform::EntryKind::Missing:
            return Fail(property, "Command(" + path + ") is not find.");
        default:
            break;
    }
    const platform::ProcessResult result =
        platform::RunProcess(folder, command, parameters, static_cast<std::uint32_t>(seconds));
    if (!result.started) return Fail(property, "failed to run command.");
    if (result.timedOut) return Fail(property, "command timeout.");
    if (!result.exitCodeKnown) return Fail(property, "can't get exitcode.");
    return property->SetResultInteger(static_cast<int>(result.exitCode));
}

}  // namespace macroengine
