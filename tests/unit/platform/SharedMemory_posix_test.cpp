#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/SharedMemory.h"
#include "support/ChildProcess_posix.h"

namespace macroengine::platform {
namespace {

using test::ChildEnd;
using test::RunInChild;

constexpr std::size_t kSize = 1200;

/// A section as a foreign program sees it, by the name alone.
class ForeignSection {
public:
    explicit ForeignSection(const std::string& name, int flags = 0)
        : descriptor_(shm_open(("/" + name).c_str(), O_RDWR | flags, 0600)) {}
    ~ForeignSection() {
        if (address_ != MAP_FAILED) munmap(address_, kSize);
        if (descriptor_ != -1) close(descriptor_);
    }
    ForeignSection(const ForeignSection&) = delete;
    ForeignSection& operator=(const ForeignSection&) = delete;

    bool Exists() const { return descriptor_ != -1; }

    struct stat Status() const {
        struct stat status {};
        fstat(descriptor_, &status);
        return status;
    }

    bool Resize() const { return ftruncate(descriptor_, kSize) == 0; }

    unsigned char* Map() {
        address_ = mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor_, 0);
        return address_ == MAP_FAILED ? nullptr : static_cast<unsigned char*>(address_);
    }

private:
    int descriptor_;
    void* address_ = MAP_FAILED;
};

/// Each test has a name of its own, and leaves none behind.
class SharedMemoryPosix : public testing::Test {
protected:
    ~SharedMemoryPosix() override { shm_unlink(("/" + name_).c_str()); }

    /// Puts a section full of ones where a dead process could have left it.
    static bool LeaveBehind(const std::string& name) {
        ForeignSection section(name, O_CREAT | O_EXCL);
        if (!section.Exists() || !section.Resize()) return false;
        unsigned char* const data = section.Map();
        if (data == nullptr) return false;
        std::memset(data, 0xFF, kSize);
        return true;
    }

    /// Returns whether the process of the caller sees no section, and makes an empty one.
    static bool StartsAfresh(const std::string& name) {
        SharedMemory memory;
        if (memory.Open(name, kSize)) return false;
        if (!memory.OpenOrCreate(name, kSize) || !memory.WasCreated()) return false;
        return std::count(memory.Data(), memory.Data() + kSize, 0) == static_cast<std::ptrdiff_t>(kSize);
    }

    const std::string name_ = std::string("macroengine_test_") +
                              testing::UnitTest::GetInstance()->current_test_info()->name() + "_" +
                              std::to_string(getpid());
};

TEST_F(SharedMemoryPosix, TheSectionHasTheExactSizeAndBelongsToItsUserAlone) {
    const mode_t previous = umask(0777);
    SharedMemory memory;
    const bool isMade = memory.OpenOrCreate(name_, kSize);
    umask(previous);
    ASSERT_TRUE(isMade);
    const ForeignSection section(name_);
    ASSERT_TRUE(section.Exists());
    EXPECT_EQ(section.Status().st_size, static_cast<off_t>(kSize));
    EXPECT_EQ(section.Status().st_mode & 0777U, 0600U);
}

TEST_F(SharedMemoryPosix, AnotherProcessReadsAndWritesByName) {
    SharedMemory memory;
    ASSERT_TRUE(memory.OpenOrCreate(name_, kSize));
    memory.Data()[0] = 11;
    memory.Data()[kSize - 1] = 22;
    EXPECT_EQ(RunInChild([this] {
                  ForeignSection section(name_);
                  unsigned char* const data = section.Map();
                  if (data == nullptr || data[0] != 11 || data[kSize - 1] != 22) return 1;
                  data[1] = 33;
                  return 0;
              }),
              0);
    EXPECT_EQ(memory.Data()[1], 33);
}

TEST_F(SharedMemoryPosix, TheNameGoesWhenTheProcessEnds) {
    EXPECT_EQ(
        RunInChild([this] { return SharedMemory().OpenOrCreate(name_, kSize) ? 0 : 1; }, ChildEnd::Properly),
        0);
    EXPECT_FALSE(ForeignSection(name_).Exists());
}

TEST_F(SharedMemoryPosix, TheSectionOfAKilledProcessIsNotTaken) {
    ASSERT_EQ(RunInChild(
                  [this] {
                      SharedMemory memory;
                      if (!memory.OpenOrCreate(name_, kSize)) return 1;
                      std::memset(memory.Data(), 0xFF, kSize);
                      return 0;
                  },
                  ChildEnd::Killed),
              128 + SIGKILL);
    ASSERT_TRUE(ForeignSection(name_).Exists());
    EXPECT_TRUE(StartsAfresh(name_));
}

TEST_F(SharedMemoryPosix, ASectionThatWasThereBeforeTheProcessUsedItsNameIsNotTaken) {
    ASSERT_TRUE(LeaveBehind(name_));
    EXPECT_TRUE(StartsAfresh(name_));
}

TEST_F(SharedMemoryPosix, OpenLeavesASectionThatIsNotTakenAlone) {
    ASSERT_TRUE(LeaveBehind(name_));
    EXPECT_FALSE(SharedMemory().Open(name_, kSize));
    ForeignSection section(name_);
    ASSERT_TRUE(section.Exists());
    EXPECT_EQ(section.Map()[0], 0xFF);
}

TEST_F(SharedMemoryPosix, ASectionThatAnotherModuleHasMappedIsShared) {
    ForeignSection module(name_, O_CREAT | O_EXCL);
    ASSERT_TRUE(module.Exists() && module.Resize());
    unsigned char* const data = module.Map();
    ASSERT_NE(data, nullptr);
    data[5] = 55;

    SharedMemory memory;
    ASSERT_TRUE(memory.Open(name_, kSize));
    EXPECT_EQ(memory.Data()[5], 55);
    ASSERT_TRUE(memory.OpenOrCreate(name_, kSize));
    EXPECT_FALSE(memory.WasCreated());
    EXPECT_EQ(memory.Data()[5], 55);
}

TEST_F(SharedMemoryPosix, ASectionOfAnotherModuleIsKeptFromThenOn) {
    {
        ForeignSection module(name_, O_CREAT | O_EXCL);
        ASSERT_TRUE(module.Exists() && module.Resize());
        module.Map()[5] = 55;
        ASSERT_TRUE(SharedMemory().Open(name_, kSize));
    }
    SharedMemory memory;
    ASSERT_TRUE(memory.Open(name_, kSize));
    EXPECT_EQ(memory.Data()[5], 55);
}

TEST_F(SharedMemoryPosix, AmongThousandsOfMappingsASectionOfAnotherModuleIsFound) {
    // Neighbours with different rights are mappings of their own; each takes a line of some fifty bytes.
    constexpr std::size_t kPages = 4000;
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* const pages = mmap(nullptr, kPages * page, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(pages, MAP_FAILED);
    for (std::size_t i = 0; i < kPages; i += 2)
        ASSERT_EQ(mprotect(static_cast<char*>(pages) + i * page, page, PROT_NONE), 0);

    ForeignSection module(name_, O_CREAT | O_EXCL);
    ASSERT_TRUE(module.Exists() && module.Resize());
    ASSERT_NE(module.Map(), nullptr);
    EXPECT_TRUE(SharedMemory().Open(name_, kSize));
    munmap(pages, kPages * page);
}

TEST_F(SharedMemoryPosix, ASectionThatSomebodyPutInThePlaceOfOursIsNotTaken) {
    SharedMemory memory;
    ASSERT_TRUE(memory.OpenOrCreate(name_, kSize));
    ASSERT_EQ(shm_unlink(("/" + name_).c_str()), 0);
    ASSERT_TRUE(LeaveBehind(name_));
    EXPECT_TRUE(StartsAfresh(name_));
}

TEST_F(SharedMemoryPosix, ASectionOfAnotherModuleThatIsTooShortIsNotMapped) {
    ForeignSection module(name_, O_CREAT | O_EXCL);
    ASSERT_TRUE(module.Exists());
    ASSERT_NE(module.Map(), nullptr);
    SharedMemory memory;
    EXPECT_FALSE(memory.Open(name_, kSize));
    EXPECT_FALSE(memory.OpenOrCreate(name_, kSize));
    EXPECT_TRUE(ForeignSection(name_).Exists());
}

TEST_F(SharedMemoryPosix, AChildDoesNotTakeTheSectionOfItsParent) {
    SharedMemory memory;
    ASSERT_TRUE(memory.OpenOrCreate(name_, kSize));
    memory.Close();
    EXPECT_EQ(RunInChild([this] { return SharedMemory().Open(name_, kSize) ? 1 : 0; }), 0);
}

TEST_F(SharedMemoryPosix, AChildThatEndsLeavesTheSectionOfItsParent) {
    SharedMemory memory;
    ASSERT_TRUE(memory.OpenOrCreate(name_, kSize));
    memory.Data()[0] = 1;
    const std::string childName = name_ + "_child";
    EXPECT_EQ(RunInChild([] { return 0; }, ChildEnd::Properly), 0);
    EXPECT_EQ(
        RunInChild([&] { return SharedMemory().OpenOrCreate(childName, kSize) ? 0 : 1; }, ChildEnd::Properly),
        0);
    EXPECT_FALSE(ForeignSection(childName).Exists());
    ASSERT_TRUE(memory.Open(name_, kSize));
    EXPECT_EQ(memory.Data()[0], 1);
}

TEST_F(SharedMemoryPosix, AProcessRemovesOnlyTheSectionThatItMade) {
    // Somebody else has removed the child's section and put another one in its place.
    EXPECT_EQ(RunInChild(
                  [this] {
                      if (!SharedMemory().OpenOrCreate(name_, kSize)) return 1;
                      shm_unlink(("/" + name_).c_str());
                      return LeaveBehind(name_) ? 0 : 2;
                  },
                  ChildEnd::Properly),
              0);
    EXPECT_TRUE(ForeignSection(name_).Exists());
}

TEST_F(SharedMemoryPosix, ASectionWhoseNameWasRemovedIsMadeAgain) {
    SharedMemory memory;
    ASSERT_TRUE(memory.OpenOrCreate(name_, kSize));
    memory.Data()[0] = 1;
    ASSERT_EQ(shm_unlink(("/" + name_).c_str()), 0);
    EXPECT_FALSE(SharedMemory().Open(name_, kSize));
    SharedMemory again;
    ASSERT_TRUE(again.OpenOrCreate(name_, kSize));
    EXPECT_TRUE(again.WasCreated());
    EXPECT_EQ(again.Data()[0], 0);
}

TEST_F(SharedMemoryPosix, NoDescriptorStaysOpen) {
    const int before = open("/dev/null", O_RDONLY | O_CLOEXEC);
    close(before);
    SharedMemory memory;
    ASSERT_TRUE(memory.OpenOrCreate(name_, kSize));
    ASSERT_TRUE(memory.Open(name_, kSize));
    const int after = open("/dev/null", O_RDONLY | O_CLOEXEC);
    close(after);
    EXPECT_EQ(after, before);
}

TEST_F(SharedMemoryPosix, ANameThatTheSystemRefusesFails) {
    EXPECT_FALSE(SharedMemory().OpenOrCreate("a/b", kSize));
    EXPECT_FALSE(SharedMemory().OpenOrCreate(std::string(1000, 'x'), kSize));
}

}  // namespace
}  // namespace macroengine::platform
