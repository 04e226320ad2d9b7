#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "runtime/ReferenceCount.h"

namespace macroengine {

/// The bytes behind the text values of one program.
///
/// A value views the first bytes of a block: its length is the value's own, so a value whose length is all
/// that the block holds can be extended in place. Every other value of the block goes on seeing what it saw.
/// That makes `s = s + "x"` in a loop cost what it appends, whoever else still holds an earlier `s`.
///
/// Blocks belong to one program and so to one thread: the count is a plain number.
class SharedText {
public:
    /// @return a block with one reference that holds `first` and `second` and has room for at least
    /// `capacity` bytes.
    /// @throws std::bad_alloc when there is no memory for it or a text would exceed its limit of 4 GiB.
    static SharedText* Create(std::string_view first, std::string_view second, std::size_t capacity);

    /// @return a block with one reference that holds the text and is never extended.
    static SharedText* CreateFixed(std::string_view text);

    SharedText(const SharedText&) = delete;
    SharedText& operator=(const SharedText&) = delete;

    void AddReference() { references_.Add(); }

    /// Gives a reference back; the last one frees the block.
    void Release() {
        if (references_.Drop()) Destroy();
    }

    const char* Bytes() const { return reinterpret_cast<const char*>(this + 1); }

    /// The bytes in use. A NUL follows them.
    std::uint32_t GetUsed() const { return used_; }

    /// The bytes that the block takes.
    std::size_t GetBytes() const { return sizeof(SharedText) + capacity_ + 1; }

    /// Extends the block in place by a text, which may be a part of the block itself.
    /// @return false when there is no room or when a value of that length is not the longest.
    bool Extend(std::uint32_t length, std::string_view text);

private:
    explicit SharedText(std::uint32_t capacity) : capacity_(capacity) {}
    ~SharedText() = default;

    char* MutableBytes() { return reinterpret_cast<char*>(this + 1); }
    void Append(std::string_view text);
    void Destroy();

    ReferenceCount references_;
    std::uint32_t used_ = 0;
    std::uint32_t capacity_;
};

}  // namespace macroengine
