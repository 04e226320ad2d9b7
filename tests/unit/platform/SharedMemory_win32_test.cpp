#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>

#include "platform/Process.h"
#include "platform/SharedMemory.h"
#include "support/Probe_win32.h"

namespace macroengine::platform {
namespace {

constexpr std::size_t kSize = 1200;

class SharedMemoryWin32 : public testing::Test {
protected:
    /// Another process counts up the first and the last byte; 0 when it could.
    std::uint32_t CountUpElsewhere() const {
        return RunProcess("", test::ProbePath(), "section " + name_ + " " + std::to_string(kSize), 0)
            .exitCode;
    }

    const std::string name_ = std::string("macroengine_test_") +
                              testing::UnitTest::GetInstance()->current_test_info()->name() + "_" +
                              std::to_string(GetCurrentProcessId());
};

TEST_F(SharedMemoryWin32, AnotherProcessReadsAndWritesByName) {
    EXPECT_NE(CountUpElsewhere(), 0U);
    SharedMemory memory;
    ASSERT_TRUE(memory.OpenOrCreate(name_, kSize));
    memory.Data()[0] = 11;
    memory.Data()[kSize - 1] = 22;
    EXPECT_EQ(CountUpElsewhere(), 0U);
    EXPECT_EQ(memory.Data()[0], 12);
    EXPECT_EQ(memory.Data()[kSize - 1], 23);
}

TEST_F(SharedMemoryWin32, TheSectionOutlivesEveryViewOfIt) {
    {
        SharedMemory memory;
        ASSERT_TRUE(memory.OpenOrCreate(name_, kSize));
        EXPECT_TRUE(memory.WasCreated());
        memory.Data()[0] = 11;
    }
    EXPECT_EQ(CountUpElsewhere(), 0U);
    SharedMemory memory;
    ASSERT_TRUE(memory.OpenOrCreate(name_, kSize));
    EXPECT_FALSE(memory.WasCreated());
    EXPECT_EQ(memory.Data()[0], 12);
}

TEST_F(SharedMemoryWin32, ASectionThatAnotherModuleMadeIsTheSame) {
    const HANDLE section =
        CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, kSize, name_.c_str());
    ASSERT_NE(section, nullptr);
    SharedMemory memory;
    ASSERT_TRUE(memory.OpenOrCreate(name_, kSize));
    EXPECT_FALSE(memory.WasCreated());
    auto* const view = static_cast<unsigned char*>(MapViewOfFile(section, FILE_MAP_ALL_ACCESS, 0, 0, kSize));
    ASSERT_NE(view, nullptr);
    memory.Data()[7] = 77;
    EXPECT_EQ(view[7], 77);
    UnmapViewOfFile(view);
    CloseHandle(section);
}

TEST_F(SharedMemoryWin32, MappingOverAndOverTakesNoFurtherHandle) {
    SharedMemory memory;
    ASSERT_TRUE(memory.OpenOrCreate(name_, kSize));
    DWORD before = 0;
    DWORD after = 0;
    GetProcessHandleCount(GetCurrentProcess(), &before);
    for (int i = 0; i < 100; ++i)
        ASSERT_TRUE(memory.OpenOrCreate(name_, kSize));
    GetProcessHandleCount(GetCurrentProcess(), &after);
    EXPECT_EQ(after, before);
}

}  // namespace
}  // namespace macroengine::platform
