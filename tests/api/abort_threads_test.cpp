#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <gtest/gtest.h>
#include <mutex>
#include <random>
#include <string>
#include <thread>

#include <macroengine/CMacroFileIF.h>

#include "api/MacroHost.h"

namespace macroengine {
namespace {

using test::MacroHost;
using test::ProbeCommand;

/// One thread waits for what another one announces.
class Signal {
public:
    void Set() {
        const std::lock_guard<std::mutex> lock(mutex_);
        isSet_ = true;
        changed_.notify_all();
    }

    void Await() {
        std::unique_lock<std::mutex> lock(mutex_);
        changed_.wait(lock, [this] { return isSet_; });
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool isSet_ = false;
};

/// Takes the error lines; only when no run is under way.
std::string LastLine(MacroHost& host) {
    const std::string lines = host.TakeErrors();
    return lines.substr(lines.rfind('\n') + 1);
}

bool IsAborted(const std::string& line) {
    const std::string ending = "error : Macro aborted.";
    return line.size() >= ending.size() &&
           line.compare(line.size() - ending.size(), ending.size(), ending) == 0;
}

/// A run on a thread of its own, and an abort of it from this one.
struct AbortedRun {
    bool hasSucceeded = false;
    bool wasAccepted = false;
};

/// @param spins  how long to wait before the first request; it asks until it is accepted or the run is over.
AbortedRun RunAndAbort(MacroHost& host, unsigned int spins) {
    AbortedRun result;
    std::atomic<bool> isOver{false};
    std::thread runner([&] {
        result.hasSucceeded = host->Run();
        isOver = true;
    });
    for (std::atomic<unsigned int> i{0}; i < spins && !isOver;)
        ++i;
    while (!isOver && !result.wasAccepted)
        result.wasAccepted = host->Abort();
    runner.join();
    return result;
}

TEST(AbortThreads, WheneverAnAbortIsAcceptedItsRunEndsAborted) {
    MacroHost host;
    std::mt19937 random(4711);
    int length = 0;
    ProbeCommand probe([&](CMacroPropertyIF* property) { return property->SetResultInteger(length); });
    host->RegisterCategory(nullptr, &probe, false);
    ASSERT_TRUE(
        host.Load("n = probe.call()\n"
                  "i = 0\n"
                  "loop i < n\n"
                  "i = i + 1\n"
                  "endloop\n"));
    const std::string more = host.GetFolder().Write("more.mac", "z = 1\n");
    int accepted = 0;
    for (int round = 0; round < 1000; ++round) {
        length = static_cast<int>(random() % 300);
        const AbortedRun run = RunAndAbort(host, static_cast<unsigned int>(random() % 2000));
        ASSERT_EQ(run.hasSucceeded, !run.wasAccepted) << round;
        const std::string last = LastLine(host);
        if (!run.wasAccepted) {
            ASSERT_EQ(last, "") << round;
            continue;
        }
        ++accepted;
        ASSERT_TRUE(IsAborted(last)) << round << ": " << last;
        ASSERT_FALSE(host->Abort());
        ASSERT_FALSE(host->Run());
        ASSERT_EQ(LastLine(host), "error : internal error. Recieve run-request during aborting.");
        ASSERT_TRUE(host->Load(more.c_str()));
        ASSERT_TRUE(host->Run()) << round;
    }
    // Not a promise, but a sign that the test tests something.
    RecordProperty("accepted", accepted);
}

TEST(AbortThreads, ARunThatFailsEndsWithItsErrorOrAborted) {
    MacroHost host;
    std::mt19937 random(815);
    int length = 0;
    ProbeCommand probe([&](CMacroPropertyIF* property) { return property->SetResultInteger(length); });
    host->RegisterCategory(nullptr, &probe, false);
    ASSERT_TRUE(
        host.Load("n = probe.call()\n"
                  "loop n >= 0\n"
                  "x = 10 / n\n"
                  "n = n - 1\n"
                  "endloop\n"));
    const std::string more = host.GetFolder().Write("more.mac", "z = 1\n");
    for (int round = 0; round < 300; ++round) {
        length = static_cast<int>(random() % 100);
        const AbortedRun run = RunAndAbort(host, static_cast<unsigned int>(random() % 2000));
        ASSERT_FALSE(run.hasSucceeded);
        const std::string last = LastLine(host);
        if (IsAborted(last)) {
            ASSERT_TRUE(run.wasAccepted);
            ASSERT_TRUE(host->Load(more.c_str()));
        } else {
            ASSERT_EQ(last, "a.mac(3): error : run time error !") << round;
        }
        // Ready to run again in either case, and to fail again.
        ASSERT_FALSE(host->Run());
        ASSERT_EQ(LastLine(host), "a.mac(3): error : run time error !");
    }
}

TEST(AbortThreads, AnEndlessLoopEnds) {
    for (int round = 0; round < 20; ++round) {
        MacroHost host;
        ASSERT_TRUE(host.Load("i = 0\nloop 1 == 1\ni = i + 1\nendloop\n"));
        const AbortedRun run = RunAndAbort(host, 0);
        EXPECT_TRUE(run.wasAccepted);
        EXPECT_FALSE(run.hasSucceeded);
        EXPECT_EQ(host->GetErrorCount(), 1U);
        EXPECT_TRUE(IsAborted(LastLine(host)));
    }
}

TEST(AbortThreads, ACommandIsFinishedFirst) {
    MacroHost host;
    Signal entered;
    Signal leave;
    std::atomic<bool> isLeft{false};
    ProbeCommand probe([&](CMacroPropertyIF*) {
        entered.Set();
        leave.Await();
        isLeft = true;
        return true;
    });
    host->RegisterCategory(nullptr, &probe, false);
    ASSERT_TRUE(host.Load("probe.call()\ntest.put(\"next\")\n"));
    bool hasSucceeded = true;
    std::thread runner([&] { hasSucceeded = host->Run(); });
    entered.Await();
    EXPECT_TRUE(host->Abort());
    // It has been accepted; a second one has nothing left to stop.
    EXPECT_FALSE(host->Abort());
    EXPECT_FALSE(isLeft);
    leave.Set();
    runner.join();
    EXPECT_TRUE(isLeft);
    EXPECT_FALSE(hasSucceeded);
    EXPECT_EQ(host.TakeOutput(), "");
    EXPECT_EQ(host.TakeErrors(), "a.mac(1): error : Macro aborted.");
}

TEST(AbortThreads, RunAndLoadAreRefusedWhileTheFileRuns) {
    MacroHost host;
    Signal entered;
    Signal leave;
    ProbeCommand probe([&](CMacroPropertyIF*) {
        entered.Set();
        leave.Await();
        return true;
    });
    host->RegisterCategory(nullptr, &probe, false);
    ASSERT_TRUE(host.Load("probe.call()\nx = y\n"));
    const std::string other = host.GetFolder().Write("other.mac", "y = 1\n");
    bool hasSucceeded = true;
    std::thread runner([&] { hasSucceeded = host->Run(); });
    entered.Await();
    EXPECT_FALSE(host->Run());
    EXPECT_EQ(host->GetErrorCount(), 1U);
    EXPECT_FALSE(host->Load(other.c_str()));
    EXPECT_EQ(host->GetErrorCount(), 2U);
    leave.Set();
    runner.join();
    EXPECT_FALSE(hasSucceeded);
    EXPECT_EQ(host.TakeErrors(),
              "error : internal error. Recieve run-request during running.\n"
              "error : Can't load file, because macro is loading or running now.\n"
              "a.mac(2): error : Didn't define valiable name[y]\n"
              "a.mac(2): error : run time error !");
}

TEST(AbortThreads, RunIsRefusedWhileTheRunIsAborting) {
    MacroHost host;
    Signal entered;
    Signal leave;
    ProbeCommand probe([&](CMacroPropertyIF*) {
        entered.Set();
        leave.Await();
        return true;
    });
    host->RegisterCategory(nullptr, &probe, false);
    ASSERT_TRUE(host.Load("probe.call()\n"));
    std::thread runner([&] { host->Run(); });
    entered.Await();
    EXPECT_TRUE(host->Abort());
    EXPECT_FALSE(host->Run());
    leave.Set();
    runner.join();
    EXPECT_EQ(host.TakeErrors(),
              "error : internal error. Recieve run-request during aborting.\n"
              "a.mac(1): error : Macro aborted.");
}

TEST(TwoFilesThreads, EachRunsAsIfItWereAlone) {
    const std::string text = R"(
i = 0
s = ""
loop i < 300
    a[i] = i * i
    b = a
    b[0] = "own"
    t = string.int2hex(i, 4)
    s = s + t
    f = string.format("%.2f", 0.25)
    w = string.format("%s", f)
    if w == "0.25" && a[0] == 0
        n = array.max(b)
    endif
    i = i + 1
endloop
wait_ms(1)
test.put(n, a[299], f, s)
)";
    std::string expected = "300 89401 0.25 ";
    for (int i = 0; i < 300; ++i) {
        char digits[8];
        std::snprintf(digits, sizeof digits, "%04X", static_cast<unsigned int>(i));
        expected += digits;
    }
    std::string outputs[2];
    std::thread threads[2];
    for (int number = 0; number < 2; ++number) {
        threads[number] = std::thread([&text, &output = outputs[number]] {
            for (int round = 0; round < 20; ++round) {
                MacroHost host(round % 2 == 0 ? "" : "alpha");
                const std::string once = host.Output(text);
                if (output.empty() || output == once) output = once;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(outputs[0], expected);
    EXPECT_EQ(outputs[1], expected);
}

TEST(TwoFilesThreads, AnAbortStopsTheFileItIsMeantFor) {
    MacroHost stopped;
    MacroHost other;
    ASSERT_TRUE(stopped.Load("i = 0\nloop 1 == 1\ni = i + 1\nendloop\n"));
    ASSERT_TRUE(other.Load("i = 0\nloop i < 20000\ni = i + 1\nendloop\ntest.put(i)\n"));
    bool otherHasSucceeded = false;
    std::thread runner([&] { otherHasSucceeded = other->Run(); });
    const AbortedRun run = RunAndAbort(stopped, 1000);
    runner.join();
    EXPECT_TRUE(run.wasAccepted);
    EXPECT_FALSE(run.hasSucceeded);
    EXPECT_TRUE(IsAborted(LastLine(stopped)));
    EXPECT_TRUE(otherHasSucceeded);
    EXPECT_EQ(other.TakeOutput(), "20000");
    EXPECT_EQ(other.TakeErrors(), "");
}

}  // namespace
}  // namespace macroengine
