#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <signal.h>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "macroengine/PluginInfo.h"
#include "support/ChildProcess_posix.h"

namespace macroengine {
namespace {

using test::ChildEnd;
using test::RunInChild;

HWND Window(std::uintptr_t number) {
    return reinterpret_cast<HWND>(number);
}

std::string NameOf(pid_t process) {
    return "/TOV_MACRO_PLUGIN_INFO_SHARED_MEMORY" + std::to_string(process);
}

/// The bytes of a process's table as a foreign program reads them; none when there is no table.
std::vector<unsigned char> BytesOf(pid_t process) {
    const int descriptor = shm_open(NameOf(process).c_str(), O_RDONLY, 0);
    if (descriptor == -1) return {};
    struct stat status {};
    fstat(descriptor, &status);
    std::vector<unsigned char> bytes(static_cast<std::size_t>(status.st_size));
    void* const address = mmap(nullptr, bytes.size(), PROT_READ, MAP_SHARED, descriptor, 0);
    close(descriptor);
    if (address == MAP_FAILED) return {};
    std::memcpy(bytes.data(), address, bytes.size());
    munmap(address, bytes.size());
    return bytes;
}

/// What a table with the given entries has to look like, byte by byte.
class ExpectedTable {
public:
    explicit ExpectedTable(unsigned char idByte = 0xFF) : bytes_(1200, 0) {
        std::fill(bytes_.begin(), bytes_.begin() + 400, idByte);
    }

    ExpectedTable& With(std::size_t place, std::uint32_t id, std::uint64_t handle) {
        for (std::size_t byte = 0; byte < 4; ++byte) {
            bytes_[4 * place + byte] = static_cast<unsigned char>(id >> (8 * byte));
        }
        for (std::size_t byte = 0; byte < 8; ++byte) {
            bytes_[400 + 8 * place + byte] = static_cast<unsigned char>(handle >> (8 * byte));
        }
        return *this;
    }

    const std::vector<unsigned char>& Bytes() const { return bytes_; }

private:
    std::vector<unsigned char> bytes_;
};

// Each test runs in a child: a process that has just begun has no table.

TEST(PluginInfoPosix, WithoutATableEveryPlaceGivesFalseAndNoneIsMade) {
    EXPECT_EQ(RunInChild([] {
                  for (int index = -1; index <= 100; ++index) {
                      int id = 3;
                      HWND window = Window(4);
                      if (GetMacroPluginInfo(index, &id, &window) || id != 3 || window != Window(4)) return 1;
                  }
                  return BytesOf(getpid()).empty() ? 0 : 2;
              }),
              0);
}

TEST(PluginInfoPosix, TheTableIsTheOneThatIsPublished) {
    EXPECT_EQ(RunInChild(
                  [] {
                      SetMacroPluginInfo(0x12345678, Window(0x1122334455667788));
                      SetMacroPluginInfo(-2, Window(9));
                      ExpectedTable expected;
                      expected.With(0, 0x12345678, 0x1122334455667788).With(1, 0xFFFFFFFE, 9);
                      if (BytesOf(getpid()) != expected.Bytes()) return 1;

                      RemoveMacroPluginInfo(Window(0x1122334455667788));
                      expected.With(0, 0xFFFFFFFF, 0);
                      return BytesOf(getpid()) == expected.Bytes() ? 0 : 2;
                  },
                  ChildEnd::Properly),
              0);
}

TEST(PluginInfoPosix, TheLastPlaceIsTheEndOfTheTable) {
    EXPECT_EQ(RunInChild(
                  [] {
                      ExpectedTable expected;
                      for (std::uint32_t number = 1; number <= 101; ++number) {
                          SetMacroPluginInfo(static_cast<int>(number), Window(number));
                          if (number <= 100) expected.With(number - 1, number, number);
                      }
                      return BytesOf(getpid()) == expected.Bytes() ? 0 : 1;
                  },
                  ChildEnd::Properly),
              0);
}

TEST(PluginInfoPosix, ATableThatRemoveMakesHoldsZeros) {
    EXPECT_EQ(RunInChild(
                  [] {
                      RemoveMacroPluginInfo(Window(1));
                      if (BytesOf(getpid()) != ExpectedTable(0).Bytes()) return 1;
                      SetMacroPluginInfo(5, Window(6));
                      return BytesOf(getpid()) == ExpectedTable(0).With(0, 5, 6).Bytes() ? 0 : 2;
                  },
                  ChildEnd::Properly),
              0);
}

TEST(PluginInfoPosix, AnotherProcessSeesTheTableByName) {
    const pid_t owner = getpid();
    SetMacroPluginInfo(21, Window(22));
    EXPECT_EQ(RunInChild([owner] {
                  const std::vector<unsigned char> bytes = BytesOf(owner);
                  return bytes.size() == 1200 && bytes[0] == 21 && bytes[400] == 22 ? 0 : 1;
              }),
              0);
    RemoveMacroPluginInfo(Window(22));
}

TEST(PluginInfoPosix, AChildHasATableOfItsOwn) {
    SetMacroPluginInfo(21, Window(22));
    EXPECT_EQ(RunInChild(
                  [] {
                      if (GetMacroPluginInfo(0, nullptr, nullptr)) return 1;
                      SetMacroPluginInfo(1, Window(2));
                      return BytesOf(getpid()) == ExpectedTable().With(0, 1, 2).Bytes() ? 0 : 2;
                  },
                  ChildEnd::Properly),
              0);
    int id = 0;
    EXPECT_TRUE(GetMacroPluginInfo(0, &id, nullptr));
    EXPECT_EQ(id, 21);
    RemoveMacroPluginInfo(Window(22));
}

/// Starts a child that waits until its parent has prepared what it finds; returns what its function returned.
int RunInPreparedChild(const std::function<bool(pid_t)>& prepare, const std::function<int()>& function) {
    int gate[2];
    if (pipe(gate) != 0) return -1;
    const pid_t child = fork();
    if (child == 0) {
        close(gate[1]);
        char byte = 0;
        if (read(gate[0], &byte, 1) != 1) _exit(99);
        std::exit(function());
    }
    close(gate[0]);
    const bool isPrepared = prepare(child) && write(gate[1], "g", 1) == 1;
    close(gate[1]);
    int status = 0;
    waitpid(child, &status, 0);
    return isPrepared && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(PluginInfoPosix, ATableThatADeadProcessOfTheSameIdLeftBehindIsNotTaken) {
    const auto leaveTable = [](pid_t process) {
        const int descriptor = shm_open(NameOf(process).c_str(), O_RDWR | O_CREAT | O_EXCL, 0600);
        const std::string bytes(1200, '\x01');
        const bool isLeft = write(descriptor, bytes.data(), bytes.size()) == 1200;
        close(descriptor);
        return isLeft;
    };
    EXPECT_EQ(RunInPreparedChild(leaveTable,
                                 [] {
                                     if (BytesOf(getpid()).size() != 1200) return 1;
                                     if (GetMacroPluginInfo(0, nullptr, nullptr)) return 2;
                                     SetMacroPluginInfo(1, Window(2));
                                     return BytesOf(getpid()) == ExpectedTable().With(0, 1, 2).Bytes() ? 0
                                                                                                       : 3;
                                 }),
              0);
}

TEST(PluginInfoPosix, TheTableGoesWithItsProcess) {
    pid_t process = -1;
    EXPECT_EQ(RunInPreparedChild(
                  [&process](pid_t child) {
                      process = child;
                      return true;
                  },
                  [] {
                      SetMacroPluginInfo(1, Window(2));
                      return BytesOf(getpid()).empty() ? 1 : 0;
                  }),
              0);
    EXPECT_TRUE(BytesOf(process).empty());
}

TEST(PluginInfoPosix, TheBoardModuleIsZeroUntilItIsSet) {
    SetBoardModuleInfo(0, nullptr);
    int id = 1;
    HWND window = Window(1);
    EXPECT_TRUE(GetBoardModuleInfo(0, &id, &window));
    EXPECT_EQ(id, 0);
    EXPECT_EQ(window, nullptr);
}

}  // namespace
}  // namespace macroengine
