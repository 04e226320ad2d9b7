#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace macroengine {

/// The one channel through which failures are reported: an ordered list of finished lines, oldest first.
///
/// Every object that can fail holds one by value. Its owner moves the lines upward until they reach the table
/// that the host reads. Lines are text for people: nothing parses them.
class CErrorMessageTable {
public:
    CErrorMessageTable() = default;
    CErrorMessageTable(const CErrorMessageTable&) = default;
    CErrorMessageTable(CErrorMessageTable&&) = default;
    CErrorMessageTable& operator=(const CErrorMessageTable&) = default;
    CErrorMessageTable& operator=(CErrorMessageTable&&) = default;
    virtual ~CErrorMessageTable();

    /// Appends "error : text".
    /// @return true.
    bool AddError(std::string_view text);

    /// Appends "file(line): error : text". A null file writes no name, a line below 1 no parentheses.
    /// @return true.
    bool AddLocatedError(const char* file, std::int32_t line, std::string_view text);

    /// Appends a copy of every line of the other table, in order.
    void AppendErrors(const CErrorMessageTable& other);

    /// Moves every line of the other table to the end of this one and leaves the other empty.
    void TakeErrors(CErrorMessageTable& other);

    std::uint32_t GetCount() const { return static_cast<std::uint32_t>(messages_.size()); }
    bool IsEmpty() const { return messages_.empty(); }

    /// @return the line; the empty text for an index at or beyond the count.
    const std::string& GetMessage(std::uint32_t index) const;

    void Clear() { messages_.clear(); }

private:
    std::vector<std::string> messages_;
    std::string spare_;  ///< always empty: what a read beyond the end returns
};

}  // namespace macroengine
