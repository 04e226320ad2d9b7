#include <gtest/gtest.h>
#include <string>

#include "platform/File.h"
#include "support/Probe_win32.h"
#include "support/TemporaryFolder.h"

namespace macroengine::platform {
namespace {

using test::TemporaryFolder;

DWORD HandleCount() {
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count;
}

TEST(FileWin32, EitherSeparatorWillDo) {
    const TemporaryFolder folder;
    folder.MakeFolder("sub");
    File file;
    ASSERT_TRUE(file.OpenForWriting(folder.Path() + "/sub/a", WriteMode::Truncate));
    EXPECT_TRUE(file.Write("text"));
    EXPECT_TRUE(file.OpenForReading(folder.Path() + R"(\sub/a)"));
    EXPECT_EQ(file.Size(), 4U);
}

TEST(FileWin32, OthersReadWriteRenameAndDeleteAnOpenFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a", "text");
    File file;
    ASSERT_TRUE(file.OpenForReading(path));
    File second;
    EXPECT_TRUE(second.OpenForWriting(path, WriteMode::Append));
    second.Close();
    EXPECT_TRUE(MoveFileA(path.c_str(), folder.PathOf("b").c_str()));
    EXPECT_TRUE(DeleteFileA(folder.PathOf("b").c_str()));
}

TEST(FileWin32, AFileThatIsKeptFromOthersCanNotBeOpened) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a", "text");
    const HANDLE owner = CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(owner, INVALID_HANDLE_VALUE);
    File file;
    EXPECT_FALSE(file.OpenForReading(path));
    EXPECT_FALSE(file.OpenForWriting(path, WriteMode::Truncate));
    CloseHandle(owner);
    EXPECT_TRUE(file.OpenForReading(path));
    EXPECT_EQ(file.Size(), 4U) << "the refused writer has not cut it";
}

TEST(FileWin32, AReadOnlyFileCanNotBeWritten) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a", "text");
    ASSERT_TRUE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY));
    const HANDLE plain = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (plain != INVALID_HANDLE_VALUE) {
        CloseHandle(plain);
        GTEST_SKIP() << "the emulated system does not keep its administrator from it";
    }
    File file;
    EXPECT_FALSE(file.OpenForWriting(path, WriteMode::Append));
    EXPECT_TRUE(file.OpenForReading(path));
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(FileWin32, EveryEndOfAnObjectClosesItsFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a", "");
    const DWORD before = HandleCount();
    {
        File first;
        File second;
        ASSERT_TRUE(first.OpenForReading(path));
        ASSERT_TRUE(first.OpenForReading(path));
        ASSERT_TRUE(second.OpenForReading(path));
        first = std::move(second);
        EXPECT_FALSE(File().OpenForReading(folder.Path()));
    }
    EXPECT_EQ(HandleCount(), before);
}

TEST(FileWin32, APipeHasNoPlaces) {
    const std::string path = R"(\\.\pipe\macroengine_test_)" + std::to_string(GetCurrentProcessId());
    const HANDLE server =
        CreateNamedPipeA(path.c_str(), PIPE_ACCESS_INBOUND, PIPE_TYPE_BYTE, 1, 4096, 4096, 0, nullptr);
    ASSERT_NE(server, INVALID_HANDLE_VALUE);
    File file;
    ASSERT_TRUE(file.OpenForWriting(path, WriteMode::Append));
    EXPECT_FALSE(file.SeekToEnd());
    EXPECT_TRUE(file.Write("text"));
    CloseHandle(server);
}

// The character's second byte is a backslash, and no folder has the name of its first one.
TEST(FileWin32, ABackslashInADoubleByteCharacterIsPartOfTheName) {
    if (!test::HasSystemCodePage(932)) GTEST_SKIP() << "the system's code page is another one";
    const TemporaryFolder folder;
    const std::string path = folder.Path() + "\\\x83\x5C.txt";
    File file;
    ASSERT_TRUE(file.OpenForWriting(path, WriteMode::Truncate));
    EXPECT_TRUE(file.Write("text"));
    EXPECT_TRUE(file.OpenForReading(path));
    const std::string parent = folder.Path();
    const std::wstring widePath = std::wstring(parent.begin(), parent.end()) + L"\\\u30BD.txt";
    EXPECT_NE(GetFileAttributesW(widePath.c_str()), INVALID_FILE_ATTRIBUTES);
}

}  // namespace
}  // namespace macroengine::platform
