#include "categories/CsvReader.h"

#include <algorithm>
#include <cstring>

// A row is scanned where it lies in the buffer. When the buffer ends before the row does, its part moves to
// the front, the buffer is filled up behind it, and the scan begins again. So nothing is changed before the
// whole row is there: only then do quoted cells lose their quotes, in place.

namespace macroengine {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Between(const char* first, const char* last) {
    return {first, static_cast<std::size_t>(last - first)};
}

}  // namespace

CsvReader::CsvReader(platform::File& file, std::size_t bufferSize)
    : file_(file),
      buffer_(std::max(bufferSize, kByteOrderMark.size())),
      position_(buffer_.data()),
      end_(buffer_.data()) {
    Fill();
    if (Between(position_, end_).substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        position_ += kByteOrderMark.size();
    }
}

/// Moves what has not been read to the front and reads on behind it.
void CsvReader::Fill() {
    const auto rest = static_cast<std::size_t>(end_ - position_);
    std::memmove(buffer_.data(), position_, rest);
    if (rest == buffer_.size()) buffer_.resize(2 * buffer_.size());
    const std::size_t space = buffer_.size() - rest;
    const std::size_t count = file_.Read(buffer_.data() + rest, space);
    isAtEnd_ = count < space;
    position_ = buffer_.data();
    end_ = position_ + rest + count;
}

bool CsvReader::ReadRow(std::vector<std::string_view>& cells) {
    while (position_ != end_ || !isAtEnd_) {
        if (position_ != end_ && ScanRow(cells)) return true;
        Fill();
    }
    return false;
}

/// Returns false when the buffer ends before the row does.
bool CsvReader::ScanRow(std::vector<std::string_view>& cells) {
    cells.clear();
    unquoted_.clear();
    char* position = position_;
    bool isLast = false;
    while (!isLast) {
        const char* first = position;
        const char* last = position;
        bool needsUnquoting = false;
        if (!ScanCell(position, first, last, needsUnquoting)) return false;
        if (needsUnquoting) unquoted_.push_back(cells.size());
        cells.emplace_back(first, static_cast<std::size_t>(last - first));
        isLast = position == end_ || *position == '\n';
        if (position != end_) ++position;
    }
    position_ = position;
    for (const std::size_t index : unquoted_)
        cells[index] = Unquote(cells[index]);
    return true;
}

/// Scans a cell up to the character that ends it. Returns false when the buffer ends before it is known where
/// that is.
///
/// @param first, last  receive what the cell holds, without its opening quote.
bool CsvReader::ScanCell(char*& position, const char*& first, const char*& last, bool& needsUnquoting) const {
    const bool isQuoted = position != end_ && *position == '"';
    char* stop = position;
    first = position;
    last = position;  // of what may hold commas and line ends
    if (isQuoted) {
        ++first;
        last = FindClosingQuote(first, needsUnquoting);
        if (last == nullptr) return false;
        // The closing quote itself is skipped.
        stop += last - position + (last != end_ ? 1 : 0);
    }
    const char* const behindQuotes = stop;
    while (stop != end_ && *stop != ',' && *stop != '\n')
        ++stop;
    if (stop == end_ && !isAtEnd_) return false;
    position = stop;

    const char* end = stop;
    if (stop != end_ && *stop == '\n' && end > behindQuotes && end[-1] == '\r') --end;
    if (isQuoted && end > behindQuotes) needsUnquoting = true;
    if (!isQuoted || needsUnquoting) last = end;
    return true;
}

/// Returns the quote that ends a cell, or the end of the file; null when the buffer ends before it is known.
const char* CsvReader::FindClosingQuote(const char* position, bool& hasPairs) const {
    while (true) {
        position = std::find(position, static_cast<const char*>(end_), '"');
        if (end_ - position < 2) return isAtEnd_ ? position : nullptr;
        if (position[1] != '"') return position;
        hasPairs = true;
        position += 2;
    }
}

/// @param cell  what follows the opening quote, in the buffer.
std::string_view CsvReader::Unquote(std::string_view cell) {
    char* const first = buffer_.data() + (cell.data() - buffer_.data());
    char* out = first;
    bool isInQuotes = true;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        if (isInQuotes && cell[i] == '"') {
            isInQuotes = i + 1 < cell.size() && cell[i + 1] == '"';
            if (!isInQuotes) continue;
            ++i;
        }
        *out++ = cell[i];
    }
    return Between(first, out);
}

}  // namespace macroengine
