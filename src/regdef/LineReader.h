#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/File.h"

namespace macroengine {

/// A line in memory that its reader may change.
struct Line {
    char* begin;
    char* end;
};

/// Reads a text file line by line, holding no more of it than a block or the longest line.
class LineReader {
public:
    LineReader() = default;

    /// @return false when the file can't be opened.
    bool Open(const std::string& path);

    /// Reads the next line. A line feed ends a line; it and a carriage return before it are left out.
    ///
    /// @param line  receives the line, valid until the next call.
    /// @return false at the end of the file, and where none is open.
    bool Next(Line& line);

    /// @return whether an error has ended the reading before the end of the file.
    bool HasReadError() const { return file_.HasReadError(); }

private:
    bool Fill();

    platform::File file_;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;  ///< of what has not been given yet
    std::size_t end_ = 0;    ///< of what has been read
};

}  // namespace macroengine
