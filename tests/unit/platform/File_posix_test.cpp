#include <fcntl.h>
#include <gtest/gtest.h>
#include <set>
#include <signal.h>
#include <stdlib.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/File.h"
#include "support/ChildProcess_posix.h"
#include "support/ScopedCodePage.h"
#include "support/TemporaryFolder.h"

namespace macroengine::platform {
namespace {

using test::TemporaryFolder;

std::set<int> OpenDescriptors() {
    std::set<int> descriptors;
    for (int descriptor = 0; descriptor < 256; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) != -1) descriptors.insert(descriptor);
    }
    return descriptors;
}

TEST(FilePosix, BackslashesBecomeSlashesOnTheirWayToTheSystem) {
    const TemporaryFolder folder;
    folder.MakeFolder("sub");
    File file;
    ASSERT_TRUE(file.OpenForWriting(folder.Path() + R"(\sub\a)", WriteMode::Truncate));
    EXPECT_TRUE(file.Write("text"));
    EXPECT_EQ(folder.Read("sub/a"), "text");
    EXPECT_TRUE(file.OpenForReading(folder.Path() + R"(\sub/a)"));
}

TEST(FilePosix, ABackslashInADoubleByteCharacterStays) {
    const TemporaryFolder folder;
    const test::ScopedCodePage codePage(932);
    File file;
    ASSERT_TRUE(file.OpenForWriting(folder.Path() + "\\\x83\\.txt", WriteMode::Truncate));
    EXPECT_EQ(access((folder.Path() + "/\x83\\.txt").c_str(), F_OK), 0);
}

TEST(FilePosix, ProgramsDoNotInheritAFile) {
    const TemporaryFolder folder;
    const std::set<int> before = OpenDescriptors();
    File reader;
    File writer;
    ASSERT_TRUE(reader.OpenForReading(folder.Write("a", "")));
    ASSERT_TRUE(writer.OpenForWriting(folder.PathOf("b"), WriteMode::Append));
    const std::set<int> after = OpenDescriptors();
    EXPECT_EQ(after.size(), before.size() + 2);
    for (const int descriptor : after) {
        if (before.count(descriptor) != 0) continue;
        EXPECT_NE(fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0);
    }
}

TEST(FilePosix, EveryEndOfAnObjectClosesItsFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a", "");
    const std::set<int> before = OpenDescriptors();
    {
        File first;
        File second;
        ASSERT_TRUE(first.OpenForReading(path));
        ASSERT_TRUE(first.OpenForReading(path));
        ASSERT_TRUE(second.OpenForReading(path));
        first = std::move(second);
        EXPECT_FALSE(File().OpenForReading(folder.Path()));
    }
    EXPECT_EQ(OpenDescriptors(), before);
}

TEST(FilePosix, APipeHasNoPlaces) {
    const TemporaryFolder folder;
    const std::string path = folder.PathOf("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_NE(reader, -1);
    File file;
    ASSERT_TRUE(file.OpenForWriting(path, WriteMode::Append));
    EXPECT_FALSE(file.SeekToEnd());
    close(reader);
}

TEST(FilePosix, AFullDeviceFailsTheWrite) {
    File file;
    if (!file.OpenForWriting("/dev/full", WriteMode::Append)) GTEST_SKIP() << "no such device";
    EXPECT_FALSE(file.Write("text"));
}

/// Whether the calling thread neither holds the signal back nor has it waiting.
bool IsFree(int signalNumber) {
    sigset_t blocked;
    sigset_t waiting;
    pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
    sigpending(&waiting);
    return sigismember(&blocked, signalNumber) == 0 && sigismember(&waiting, signalNumber) == 0;
}

TEST(FilePosix, APipeThatNobodyReadsFailsTheWriteAndNotTheProcess) {
    const TemporaryFolder folder;
    const std::string path = folder.PathOf("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    const auto write = [&path] {
        signal(SIGPIPE, SIG_DFL);
        const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
        File file;
        if (!file.OpenForWriting(path, WriteMode::Truncate)) return 1;
        close(reader);
        if (file.Write("text")) return 2;
        return IsFree(SIGPIPE) ? 0 : 3;
    };
    EXPECT_EQ(test::RunInChild(write, test::ChildEnd::Properly), 0);
}

TEST(FilePosix, ASignalOfTheHostsOwnIsStillThereAfterAWrite) {
    const TemporaryFolder folder;
    const auto write = [&folder] {
        sigset_t pipe;
        sigemptyset(&pipe);
        sigaddset(&pipe, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &pipe, nullptr);
        raise(SIGPIPE);
        File file;
        if (!file.OpenForWriting(folder.PathOf("a"), WriteMode::Truncate) || !file.Write("text")) return 1;
        sigset_t waiting;
        sigpending(&waiting);
        return sigismember(&waiting, SIGPIPE) == 1 ? 0 : 2;
    };
    EXPECT_EQ(test::RunInChild(write, test::ChildEnd::Properly), 0);
}

TEST(FilePosix, AFileThatMayNotGrowFailsTheWriteAndNotTheProcess) {
    const TemporaryFolder folder;
    const auto write = [&folder] {
        signal(SIGXFSZ, SIG_DFL);
        File file;
        if (!file.OpenForWriting(folder.PathOf("a"), WriteMode::Truncate)) return 1;
        const rlimit limit{2, 2};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 2;
        if (file.Write("text")) return 3;
        return IsFree(SIGXFSZ) ? 0 : 4;
    };
    EXPECT_EQ(test::RunInChild(write), 0);
    EXPECT_EQ(folder.Read("a"), "te");
}

TEST(FilePosix, ATerminalDoesNotBecomeTheOneOfTheProcess) {
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    if (master == -1 || grantpt(master) != 0 || unlockpt(master) != 0) GTEST_SKIP() << "no terminals";
    const std::string path = ptsname(master);
    const auto openTerminal = [&path] {
        setsid();
        File file;
        if (!file.OpenForReading(path)) return 1;
        return open("/dev/tty", O_RDWR) == -1 ? 0 : 2;
    };
    EXPECT_EQ(test::RunInChild(openTerminal), 0);
    close(master);
}

// The memory of the process itself reads like a file, but not at the place 0.
TEST(FilePosix, AReadThatAnErrorHasEndedSaysSo) {
    File file;
    if (!file.OpenForReading("/proc/self/mem")) GTEST_SKIP() << "no such file";
    EXPECT_FALSE(file.HasReadError());
    char byte = 0;
    EXPECT_EQ(file.Read(&byte, 1), 0U);
    EXPECT_TRUE(file.HasReadError());
    const TemporaryFolder folder;
    ASSERT_TRUE(file.OpenForReading(folder.Write("good", "a")));
    EXPECT_EQ(file.Read(&byte, 1), 1U);
    EXPECT_EQ(file.Read(&byte, 1), 0U);
    EXPECT_FALSE(file.HasReadError());
}

}  // namespace
}  // namespace macroengine::platform
