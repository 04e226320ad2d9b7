// Any bytes as a CSV file: the reader gives the cells that a plain reader gives, whatever the size of its buffer, and
// the command makes values of them.

#include <string>
#include <vector>

#include "categories/CsvReader.h"
#include "common/Require.h"
#include "platform/File.h"
#include "support/CommandCaller.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace macroengine;

using Row = std::vector<std::string>;

/// The rules of the format, a byte at a time.
class PlainReader {
public:
    explicit PlainReader(const std::string& text) : text_(text) {
        if (text.compare(0, 3, "\xEF\xBB\xBF") == 0) at_ = 3;
    }

    std::vector<Row> ReadRows() {
        std::vector<Row> rows;
        while (at_ < text_.size())
            rows.push_back(ReadRow());
        return rows;
    }

private:
    bool Take(const char* text) {
        if (text_.compare(at_, std::char_traits<char>::length(text), text) != 0) return false;
        at_ += std::char_traits<char>::length(text);
        return true;
    }

    Row ReadRow() {
        Row row = {ReadCell()};
        while (Take(","))
            row.push_back(ReadCell());
        if (!Take("\r\n")) Take("\n");
        return row;
    }

    std::string ReadCell() {
        std::string cell;
        if (Take("\"")) {
            while (at_ < text_.size()) {
                if (Take("\"\"")) {
                    cell += '"';
                } else if (Take("\"")) {
                    break;
                } else {
                    cell += text_[at_++];
                }
            }
        }
        while (at_ < text_.size() && text_[at_] != ',' && text_[at_] != '\n' &&
               text_.compare(at_, 2, "\r\n") != 0)
            cell += text_[at_++];
        return cell;
    }

    const std::string& text_;
    std::size_t at_ = 0;
};

std::vector<Row> ReadThroughBuffer(const std::string& path, std::size_t bufferSize) {
    platform::File file;
    fuzz::Require(file.OpenForReading(path), "a file that was written can be read");
    CsvReader reader(file, bufferSize);
    std::vector<Row> rows;
    std::vector<std::string_view> cells;
    while (reader.ReadRow(cells))
        rows.emplace_back(cells.begin(), cells.end());
    return rows;
}

std::string DescribeTexts(const std::vector<Row>& rows) {
    std::vector<CMacroCommonValue> values;
    for (const Row& row : rows) {
        std::vector<CMacroCommonValue> cells;
        for (const std::string& cell : row)
            cells.push_back(test::Text(cell));
        values.push_back(test::ArrayOf(cells));
    }
    return test::Describe(test::ArrayOf(values));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::TemporaryFolder folder;
    static test::CommandCaller caller;
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::string path = folder.Write("table.csv", text);
    const std::vector<Row> rows = PlainReader(text).ReadRows();
    for (const std::size_t bufferSize : {1, 2, 3, 7, 64, 262144})
        fuzz::Require(ReadThroughBuffer(path, bufferSize) == rows, "the reader gives the cells of the file");
    fuzz::Require(caller.Call("system.csvfile_read", {test::Text(path)}) == DescribeTexts(rows),
                  "the command gives the cells of the file");
    caller.Call("system.csvfile_read", {test::Text(path), test::Integer(1)});
    return 0;
}
