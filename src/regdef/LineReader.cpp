#include "regdef/LineReader.h"

#include <algorithm>
#include <cstring>

namespace macroengine {

namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 16;

/// @return true.
bool RemoveCarriageReturn(Line& line) {
    if (line.end != line.begin && line.end[-1] == '\r') --line.end;
    return true;
}

}  // namespace

bool LineReader::Open(const std::string& path) {
    if (!file_.OpenForReading(path)) return false;
    buffer_.resize(kBlockSize);
    begin_ = end_ = 0;
    return true;
}

bool LineReader::Next(Line& line) {
    if (!file_.IsOpen()) return false;
    std::size_t searched = 0;  // how much of the line is known to hold no line feed
    do {
        char* const begin = buffer_.data() + begin_;
        const std::size_t size = end_ - begin_;
        if (void* const found = std::memchr(begin + searched, '\n', size - searched)) {
            line = {begin, static_cast<char*>(found)};
            begin_ += static_cast<std::size_t>(line.end - begin) + 1;
            return RemoveCarriageReturn(line);
        }
        searched = size;
    } while (Fill());
    if (begin_ == end_) return false;
    line = {buffer_.data() + begin_, buffer_.data() + end_};
    begin_ = end_;
    return RemoveCarriageReturn(line);
}

/// Reads more behind what is left, which may move.
/// @return false at the end of the file.
bool LineReader::Fill() {
    std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(begin_),
              buffer_.begin() + static_cast<std::ptrdiff_t>(end_), buffer_.begin());
    end_ -= begin_;
    begin_ = 0;
    if (end_ == buffer_.size()) buffer_.resize(buffer_.size() * 2);
    const std::size_t count = file_.Read(buffer_.data() + end_, buffer_.size() - end_);
    end_ += count;
    return count != 0;
}

}  // namespace macroengine
