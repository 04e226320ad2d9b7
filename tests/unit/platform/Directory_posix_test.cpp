#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

#include "platform/Directory.h"
#include "support/TemporaryFolder.h"

namespace macroengine::platform {
namespace {

using test::TemporaryFolder;

std::vector<std::string> FindAll(const std::string& pattern) {
    FolderSearch search;
    std::vector<std::string> names;
    for (std::optional<std::string> name = search.First(pattern); name; name = search.Next()) {
        names.push_back(*name);
    }
    return names;
}

TEST(DirectoryPosix, NamesComeInByteWiseOrder) {
    const TemporaryFolder folder;
    for (const char* name : {"b", "a", "B", "_", "1", "\xC3\xA4", "a b", "ab"})
        folder.Write(name, "");
    EXPECT_EQ(FindAll(folder.PathOf("*")),
              (std::vector<std::string>{"1", "B", "_", "a", "a b", "ab", "b", "\xC3\xA4"}));
}

TEST(DirectoryPosix, NamesThatDifferInCaseAloneAreAllFound) {
    const TemporaryFolder folder;
    for (const char* name : {"a", "A"})
        folder.Write(name, "");
    EXPECT_EQ(FindAll(folder.PathOf("a")), (std::vector<std::string>{"A", "a"}));
}

TEST(DirectoryPosix, HiddenFilesMatchAsAllOthers) {
    const TemporaryFolder folder;
    folder.Write(".hidden", "");
    EXPECT_EQ(FindAll(folder.PathOf("*")), (std::vector<std::string>{".hidden"}));
}

TEST(DirectoryPosix, BackslashesBecomeSlashesOnTheirWayToTheSystem) {
    const TemporaryFolder folder;
    EXPECT_TRUE(CreateFolder(folder.Path() + R"(\sub)"));
    EXPECT_EQ(KindOfEntry(folder.Path() + R"(\sub)"), EntryKind::PlainDirectory);
    EXPECT_EQ(KindOfEntry(folder.PathOf("sub")), EntryKind::PlainDirectory);
    folder.Write("sub/a", "");
    EXPECT_EQ(FindAll(folder.Path() + R"(\sub\*)"), (std::vector<std::string>{"a"}));
}

TEST(DirectoryPosix, LinksCountAsWhatTheyPointTo) {
    const TemporaryFolder folder;
    folder.MakeFolder("sub");
    ASSERT_EQ(symlink("sub", folder.PathOf("link").c_str()), 0);
    ASSERT_EQ(symlink("missing", folder.PathOf("dangling").c_str()), 0);
    EXPECT_EQ(KindOfEntry(folder.PathOf("link")), EntryKind::PlainDirectory);
    EXPECT_EQ(KindOfEntry(folder.PathOf("dangling")), EntryKind::Missing);
}

TEST(DirectoryPosix, FilesThatComeDuringASearchAreNotFound) {
    const TemporaryFolder folder;
    folder.Write("a", "");
    FolderSearch search;
    EXPECT_EQ(search.First(folder.PathOf("*")), "a");
    folder.Write("b", "");
    EXPECT_EQ(search.Next(), std::nullopt);
}

}  // namespace
}  // namespace macroengine::platform
