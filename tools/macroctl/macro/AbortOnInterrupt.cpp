#include "macro/AbortOnInterrupt.h"

#include <atomic>
#include <chrono>
#include <csignal>

#include <macroengine/CMacroFileIF.h>

namespace macroctl {

namespace {

// A signal handler may touch little more than a lock-free flag, so a thread looks at it now and then.
std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free, "the signal handler writes the flag");

constexpr std::chrono::milliseconds kLookInterval{10};

extern "C" void OnInterrupt(int signal) {
    interrupted = true;
    std::signal(signal, SIG_DFL);
}

}  // namespace

AbortOnInterrupt::AbortOnInterrupt(CMacroFileIF& file) : file_(file), previousHandler_(SIG_DFL) {
    interrupted = false;
    previousHandler_ = std::signal(SIGINT, OnInterrupt);
    watcher_ = std::thread(&AbortOnInterrupt::Watch, this);
}

AbortOnInterrupt::~AbortOnInterrupt() {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        runEnded_ = true;
    }
    ended_.notify_one();
    watcher_.join();
    std::signal(SIGINT, previousHandler_ == SIG_ERR ? SIG_DFL : previousHandler_);
}

void AbortOnInterrupt::Watch() {
    std::unique_lock<std::mutex> lock(mutex_);
    while (!ended_.wait_for(lock, kLookInterval, [this] { return runEnded_; })) {
        // Abort is false when the run hasn't quite begun; then the next look asks again.
        if (interrupted && file_.Abort()) return;
    }
}

}  // namespace macroctl
