#include "platform/File.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>

#include "support/TemporaryFolder.h"

namespace macroengine::platform {
namespace {

using test::TemporaryFolder;

std::string ReadAll(File& file, std::size_t size) {
    std::string text(size, '?');
    text.resize(file.Read(text.data(), size));
    return text;
}

TEST(File, ANewObjectHasNoFile) {
    File file;
    char byte = 'x';
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(file.Size(), 0U);
    EXPECT_EQ(file.Read(&byte, 1), 0U);
    EXPECT_FALSE(file.Write("a"));
    EXPECT_FALSE(file.SeekToEnd());
    file.Close();
}

TEST(File, ReadingGivesAllBytesUnchanged) {
    const TemporaryFolder folder;
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.push_back(static_cast<char>(byte));
    bytes += "\r\n\n\r\x1A";
    const std::string path = folder.Write("all", bytes);

    File file;
    ASSERT_TRUE(file.OpenForReading(path));
    EXPECT_EQ(file.Size(), bytes.size());
    EXPECT_EQ(ReadAll(file, bytes.size()), bytes);
}

TEST(File, ReadingStopsAtTheEndAndGoesOnFromTheLastPlace) {
    const TemporaryFolder folder;
    File file;
    ASSERT_TRUE(file.OpenForReading(folder.Write("a", "abcde")));
    EXPECT_EQ(ReadAll(file, 2), "ab");
    EXPECT_EQ(ReadAll(file, 0), "");
    EXPECT_EQ(ReadAll(file, 100), "cde");
    EXPECT_EQ(ReadAll(file, 100), "");
}

TEST(File, AnEmptyFileHasNoBytes) {
    const TemporaryFolder folder;
    File file;
    ASSERT_TRUE(file.OpenForReading(folder.Write("a", "")));
    EXPECT_EQ(file.Size(), 0U);
    EXPECT_EQ(ReadAll(file, 1), "");
}

TEST(File, WhatIsNoFileCanNotBeOpened) {
    const TemporaryFolder folder;
    folder.MakeFolder("sub");
    File file;
    for (const std::string& path : {std::string(), folder.PathOf("missing"), folder.PathOf("sub"),
                                    folder.Path(), folder.PathOf("missing") + "/a"}) {
        SCOPED_TRACE(path);
        EXPECT_FALSE(file.OpenForReading(path));
        EXPECT_FALSE(file.IsOpen());
    }
    for (const std::string& path :
         {std::string(), folder.PathOf("sub"), folder.Path(), folder.PathOf("missing") + "/a"}) {
        SCOPED_TRACE(path);
        EXPECT_FALSE(file.OpenForWriting(path, WriteMode::Truncate));
        EXPECT_FALSE(file.OpenForWriting(path, WriteMode::Append));
        EXPECT_FALSE(file.IsOpen());
    }
}

TEST(File, TruncateDropsWhatTheFileHeld) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a", "old text");
    File file;
    ASSERT_TRUE(file.OpenForWriting(path, WriteMode::Truncate));
    EXPECT_EQ(file.Size(), 0U);
    EXPECT_TRUE(file.Write("new"));
    file.Close();
    EXPECT_EQ(folder.Read("a"), "new");
}

TEST(File, AppendKeepsWhatTheFileHolds) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a", "old");
    File file;
    ASSERT_TRUE(file.OpenForWriting(path, WriteMode::Append));
    ASSERT_TRUE(file.SeekToEnd());
    EXPECT_TRUE(file.Write(" and new"));
    file.Close();
    EXPECT_EQ(folder.Read("a"), "old and new");
}

TEST(File, BothModesMakeAFileThatIsMissing) {
    const TemporaryFolder folder;
    File file;
    ASSERT_TRUE(file.OpenForWriting(folder.PathOf("a"), WriteMode::Truncate));
    EXPECT_TRUE(file.Write("1"));
    ASSERT_TRUE(file.OpenForWriting(folder.PathOf("b"), WriteMode::Append));
    EXPECT_TRUE(file.SeekToEnd());
    EXPECT_TRUE(file.Write("2"));
    file.Close();
    EXPECT_EQ(folder.Read("a"), "1");
    EXPECT_EQ(folder.Read("b"), "2");
}

TEST(File, WritingTakesAnyBytesAndAnyLength) {
    const TemporaryFolder folder;
    const std::string text = std::string("a\0\r\n\n", 5) + std::string(1 << 20, '\xFF');
    File file;
    ASSERT_TRUE(file.OpenForWriting(folder.PathOf("a"), WriteMode::Truncate));
    EXPECT_TRUE(file.Write(""));
    EXPECT_TRUE(file.Write(text));
    file.Close();
    EXPECT_EQ(folder.Read("a"), text);
}

TEST(File, AFileIsUsedOnlyInTheDirectionThatItWasOpenedFor) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a", "text");
    File file;
    ASSERT_TRUE(file.OpenForReading(path));
    EXPECT_FALSE(file.Write("x"));
    ASSERT_TRUE(file.OpenForWriting(path, WriteMode::Append));
    EXPECT_EQ(ReadAll(file, 4), "");
    file.Close();
    EXPECT_EQ(folder.Read("a"), "text");
}

TEST(File, OthersMayUseTheFileMeanwhile) {
    const TemporaryFolder folder;
    const std::string path = folder.PathOf("a");
    File writer;
    ASSERT_TRUE(writer.OpenForWriting(path, WriteMode::Truncate));
    ASSERT_TRUE(writer.Write("seen"));
    File reader;
    ASSERT_TRUE(reader.OpenForReading(path));
    EXPECT_EQ(ReadAll(reader, 10), "seen");
    File second;
    EXPECT_TRUE(second.OpenForWriting(path, WriteMode::Append));
    EXPECT_TRUE(std::filesystem::remove(path));
}

TEST(File, OpeningClosesTheFileBefore) {
    const TemporaryFolder folder;
    File file;
    ASSERT_TRUE(file.OpenForReading(folder.Write("a", "first")));
    ASSERT_TRUE(file.OpenForReading(folder.Write("b", "second")));
    EXPECT_EQ(ReadAll(file, 10), "second");
    EXPECT_FALSE(file.OpenForReading(folder.PathOf("missing")));
    EXPECT_FALSE(file.IsOpen());
}

TEST(File, MovingHandsTheFileOver) {
    const TemporaryFolder folder;
    File source;
    ASSERT_TRUE(source.OpenForReading(folder.Write("a", "abcd")));
    File target(std::move(source));
    EXPECT_EQ(ReadAll(target, 2), "ab");

    File assigned;
    ASSERT_TRUE(assigned.OpenForReading(folder.Write("b", "other")));
    assigned = std::move(target);
    EXPECT_EQ(ReadAll(assigned, 10), "cd");

    File& same = assigned;
    assigned = std::move(same);
    EXPECT_TRUE(assigned.IsOpen());
}

}  // namespace
}  // namespace macroengine::platform
