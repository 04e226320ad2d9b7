#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/File.h"

namespace macroengine {

/// Reads a CSV file row by row, through a buffer that holds little more than one row at a time.
///
/// LF and CR LF end a row, "," ends a cell. A cell that begins with a double quote goes to the next one: it
/// may hold commas and line ends, and two quotes in it are one; what follows the closing quote belongs to the
/// cell as it is. The line end of the last row may be missing. An empty line is a row with one empty cell. A
/// UTF-8 byte order mark at the start is skipped. No input is refused.
class CsvReader {
public:
    /// @param file        open for reading; it outlives the reader.
    /// @param bufferSize  how much is read at once. The buffer grows when a row needs more.
    explicit CsvReader(platform::File& file, std::size_t bufferSize = std::size_t{256} << 10);

    /// Reads the next row.
    ///
    /// @param cells  receives its cells, at least one, which stay valid until the next call.
    /// @return false at the end of the file.
    bool ReadRow(std::vector<std::string_view>& cells);

private:
    void Fill();
    bool ScanRow(std::vector<std::string_view>& cells);
    bool ScanCell(char*& position, const char*& first, const char*& last, bool& needsUnquoting) const;
    const char* FindClosingQuote(const char* position, bool& hasPairs) const;
    std::string_view Unquote(std::string_view cell);

    platform::File& file_;
    std::vector<char> buffer_;
    char* position_;                     ///< what is read next
    char* end_;                          ///< of what the buffer holds
    bool isAtEnd_ = false;               ///< the file holds no more
    std::vector<std::size_t> unquoted_;  ///< the cells of the row that have quotes to lose
};

}  // namespace macroengine
