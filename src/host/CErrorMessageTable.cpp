#include "host/CErrorMessageTable.h"

#include <iterator>
#include <utility>

namespace macroengine {

CErrorMessageTable::~CErrorMessageTable() = default;

bool CErrorMessageTable::AddError(std::string_view text) {
    messages_.push_back(std::string("error : ").append(text));
    return true;
}

bool CErrorMessageTable::AddLocatedError(const char* file, std::int32_t line, std::string_view text) {
    std::string message;
    if (file != nullptr) message += file;
    if (line >= 1) message.append("(").append(std::to_string(line)).append(")");
    message.append(": error : ").append(text);
    messages_.push_back(std::move(message));
    return true;
}

void CErrorMessageTable::AppendErrors(const CErrorMessageTable& other) {
    // The count is taken first so that a table may be appended to itself.
    const std::size_t count = other.messages_.size();
    for (std::size_t i = 0; i < count; ++i)
        messages_.push_back(other.messages_[i]);
}

void CErrorMessageTable::TakeErrors(CErrorMessageTable& other) {
    if (&other == this) return;
    messages_.insert(messages_.end(), std::make_move_iterator(other.messages_.begin()),
                     std::make_move_iterator(other.messages_.end()));
    other.messages_.clear();
}

const std::string& CErrorMessageTable::GetMessage(std::uint32_t index) const {
    return index < messages_.size() ? messages_[index] : spare_;
}

}  // namespace macroengine
