#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <string>

#include "platform/Directory.h"
#include "platform/File.h"
#include "support/Probe_win32.h"
#include "support/TemporaryFolder.h"

namespace macroengine::platform {
namespace {

using test::TemporaryFolder;

std::set<std::string> FindAll(const std::string& pattern) {
    FolderSearch search;
    std::set<std::string> names;
    for (std::optional<std::string> name = search.First(pattern); name; name = search.Next())
        names.insert(*name);
    return names;
}

TEST(DirectoryWin32, AFolderWithFurtherAttributesIsNoPlainOne) {
    const TemporaryFolder folder;
    const std::string path = folder.MakeFolder("sub");
    EXPECT_EQ(KindOfEntry(path), EntryKind::PlainDirectory);
    ASSERT_TRUE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_HIDDEN));
    if (GetFileAttributesA(path.c_str()) == FILE_ATTRIBUTE_DIRECTORY)
        GTEST_SKIP() << "no such attribute here";
    EXPECT_EQ(KindOfEntry(path), EntryKind::Other);
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(DirectoryWin32, NamesMatchWhateverTheirCase) {
    const TemporaryFolder folder;
    folder.Write("Report.CSV", "");
    EXPECT_EQ(FindAll(folder.Path() + R"(\*.csv)"), std::set<std::string>{"Report.CSV"});
    EXPECT_EQ(KindOfEntry(folder.PathOf("REPORT.csv")), EntryKind::Other);
}

TEST(DirectoryWin32, EitherSeparatorWillDo) {
    const TemporaryFolder folder;
    EXPECT_TRUE(CreateFolder(folder.Path() + "/sub"));
    folder.Write("sub/a", "");
    EXPECT_EQ(KindOfEntry(folder.Path() + R"(\sub)"), EntryKind::PlainDirectory);
    EXPECT_EQ(FindAll(folder.Path() + "/sub/*"), std::set<std::string>{"a"});
}

TEST(DirectoryWin32, ADriveAndItsRootAreFolders) {
    EXPECT_EQ(KindOfEntry(R"(C:\)"), EntryKind::PlainDirectory);
    EXPECT_EQ(KindOfEntry("C:"), EntryKind::PlainDirectory);
}

// Their second bytes are a backslash.
TEST(DirectoryWin32, DoubleByteNamesAreFoundAsTheyAre) {
    if (!test::HasSystemCodePage(932)) GTEST_SKIP() << "the system's code page is another one";
    const TemporaryFolder folder;
    const std::string sub = folder.Path() + "\\\x83\x5C";
    ASSERT_TRUE(CreateFolder(sub));
    EXPECT_EQ(KindOfEntry(sub), EntryKind::PlainDirectory);
    File file;
    ASSERT_TRUE(file.OpenForWriting(sub + "\\\x95\x5C.txt", WriteMode::Truncate));
    file.Close();
    EXPECT_EQ(FindAll(folder.Path() + R"(\*)"), std::set<std::string>{"\x83\x5C"});
    EXPECT_EQ(FindAll(sub + "\\\x95\x5C*"), std::set<std::string>{"\x95\x5C.txt"});
}

}  // namespace
}  // namespace macroengine::platform
