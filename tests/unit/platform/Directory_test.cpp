#include "platform/Directory.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/TemporaryFolder.h"

namespace macroengine::platform {
namespace {

using test::TemporaryFolder;
using Names = std::vector<std::string>;

/// Sorted, because only some systems promise an order.
Names FindAll(const std::string& pattern) {
    FolderSearch search;
    Names names;
    for (std::optional<std::string> name = search.First(pattern); name; name = search.Next()) {
        names.push_back(*name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

TEST(Directory, KindOfEntryTellsFoldersFilesAndNothing) {
    const TemporaryFolder folder;
    EXPECT_EQ(KindOfEntry(folder.MakeFolder("sub")), EntryKind::PlainDirectory);
    EXPECT_EQ(KindOfEntry(folder.Write("file", "")), EntryKind::Other);
    EXPECT_EQ(KindOfEntry(folder.PathOf("missing")), EntryKind::Missing);
    EXPECT_EQ(KindOfEntry(folder.PathOf("missing") + "/a"), EntryKind::Missing);
    EXPECT_EQ(KindOfEntry(""), EntryKind::Missing);
}

TEST(Directory, CreateFolderMakesOneLevel) {
    const TemporaryFolder folder;
    EXPECT_TRUE(CreateFolder(folder.PathOf("new")));
    EXPECT_EQ(KindOfEntry(folder.PathOf("new")), EntryKind::PlainDirectory);
    EXPECT_FALSE(CreateFolder(folder.PathOf("new")));
    EXPECT_FALSE(CreateFolder(folder.PathOf("a") + "/b"));
    EXPECT_FALSE(CreateFolder(folder.Write("file", "")));
    EXPECT_FALSE(CreateFolder(""));
}

TEST(Directory, ASearchFindsEveryMatchOnce) {
    const TemporaryFolder folder;
    for (const char* name : {"a.mac", "b.mac", "C.MAC", "d.txt", "e"})
        folder.Write(name, "");
    folder.MakeFolder("sub.mac");

    EXPECT_EQ(FindAll(folder.PathOf("*.mac")), (Names{"C.MAC", "a.mac", "b.mac", "sub.mac"}));
    EXPECT_EQ(FindAll(folder.PathOf("*.*")), (Names{"C.MAC", "a.mac", "b.mac", "d.txt", "e", "sub.mac"}));
    EXPECT_EQ(FindAll(folder.PathOf("*")), (Names{"C.MAC", "a.mac", "b.mac", "d.txt", "e", "sub.mac"}));
    EXPECT_EQ(FindAll(folder.PathOf("?.txt")), (Names{"d.txt"}));
    EXPECT_EQ(FindAll(folder.PathOf("A.mac")), (Names{"a.mac"}));
    EXPECT_EQ(FindAll(folder.Path() + "\\*.txt"), (Names{"d.txt"}));
    EXPECT_EQ(FindAll(folder.PathOf("*.dat")), Names());
}

TEST(Directory, ASearchSkipsTheFolderItselfAndItsParent) {
    const TemporaryFolder folder;
    EXPECT_EQ(FindAll(folder.PathOf("*")), Names());
    EXPECT_EQ(FindAll(folder.PathOf("*.*")), Names());
}

TEST(Directory, ASearchInAMissingFolderFindsNothing) {
    const TemporaryFolder folder;
    folder.Write("file", "");
    EXPECT_EQ(FindAll(folder.PathOf("missing") + "/*"), Names());
    EXPECT_EQ(FindAll(folder.PathOf("file") + "/*"), Names());
    EXPECT_EQ(FindAll(folder.Path() + "/"), Names());
    EXPECT_EQ(FindAll(""), Names());
}

TEST(Directory, OnlyTheLastPartMayHoldWildcards) {
    const TemporaryFolder folder;
    folder.MakeFolder("sub");
    folder.Write("sub/a", "");
    EXPECT_EQ(FindAll(folder.PathOf("s*") + "/a"), Names());
}

TEST(Directory, NextWithoutASearchFindsNothing) {
    FolderSearch search;
    EXPECT_EQ(search.Next(), std::nullopt);
}

TEST(Directory, NextStaysAtTheEnd) {
    const TemporaryFolder folder;
    folder.Write("a", "");
    FolderSearch search;
    EXPECT_EQ(search.First(folder.PathOf("*")), "a");
    EXPECT_EQ(search.Next(), std::nullopt);
    EXPECT_EQ(search.Next(), std::nullopt);
}

TEST(Directory, FirstEndsTheSearchInProgress) {
    const TemporaryFolder folder;
    folder.Write("a", "");
    folder.Write("b", "");
    FolderSearch search;
    EXPECT_TRUE(search.First(folder.PathOf("*")).has_value());
    EXPECT_EQ(search.First(folder.PathOf("b")), "b");
    EXPECT_EQ(search.Next(), std::nullopt);
    EXPECT_TRUE(search.First(folder.PathOf("*")).has_value());
    EXPECT_EQ(search.First(folder.PathOf("missing")), std::nullopt);
    EXPECT_EQ(search.Next(), std::nullopt);
}

TEST(Directory, MovingHandsTheSearchOver) {
    const TemporaryFolder folder;
    folder.Write("a", "");
    folder.Write("b", "");
    FolderSearch source;
    ASSERT_TRUE(source.First(folder.PathOf("*")).has_value());
    FolderSearch target(std::move(source));
    EXPECT_TRUE(target.Next().has_value());
    EXPECT_EQ(target.Next(), std::nullopt);
}

}  // namespace
}  // namespace macroengine::platform
