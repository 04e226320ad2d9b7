#pragma once

#include <cstdlib>
#include <functional>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace macroengine::test {

/// How a child ends once its function has returned.
enum class ChildEnd {
    AtOnce,    ///< without any clean-up
    Properly,  ///< as a program that returns from main
    Killed,
};

/// Runs the function in a forked child and returns its exit code, 128 and the signal's number for a child
/// that was killed. The function must not use assertions: the child's output is nobody's.
inline int RunInChild(const std::function<int()>& function, ChildEnd end = ChildEnd::AtOnce) {
    const pid_t child = fork();
    if (child == 0) {
        const int code = function();
        if (end == ChildEnd::Properly) std::exit(code);
        if (end == ChildEnd::Killed) raise(SIGKILL);
        _exit(code);
    }
    int status = 0;
    if (child == -1 || waitpid(child, &status, 0) != child) return -1;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace macroengine::test
