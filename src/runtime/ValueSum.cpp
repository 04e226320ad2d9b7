#include "runtime/ValueSum.h"

#include <cstdint>

#include "runtime/SharedArray.h"
#include "runtime/SharedText.h"

namespace macroengine {

void ValueSum::Add(const ValueView& value) {
    if (value.eType == ValueKind::Array) {
        if (seen_.insert(value.array).second) pending_.push_back(value.array);
    } else if (value.eType == ValueKind::String && value.text != nullptr) {
        if (seen_.insert(value.text).second) bytes_ += value.text->GetBytes();
    }
}

std::size_t ValueSum::Get() {
    while (!pending_.empty()) {
        const SharedArray& array = *pending_.back();
        pending_.pop_back();
        bytes_ += array.GetBytes();
        const std::uint32_t count = array.GetForm() == SharedArray::Form::Cells ? array.GetSize() : 0;
        for (std::uint32_t i = 0; i < count; ++i)
            Add(array.Cells()[i]);
    }
    return bytes_;
}

}  // namespace macroengine
