#include "platform/Process.h"
#include "platform/WindowsHeaders_win32.h"

// Behind the proxy, which it builds on.
#include <shellapi.h>

namespace macroengine::platform {

namespace {

constexpr DWORD kStepMilliseconds = 1000;

/// The shell's way to say that it failed, for the sake of very old programs.
constexpr INT_PTR kLastErrorInstance = 32;

class ProcessHandle {
public:
    explicit ProcessHandle(HANDLE value) : value_(value) {}
    ~ProcessHandle() {
        if (value_ != nullptr) CloseHandle(value_);
    }
    ProcessHandle(const ProcessHandle&) = delete;
    ProcessHandle& operator=(const ProcessHandle&) = delete;

    HANDLE Get() const { return value_; }

private:
    HANDLE value_;
};

/// Returns false when the process still runs after the time-out.
bool WaitForEnd(const ProcessHandle& process, std::uint32_t timeOutSeconds) {
    if (timeOutSeconds == 0) {
        WaitForSingleObject(process.Get(), INFINITE);
        return true;
    }
    for (std::uint32_t step = 0; step < timeOutSeconds; ++step) {
        if (WaitForSingleObject(process.Get(), kStepMilliseconds) != WAIT_TIMEOUT) return true;
    }
    return false;
}

}  // namespace

ProcessResult RunProcess(const std::string& folder, const std::string& command,
                         const std::string& parameterLine, std::uint32_t timeOutSeconds) {
    SHELLEXECUTEINFOA info{};
    info.cbSize = sizeof info;
    // The caller reports a failure: a message box would stop a host that nobody watches.
    info.fMask = SEE_MASK_NOCLOSEPROCESS | SEE_MASK_FLAG_NO_UI;
    info.lpVerb = "open";
    info.lpFile = command.c_str();
    info.lpParameters = parameterLine.c_str();
    info.lpDirectory = folder.empty() ? nullptr : folder.c_str();
    info.nShow = SW_SHOWNORMAL;

    ProcessResult result;
    const bool isAccepted = ShellExecuteExA(&info) != FALSE;
    const ProcessHandle process(info.hProcess);
    if (!isAccepted || reinterpret_cast<INT_PTR>(info.hInstApp) <= kLastErrorInstance) return result;
    result.started = true;

    if (!WaitForEnd(process, timeOutSeconds)) {
        TerminateProcess(process.Get(), 0);
        result.timedOut = true;
        return result;
    }
    DWORD exitCode = 0;
    result.exitCodeKnown = GetExitCodeProcess(process.Get(), &exitCode) != FALSE;
    result.exitCode = exitCode;
    return result;
}

}  // namespace macroengine::platform
