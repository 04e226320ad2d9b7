#include "runtime/ValueMeter.h"

#include <utility>

namespace macroengine {

namespace {

thread_local ValueMeter* current = nullptr;

}  // namespace

std::atomic<int> ValueMeter::count_{0};

ValueMeter::ValueMeter(std::uint64_t limit, std::size_t taken)
    : limit_(limit), taken_(static_cast<std::int64_t>(taken)) {
    if (limit_ != 0) ++count_;
    // Where nobody counts, a thread's own storage is not asked for: it may not be there yet.
    isInForce_ = count_.load(std::memory_order_relaxed) != 0;
    if (isInForce_) outer_ = std::exchange(current, limit_ != 0 ? this : nullptr);
}

ValueMeter::~ValueMeter() {
    if (isInForce_) current = outer_;
    if (limit_ != 0) --count_;
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
