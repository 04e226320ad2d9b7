// A host that owns its objects, brings a command of its own, and limits the time and the memory that a macro may take:
//
//     example_embedding FILE MILLISECONDS

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <macroengine/CMacroCategoryBase.h>
#include <macroengine/CMacroFileIF.h>
#include <macroengine/CMacroPropertyIF.h>
#include <macroengine/Limits.h>
#include <macroengine/SystemVariable.h>

namespace {

struct MacroFileDeleter {
    void operator()(CMacroFileIF* file) const { DeleteMacroFile(file); }
};
using MacroFile = std::unique_ptr<CMacroFileIF, MacroFileDeleter>;

/// log.add("text"): keeps the text for the host.
class LogAdd : public CMacroCategoryBase {
public:
    explicit LogAdd(std::vector<std::string>& lines)
        : CMacroCategoryBase("log", "add", false, false, ""), lines_(lines) {}

    bool Run(CMacroPropertyIF* property) override {
        if (property->CheckArgumentCount(1, 1) < 0) return false;
        const char* const text = property->GetArgString(0);
        if (text == nullptr) return false;  // the reason is already reported
        lines_.emplace_back(text);
        return true;
    }

private:
    std::vector<std::string>& lines_;
};

/// Aborts the run of a file that takes too long.
class TimeLimit {
public:
    TimeLimit(CMacroFileIF& file, std::chrono::milliseconds limit)
        : thread_([this, &file, limit] { Watch(file, limit); }) {}
    ~TimeLimit() {
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            over_ = true;
        }
        changed_.notify_one();
        thread_.join();
    }

private:
    static constexpr std::chrono::milliseconds kAgain{1};

    void Watch(CMacroFileIF& file, std::chrono::milliseconds limit) {
        std::unique_lock<std::mutex> lock(mutex_);
        if (changed_.wait_for(lock, limit, [this] { return over_; })) return;
        // Abort tells by false that the run has not begun yet, or is over.
        while (!file.Abort() && !changed_.wait_for(lock, kAgain, [this] { return over_; })) {
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    bool over_ = false;
    std::thread thread_;  // the last member: it uses the others
};

bool RunWithin(CMacroFileIF& file, std::chrono::milliseconds limit) {
    const TimeLimit watch(file, limit);
    return file.Run();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return std::puts("usage: example_embedding FILE MILLISECONDS"), 2;

    std::vector<std::string> lines;
    LogAdd logAdd(lines);  // outlives the file, which does not own it
    const MacroFile file(CreateMacroFile("", false));
    if (file == nullptr) return 1;
    file->RegisterCategory(nullptr, &logAdd, false);
    MacroLimits limits;
    limits.valueBytes = 64 << 20;  // 64 MB; the number of statements and the seconds stay without a limit
    SetMacroLimits(file.get(), limits);
    SetSystemVariable("LOT", 4711L);

    const bool ok = file->Load(argv[1]) && RunWithin(*file, std::chrono::milliseconds(std::atol(argv[2])));
    for (const std::string& line : lines)
        std::printf("log: %s\n", line.c_str());
    for (std::uint32_t i = 0; i < file->GetErrorCount(); ++i)
        std::puts(file->GetErrorMessage(i));
    return ok ? 0 : 1;
}
