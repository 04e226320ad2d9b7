#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "platform/Environment.h"
#include "platform/NativePath_posix.h"
#include "platform/Process.h"

// POSIX leaves the declaration to the program; some systems make it nevertheless.
extern "C" char** environ;  // NOLINT(readability-redundant-declaration)

namespace macroengine::platform {

namespace {

constexpr std::uint32_t kSignalExitCode = 128;

/// A program that ends is noticed within the longest step; the short ones at the start are for quick
/// programs.
constexpr std::chrono::milliseconds kShortestStep(1);
constexpr std::chrono::milliseconds kLongestStep(20);

/// Where the child keeps its end of the pipe while it closes everything else.
constexpr int kReportDescriptor = 3;

constexpr long kUnlimitedDescriptors = 65536;

/// Makes a pipe that no program inherits, at once where the system can: a program that another thread starts
/// meanwhile would keep it open as long as it runs. A pipe that can't be made leaves the ends alone.
void MakePipe(int (&ends)[2]) {
#if defined(__linux__)
    static_cast<void>(pipe2(ends, O_CLOEXEC));
#else
    if (pipe(ends) != 0) return;
    for (const int end : ends)
        fcntl(end, F_SETFD, FD_CLOEXEC);
#endif
}

class Pipe {
public:
    Pipe() { MakePipe(ends_); }
    ~Pipe() {
        CloseWriter();
        if (ends_[0] != -1) close(ends_[0]);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    bool IsOpen() const { return ends_[0] != -1; }
    int Reader() const { return ends_[0]; }
    int Writer() const { return ends_[1]; }

    void CloseWriter() {
        if (ends_[1] != -1) close(ends_[1]);
        ends_[1] = -1;
    }

private:
    int ends_[2] = {-1, -1};
};

/// A list of texts as exec takes it.
class TextList {
public:
    explicit TextList(std::vector<std::string> texts) : texts_(std::move(texts)) {
        for (std::string& text : texts_)
            pointers_.push_back(text.data());
        pointers_.push_back(nullptr);
    }
    TextList(const TextList&) = delete;
    TextList& operator=(const TextList&) = delete;

    char* const* Pointers() const { return pointers_.data(); }

private:
    std::vector<std::string> texts_;
    std::vector<char*> pointers_;
};

std::vector<std::string> CopyEnvironment() {
    std::vector<std::string> copy;
    const std::unique_lock<std::mutex> lock = LockEnvironment();
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry)
        copy.emplace_back(*entry);
    return copy;
}

/// Keeps all signals from the calling thread.
class SignalBlock {
public:
    SignalBlock() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &previous_);
    }
    ~SignalBlock() { pthread_sigmask(SIG_SETMASK, &previous_, nullptr); }
    SignalBlock(const SignalBlock&) = delete;
    SignalBlock& operator=(const SignalBlock&) = delete;

private:
    sigset_t previous_{};
};

/// Everything that the child uses. It is prepared before the fork: from there on the child may not even
/// allocate memory, because another thread may have held the allocator's lock.
struct StartPlan {
    const char* folder;
    const char* command;
    char* const* arguments;
    char* const* environment;
    long descriptorLimit;
    int reportDescriptor;
};

// What the child does can't be counted: its counts go when it becomes the program.
// GCOV_EXCL_START
void CloseDescriptorsFrom(int first, long limit) {
#if defined(__linux__) && defined(SYS_close_range)
    if (syscall(SYS_close_range, static_cast<unsigned>(first), ~0U, 0U) == 0) return;
#endif
    for (int descriptor = first; descriptor < limit; ++descriptor)
        close(descriptor);
}

/// The host's handlers must not run in the child, and what it blocks is no business of the program. A host
/// that ignores SIGPIPE does so for its own sake; other ignored signals stay ignored, as with nohup.
void ResetSignals() {
    for (int number = 1; number < NSIG; ++number) {
        struct sigaction action {};
        if (sigaction(number, nullptr, &action) != 0) continue;
        if (action.sa_handler == SIG_IGN && number != SIGPIPE) continue;
        action = {};
        action.sa_handler = SIG_DFL;
        sigaction(number, &action, nullptr);
    }
    sigset_t none;
    sigemptyset(&none);
    pthread_sigmask(SIG_SETMASK, &none, nullptr);
}

/// Becomes the program. Returns only on failure.
void Become(const StartPlan& plan) {
    setpgid(0, 0);
    if (dup2(plan.reportDescriptor, kReportDescriptor) == -1) return;
    fcntl(kReportDescriptor, F_SETFD, FD_CLOEXEC);

    const int input = open("/dev/null", O_RDONLY);
    if (input == -1) return;
    if (input != STDIN_FILENO) {
        if (dup2(input, STDIN_FILENO) == -1) return;
        close(input);
    }
    CloseDescriptorsFrom(kReportDescriptor + 1, plan.descriptorLimit);

    if (*plan.folder != '\0' && chdir(plan.folder) != 0) return;
    ResetSignals();
    execve(plan.command, plan.arguments, plan.environment);
}

/// Becomes the program or ends, with a word about it in the pipe.
[[noreturn]] void RunChild(const StartPlan& plan) {
    Become(plan);
    const char failure = 1;
    while (write(kReportDescriptor, &failure, 1) == -1 && errno == EINTR) {
    }
    _exit(127);
}
// GCOV_EXCL_STOP

/// Returns the id of the child once the program runs in it; nothing when it can't be run.
std::optional<pid_t> Start(StartPlan plan) {
    Pipe report;
    if (!report.IsOpen()) return std::nullopt;
    plan.reportDescriptor = report.Writer();

    pid_t child = -1;
    {
        const SignalBlock block;
        child = fork();
        if (child == 0) RunChild(plan);
    }
    if (child == -1) return std::nullopt;

    // A program that runs has closed the pipe without a word.
    report.CloseWriter();
    char failure = 0;
    ssize_t count;
    do {
        count = read(report.Reader(), &failure, 1);
    } while (count == -1 && errno == EINTR);
    if (count == 0) return child;
    while (waitpid(child, nullptr, 0) == -1 && errno == EINTR) {
    }
    return std::nullopt;
}

enum class Wait { Ended, Running, Lost };

/// Lost: the host ignores its children's ends, or has waited for this one itself.
Wait WaitOnce(pid_t child, int options, int& status) {
    pid_t result;
    do {
        result = waitpid(child, &status, options);
    } while (result == -1 && errno == EINTR);
    if (result == 0) return Wait::Running;
    return result == child ? Wait::Ended : Wait::Lost;
}

Wait WaitUntil(pid_t child, std::uint32_t timeOutSeconds, int& status) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(timeOutSeconds);
    Clock::duration step = kShortestStep;
    while (true) {
        const Wait wait = WaitOnce(child, WNOHANG, status);
        if (wait != Wait::Running) return wait;
        const Clock::time_point now = Clock::now();
        if (now >= deadline) return wait;
        std::this_thread::sleep_for(std::min(step, deadline - now));
        step = std::min<Clock::duration>(2 * step, kLongestStep);
    }
}

}  // namespace

ProcessResult RunProcess(const std::string& folder, const std::string& command,
                         const std::string& parameterLine, std::uint32_t timeOutSeconds) {
    const std::string systemFolder = ToSystemPath(folder);
    std::string systemCommand = ToSystemPath(command);
    // Scripts without a folder in their name would be looked for elsewhere by some interpreters.
    if (systemCommand.empty() || systemCommand.front() != '/') systemCommand.insert(0, "./");

    std::vector<std::string> words = SplitParameterLine(parameterLine);
    words.insert(words.begin(), systemCommand);
    const TextList arguments(std::move(words));
    const TextList environment(CopyEnvironment());
    const long openMax = sysconf(_SC_OPEN_MAX);
    const long descriptorLimit = openMax == -1 ? kUnlimitedDescriptors : openMax;

    ProcessResult result;
    const std::optional<pid_t> child =
        Start({systemFolder.c_str(), systemCommand.c_str(), arguments.Pointers(), environment.Pointers(),
               descriptorLimit, -1});
    if (!child) return result;
    result.started = true;

    int status = 0;
    const Wait wait =
        timeOutSeconds == 0 ? WaitOnce(*child, 0, status) : WaitUntil(*child, timeOutSeconds, status);
    if (wait == Wait::Running) {
        // The group holds the programs that this one has started; the program itself may have left it.
        kill(-*child, SIGKILL);
        // One that has become another user's can't be ended, and may never end by itself.
        if (kill(*child, SIGKILL) == 0) WaitOnce(*child, 0, status);
        result.timedOut = true;
    } else if (wait == Wait::Ended) {
        result.exitCodeKnown = true;
        result.exitCode = WIFSIGNALED(status) ? kSignalExitCode + static_cast<std::uint32_t>(WTERMSIG(status))
                                              : static_cast<std::uint32_t>(WEXITSTATUS(status));
    }
    return result;
}

}  // namespace macroengine::platform
