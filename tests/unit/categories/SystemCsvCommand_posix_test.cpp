#include <filesystem>
#include <gtest/gtest.h>

#include "support/CommandCaller.h"

namespace macroengine::test {
namespace {

// The memory of the process itself reads like a file, but not at the place 0.
constexpr const char* kUnreadable = "/proc/self/mem";

TEST(CsvfileReadPosix, AFileThatCannotBeReadToItsEndIsAnError) {
    if (!std::filesystem::exists(kUnreadable)) GTEST_SKIP() << "no such file";
    CommandCaller caller;
    EXPECT_EQ(caller.Call("system.csvfile_read", {Text(kUnreadable)}),
              Error("File read error. (/proc/self/mem)"));
}

}  // namespace
}  // namespace macroengine::test
