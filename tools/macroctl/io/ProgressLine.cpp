#include "io/ProgressLine.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "platform/Terminal.h"
#include "text/Utf8.h"

namespace macroctl {

namespace {

constexpr std::chrono::seconds kPatience{1};
constexpr std::chrono::milliseconds kInterval{200};

}  // namespace

ProgressLine::ProgressLine(std::string what) : columns_(ErrorTerminalColumns()), what_(std::move(what)) {
    if (IsOnTerminal()) watcher_ = std::thread(&ProgressLine::Watch, this);
}

ProgressLine::~ProgressLine() {
    if (!watcher_.joinable()) return;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        finished_ = true;
    }
    ended_.notify_one();
    watcher_.join();
}

void ProgressLine::SetText(const std::string& what) {
    const std::lock_guard<std::mutex> lock(mutex_);
    what_ = what;
}

ProgressLine::Pause::Pause(ProgressLine& line) {
    if (!line.IsOnTerminal()) return;
    lock_ = std::unique_lock<std::mutex>(line.mutex_);
    line.Hide();
}

void ProgressLine::Watch() {
    std::unique_lock<std::mutex> lock(mutex_);
    if (ended_.wait_for(lock, kPatience, [this] { return finished_; })) return;
    do {
        Show();
    } while (!ended_.wait_for(lock, kInterval, [this] { return finished_; }));
    Hide();
}

void ProgressLine::Show() {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begin_).count();
    const std::string time = ", " + std::to_string(seconds) + " s";
    // A line as wide as the terminal would go on in the next one.
    const std::size_t room = columns_ - std::min(columns_, time.size() + 1);
    const std::string text = CutToWidth(OnOneLine(what_), room) + time;
    const std::size_t width = DisplayWidth(text);
    const std::string rest(shownWidth_ - std::min(shownWidth_, width), ' ');
    std::fprintf(stderr, "\r%s%s", text.c_str(), rest.c_str());
    std::fflush(stderr);
    shownWidth_ = width;
}

void ProgressLine::Hide() {
    if (shownWidth_ == 0) return;
    std::fprintf(stderr, "\r%s\r", std::string(shownWidth_, ' ').c_str());
    std::fflush(stderr);
    shownWidth_ = 0;
}

}  // namespace macroctl
