#include "categories/CsvReader.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/TemporaryFolder.h"

namespace macroengine {
namespace {

using Rows = std::vector<std::vector<std::string>>;

Rows ReadAll(const std::string& path, std::size_t bufferSize) {
    platform::File file;
    EXPECT_TRUE(file.OpenForReading(path));
    CsvReader reader(file, bufferSize);
    Rows rows;
    std::vector<std::string_view> cells;
    while (reader.ReadRow(cells))
        rows.emplace_back(cells.begin(), cells.end());
    EXPECT_FALSE(reader.ReadRow(cells));
    return rows;
}

TEST(CsvReader, SplitsRowsAndCells) {
    const test::TemporaryFolder folder;
    const struct {
        std::string text;
        Rows rows;
    } cases[] = {
        {"", {}},
        {"a", {{"a"}}},
        {"a\n", {{"a"}}},
        {"a,b\nc\n", {{"a", "b"}, {"c"}}},
        {"a,b\r\nc,d\r\n", {{"a", "b"}, {"c", "d"}}},
        {"a,b\nc,d", {{"a", "b"}, {"c", "d"}}},
        {"a,\n,b\n,\n", {{"a", ""}, {"", "b"}, {"", ""}}},
        {"a,", {{"a", ""}}},
        {",", {{"", ""}}},
        {" a , b ", {{" a ", " b "}}},
        // Empty lines.
        {"\n", {{""}}},
        {"\r\n", {{""}}},
        {"\n\n", {{""}, {""}}},
        {"a\n\nb\n\n", {{"a"}, {""}, {"b"}, {""}}},
        // A carriage return alone ends nothing.
        {"a\rb\n", {{"a\rb"}}},
        {"a\r", {{"a\r"}}},
        {"a\r\r\n", {{"a\r"}}},
        {"a\r,b\n", {{"a\r", "b"}}},
        // Quotes.
        {"\"a\"", {{"a"}}},
        {"\"a,b\",c\n", {{"a,b", "c"}}},
        {"\"a\nb\"\n\"c\r\nd\"\r\n", {{"a\nb"}, {"c\r\nd"}}},
        {"\"a\"\"b\"", {{"a\"b"}}},
        {"\"\"\"\"", {{"\""}}},
        {"\"\"", {{""}}},
        {"\"\",\"\"\n", {{"", ""}}},
        {"\"a\"\"\"\"b\",\"\"\"c\"\"\"\n", {{"a\"\"b", "\"c\""}}},
        {"\"a\r\"\n", {{"a\r"}}},
        {"\"a\"b,c\n", {{"ab", "c"}}},
        {"\"a\"b\"c\"\r\nd", {{"ab\"c\""}, {"d"}}},
        {"a\"b\"\"c\n", {{"a\"b\"\"c"}}},
        {" \"a,b\"\n", {{" \"a", "b\""}}},
        // A quoted cell that does not end.
        {"\"a", {{"a"}}},
        {"\"", {{""}}},
        {"\"\"\"", {{"\""}}},
        {"x,\"a,b\nc\n", {{"x", "a,b\nc\n"}}},
        // A byte order mark.
        {"\xEF\xBB\xBF", {}},
        {"\xEF\xBB\xBF"
         "a,b\n",
         {{"a", "b"}}},
        {"\xEF\xBB\xBF\"a,b\"\n", {{"a,b"}}},
        {"a\n\xEF\xBB\xBF", {{"a"}, {"\xEF\xBB\xBF"}}},
        {"\xEF\xBB", {{"\xEF\xBB"}}},
        // Any byte is text.
        {std::string("a\0b,c\n", 6), {{std::string("a\0b", 3), "c"}}},
        {"\xFF\x83|,\t\n", {{"\xFF\x83|", "\t"}}},
    };
    for (const auto& c : cases) {
        const std::string path = folder.Write("a.csv", c.text);
        // Wherever the buffer ends, the rows are the same.
        for (std::size_t size = 1; size < 24; ++size)
            EXPECT_EQ(ReadAll(path, size), c.rows) << '<' << c.text << "> with " << size;
        EXPECT_EQ(ReadAll(path, 4096), c.rows) << '<' << c.text << '>';
    }
}

TEST(CsvReader, ReadsRowsLargerThanItsBuffer) {
    const test::TemporaryFolder folder;
    std::vector<std::string> wide;
    std::string line;
    for (int i = 0; i < 100000; ++i) {
        wide.push_back(std::to_string(i));
        line.append(i > 0 ? "," : "").append(wide.back());
    }
    const std::string longCell(3 << 20, 'x');
    const std::string path = folder.Write("a.csv", line + "\r\n\"" + longCell + "\"\n" + line);
    platform::File file;
    ASSERT_TRUE(file.OpenForReading(path));
    CsvReader reader(file);
    std::vector<std::string_view> cells;
    const auto expectWide = [&] {
        ASSERT_TRUE(reader.ReadRow(cells));
        EXPECT_EQ(std::vector<std::string>(cells.begin(), cells.end()), wide);
    };
    expectWide();
    ASSERT_TRUE(reader.ReadRow(cells));
    EXPECT_EQ(cells, std::vector<std::string_view>{longCell});
    expectWide();
    EXPECT_FALSE(reader.ReadRow(cells));
}

}  // namespace
}  // namespace macroengine
