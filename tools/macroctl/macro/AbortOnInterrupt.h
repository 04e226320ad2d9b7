#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

class CMacroFileIF;

namespace macroctl {

/// Turns Ctrl-C into CMacroFileIF::Abort as long as the object lives: it is made around a Run.
///
/// The first Ctrl-C asks the program to stop after its statement. It also gives the signal its default
/// meaning back, so a second one ends the process at once, even inside a command that doesn't return.
///
/// There is one at a time. It is made and destroyed by the thread that owns the file.
class AbortOnInterrupt {
public:
    explicit AbortOnInterrupt(CMacroFileIF& file);
    ~AbortOnInterrupt();
    AbortOnInterrupt(const AbortOnInterrupt&) = delete;
    AbortOnInterrupt& operator=(const AbortOnInterrupt&) = delete;

private:
    using SignalHandler = void (*)(int);

    void Watch();

    CMacroFileIF& file_;
    SignalHandler previousHandler_;
    std::mutex mutex_;
    std::condition_variable ended_;
    bool runEnded_ = false;  // guarded by mutex_
    std::thread watcher_;    // last: the thread uses all of the above
};

}  // namespace macroctl
