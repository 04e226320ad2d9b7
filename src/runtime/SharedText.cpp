#include "runtime/SharedText.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "runtime/Limits.h"
#include "runtime/ValueMeter.h"

namespace macroengine {

namespace {

constexpr std::size_t kLimit = limits::kTextBytes;

/// What an allocator hands out for such a request anyway.
std::size_t RoundUp(std::size_t size) {
    return (size + 8 + 15) / 16 * 16 - 8;
}

}  // namespace

SharedText* SharedText::Create(std::string_view first, std::string_view second, std::size_t capacity) {
    const std::size_t length = first.size() + second.size();
    if (first.size() > kLimit || second.size() > kLimit || length > kLimit) throw std::bad_alloc();
    const std::size_t size = RoundUp(sizeof(SharedText) + std::max(length, std::min(capacity, kLimit)) + 1);
    const std::size_t room = std::min(size - sizeof(SharedText) - 1, kLimit);
    void* const memory = ValueMeter::Allocate(size);
    auto* const text = new (memory) SharedText(static_cast<std::uint32_t>(room));
    text->Append(first);
    text->Append(second);
    return text;
}

SharedText* SharedText::CreateFixed(std::string_view text) {
    SharedText* const block = Create(text, {}, 0);
    block->capacity_ = block->used_;
    return block;
}

void SharedText::Append(std::string_view text) {
    // The text may lie in this block, but always before the bytes that are written.
    if (!text.empty()) std::memcpy(MutableBytes() + used_, text.data(), text.size());
    used_ += static_cast<std::uint32_t>(text.size());
    MutableBytes()[used_] = '\0';
}

bool SharedText::Extend(std::uint32_t length, std::string_view text) {
    if (length != used_ || text.size() > capacity_ - used_) return false;
    Append(text);
    return true;
}

void SharedText::Destroy() {
    ValueMeter::GiveBack(GetBytes());
    this->~SharedText();
    ::operator delete(this);
}

}  // namespace macroengine
