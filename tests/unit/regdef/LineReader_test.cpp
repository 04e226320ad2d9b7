#include "regdef/LineReader.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/TemporaryFolder.h"

namespace macroengine {
namespace {

using Lines = std::vector<std::string>;

Lines LinesOf(const std::string& bytes) {
    const test::TemporaryFolder folder;
    LineReader reader;
    EXPECT_TRUE(reader.Open(folder.Write("lines.txt", bytes)));
    Lines lines;
    for (Line line{}; reader.Next(line);)
        lines.emplace_back(line.begin, line.end);
    Line line{};
    EXPECT_FALSE(reader.Next(line));
    return lines;
}

TEST(LineReader, WithoutAFileThereIsNoLine) {
    LineReader reader;
    Line line{};
    EXPECT_FALSE(reader.Next(line));
    EXPECT_FALSE(reader.Open("no such folder/lines.txt"));
    EXPECT_FALSE(reader.Next(line));
}

TEST(LineReader, ALineFeedEndsALineAndACarriageReturnBeforeItGoesAlong) {
    EXPECT_EQ(LinesOf("a\nb\r\n\n\r\nc"), (Lines{"a", "b", "", "", "c"}));
    EXPECT_EQ(LinesOf("a\n"), (Lines{"a"}));
    EXPECT_EQ(LinesOf("a\na longer line without an end"), (Lines{"a", "a longer line without an end"}));
    EXPECT_EQ(LinesOf("a\r\r\nb\r"), (Lines{"a\r", "b"}));
    EXPECT_EQ(LinesOf("a\rb"), (Lines{"a\rb"}));
    EXPECT_EQ(LinesOf("\n"), (Lines{""}));
    EXPECT_EQ(LinesOf("\r"), (Lines{""}));
    EXPECT_EQ(LinesOf(""), Lines{});
}

TEST(LineReader, AnyByteMayStandInALine) {
    const std::string bytes("\0\x1A\xFF ", 4);
    EXPECT_EQ(LinesOf(bytes + "\n" + bytes), (Lines{bytes, bytes}));
}

TEST(LineReader, LinesOfAnyLengthAreWhole) {
    Lines lines;
    std::string bytes;
    for (const std::size_t size : {4094, 4095, 4096, 0, 65534, 65535, 65536, 65537, 3, 1000000, 1, 200000}) {
        lines.emplace_back(size, static_cast<char>('a' + lines.size()));
        bytes += lines.back() + "\r\n";
    }
    EXPECT_EQ(LinesOf(bytes), lines);
}

TEST(LineReader, LineEndsMayFallOnTheEdgesOfBlocks) {
    for (std::size_t size = 65530; size < 65542; ++size) {
        const std::string line(size, 'x');
        ASSERT_EQ(LinesOf(line + "\r\nb\r\n"), (Lines{line, "b"})) << size;
    }
}

TEST(LineReader, AFileThatIsNotThereCannotBeOpened) {
    const test::TemporaryFolder folder;
    LineReader reader;
    EXPECT_FALSE(reader.Open(folder.PathOf("missing.txt")));
    EXPECT_FALSE(reader.Open(folder.Path()));
    EXPECT_FALSE(reader.Open(""));
}

}  // namespace
}  // namespace macroengine
