#include <filesystem>
#include <gtest/gtest.h>

#include "regdef/PSCRegDefFile.h"

namespace macroengine {
namespace {

// The memory of the process itself reads like a file, but not at the place 0.
constexpr const char* kUnreadable = "/proc/self/mem";

TEST(PSCRegDefFilePosix, AFileThatCannotBeReadToItsEndIsAnError) {
    if (!std::filesystem::exists(kUnreadable)) GTEST_SKIP() << "no such file";
    PSCRegDefFile file;
    EXPECT_FALSE(file.Load(kUnreadable));
    ASSERT_EQ(file.GetErrorCount(), 1U);
    EXPECT_STREQ(file.GetErrorMessage(0), "error : File read error. (/proc/self/mem)");
}

}  // namespace
}  // namespace macroengine
