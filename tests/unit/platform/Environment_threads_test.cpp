#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Environment.h"

namespace macroengine::platform {
namespace {

TEST(EnvironmentThreads, EveryThreadReadsWhatItHasSet) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 200;
    std::vector<int> failures(kThreads, 0);
    std::vector<std::thread> threads;
    for (int number = 0; number < kThreads; ++number) {
        threads.emplace_back([number, &failures] {
            const std::string name = "MACROENGINE_THREADS_TEST_" + std::to_string(number);
            for (int round = 0; round < kRounds; ++round) {
                const std::string value = std::to_string(number * kRounds + round);
                if (!SetEnvironmentText(name, value) || GetEnvironmentText(name) != value) {
                    ++failures[static_cast<std::size_t>(number)];
                }
                // These read the environment on their own.
                RefreshCodePage();
                ToLocalTime(round);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, std::vector<int>(kThreads, 0));
}

}  // namespace
}  // namespace macroengine::platform
