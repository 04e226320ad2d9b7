#include "runtime/ValueMeter.h"

#include <unordered_set>
#include <vector>

#include "runtime/SharedArray.h"
#include "runtime/SharedText.h"
#include "runtime/VariableTable.h"

namespace macroengine {

namespace {

thread_local ValueMeter* current = nullptr;

/// Adds up the blocks behind values, each once, without recursion.
class BlockSum {
public:
    void Add(const ValueView& value) {
        if (value.eType == ValueKind::Array) {
            if (seen_.insert(value.array).second) pending_.push_back(value.array);
        } else if (value.eType == ValueKind::String && value.text != nullptr) {
            if (seen_.insert(value.text).second) bytes_ += value.text->GetBytes();
        }
    }

    std::size_t Get() {
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

private:
    std::unordered_set<const void*> seen_;
    std::vector<const SharedArray*> pending_;
    std::size_t bytes_ = 0;
};

}  // namespace

std::atomic<int> ValueMeter::count_{0};

ValueMeter::ValueMeter(const VariableTable& variables, std::uint64_t limit) : limit_(limit) {
    if (limit_ == 0) return;
    BlockSum sum;
    variables.ForEach([&](const Variable& variable) { sum.Add(variable.value.View()); });
    taken_ = static_cast<std::int64_t>(sum.Get());
    outer_ = current;
    current = this;
    ++count_;
}

ValueMeter::~ValueMeter() {
    if (limit_ == 0) return;
    --count_;
    current = outer_;
}

void ValueMeter::Take(std::size_t bytes) {
    if (current == nullptr) return;
    const std::int64_t taken = current->taken_ + static_cast<std::int64_t>(bytes);
    if (taken > 0 && static_cast<std::uint64_t>(taken) > current->limit_) {
        current->isExceeded_ = true;
        throw std::bad_alloc();
    }
    current->taken_ = taken;
}

void ValueMeter::Drop(std::size_t bytes) noexcept {
    if (current != nullptr) current->taken_ -= static_cast<std::int64_t>(bytes);
}

}  // namespace macroengine
