#include "platform/SharedMemory.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace macroengine::platform {
namespace {

constexpr std::size_t kSize = 1200;

/// A name of its own for each test: what a test makes stays until the program ends.
std::string NameOfTest() {
    return std::string("macroengine_test_") + testing::UnitTest::GetInstance()->current_test_info()->name() +
           "_" + std::to_string(ProcessId());
}

TEST(SharedMemory, ANewObjectHasNothingMapped) {
    SharedMemory memory;
    EXPECT_EQ(memory.Data(), nullptr);
    EXPECT_FALSE(memory.WasCreated());
    memory.Close();
}

TEST(SharedMemory, OpenNeverMakesASection) {
    SharedMemory memory;
    EXPECT_FALSE(memory.Open(NameOfTest(), kSize));
    EXPECT_FALSE(memory.Open(NameOfTest(), kSize));
    EXPECT_EQ(memory.Data(), nullptr);
}

TEST(SharedMemory, ANewSectionHoldsZeros) {
    SharedMemory memory;
    ASSERT_TRUE(memory.OpenOrCreate(NameOfTest(), kSize));
    EXPECT_TRUE(memory.WasCreated());
    EXPECT_EQ(std::count(memory.Data(), memory.Data() + kSize, 0), static_cast<std::ptrdiff_t>(kSize));
}

TEST(SharedMemory, ASectionOutlivesItsViews) {
    SharedMemory memory;
    ASSERT_TRUE(memory.OpenOrCreate(NameOfTest(), kSize));
    memory.Data()[0] = 1;
    memory.Data()[kSize - 1] = 2;
    memory.Close();
    EXPECT_EQ(memory.Data(), nullptr);

    ASSERT_TRUE(memory.Open(NameOfTest(), kSize));
    EXPECT_FALSE(memory.WasCreated());
    EXPECT_EQ(memory.Data()[0], 1);
    EXPECT_EQ(memory.Data()[kSize - 1], 2);

    ASSERT_TRUE(memory.OpenOrCreate(NameOfTest(), kSize));
    EXPECT_FALSE(memory.WasCreated());
    EXPECT_EQ(memory.Data()[0], 1);
}

TEST(SharedMemory, TwoViewsShowTheSameBytes) {
    SharedMemory first;
    SharedMemory second;
    ASSERT_TRUE(first.OpenOrCreate(NameOfTest(), kSize));
    ASSERT_TRUE(second.Open(NameOfTest(), kSize));
    EXPECT_NE(first.Data(), second.Data());
    first.Data()[7] = 99;
    EXPECT_EQ(second.Data()[7], 99);
}

TEST(SharedMemory, ASectionThatIsTooShortIsNotMapped) {
    SharedMemory memory;
    ASSERT_TRUE(memory.OpenOrCreate(NameOfTest(), kSize));
    EXPECT_FALSE(memory.Open(NameOfTest(), 1 << 20));
    EXPECT_EQ(memory.Data(), nullptr);
    EXPECT_FALSE(memory.OpenOrCreate(NameOfTest(), 1 << 20));
    EXPECT_TRUE(memory.Open(NameOfTest(), kSize));
}

TEST(SharedMemory, NamesAreSeparateSections) {
    SharedMemory first;
    SharedMemory second;
    ASSERT_TRUE(first.OpenOrCreate(NameOfTest() + "a", kSize));
    ASSERT_TRUE(second.OpenOrCreate(NameOfTest() + "b", kSize));
    first.Data()[0] = 1;
    EXPECT_EQ(second.Data()[0], 0);
}

TEST(SharedMemory, MovingHandsTheViewOver) {
    SharedMemory source;
    ASSERT_TRUE(source.OpenOrCreate(NameOfTest(), kSize));
    unsigned char* const data = source.Data();
    SharedMemory target(std::move(source));
    EXPECT_EQ(target.Data(), data);
    EXPECT_TRUE(target.WasCreated());

    SharedMemory assigned;
    ASSERT_TRUE(assigned.Open(NameOfTest(), kSize));
    assigned = std::move(target);
    EXPECT_EQ(assigned.Data(), data);
    assigned.Data()[0] = 5;

    SharedMemory& itself = assigned;
    assigned = std::move(itself);
    EXPECT_EQ(assigned.Data(), data);
}

}  // namespace
}  // namespace macroengine::platform
