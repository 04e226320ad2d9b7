#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "macroengine/SystemVariable.h"
#include "support/CommandCaller.h"

namespace macroengine {
namespace {

constexpr const char* kShared = "MACROENGINE_THREADS_TEST_SHARED";

/// Sets and reads a variable of its own, and one that all threads write. Returns how often it was not as set.
int Work(int number) {
    constexpr int kRounds = 200;
    const std::string own = "MACROENGINE_THREADS_TEST_" + std::to_string(number);
    test::CommandCaller caller;
    int failures = 0;
    for (int round = 1; round <= kRounds; ++round) {
        const long value = number * kRounds + round;
        long integer = 0;
        double floating = 0;
        if (!SetSystemVariable(own.c_str(), value) || !GetSystemVariable(own.c_str(), integer) ||
            integer != value) {
            ++failures;
        }
        const CMacroCommonValue assigned = test::Floating(round + 0.5);
        caller.Call("system.variable", {test::Text(own)}, &assigned);
        if (!GetSystemVariable(own.c_str(), floating) || floating != round + 0.5) ++failures;

        // Whoever was last, it is one of the values that are written.
        SetSystemVariable(kShared, round % 2 == 0 ? 11111L : 222222222L);
        if (!GetSystemVariable(kShared, integer) || (integer != 11111 && integer != 222222222)) ++failures;
    }
    return failures;
}

TEST(SystemVariableThreads, EightThreadsReadWhatTheyHaveSet) {
    std::vector<int> failures(8, 0);
    std::vector<std::thread> threads;
    for (std::size_t number = 0; number < failures.size(); ++number)
        threads.emplace_back([number, &failures] { failures[number] = Work(static_cast<int>(number)); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, std::vector<int>(8, 0));
}

}  // namespace
}  // namespace macroengine
