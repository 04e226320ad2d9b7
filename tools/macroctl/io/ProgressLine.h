#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace macroctl {

/// Tells on standard error, when that is a terminal, what takes so long: one line, shown when a second has
/// passed, counting the seconds, and gone at the end of the object's life.
///
/// @code
/// running sweep.mac(12), 3 s
/// @endcode
class ProgressLine {
public:
    explicit ProgressLine(std::string what);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// @return whether there is a terminal to show anything on.
    bool IsOnTerminal() const { return columns_ > 0; }

    /// Changes what is shown from the next time on. May be called as often as there is something new.
    void SetText(const std::string& what);

    /// Takes the line away as long as this object lives, so that something else can be written.
    class Pause {
    public:
        explicit Pause(ProgressLine& line);

    private:
        std::unique_lock<std::mutex> lock_;
    };

private:
    using Clock = std::chrono::steady_clock;

    void Watch();
    void Show();
    void Hide();

    const std::size_t columns_;
    const Clock::time_point begin_ = Clock::now();
    std::mutex mutex_;
    std::condition_variable ended_;
    std::string what_;  // guarded by mutex_, as all below but the thread
    std::size_t shownWidth_ = 0;
    bool finished_ = false;
    std::thread watcher_;  // last: the thread uses all of the above
};

}  // namespace macroctl
