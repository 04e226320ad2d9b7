#pragma once

#include <cstddef>
#include <cstdint>

namespace macroengine::fuzz {

/// Turns the bytes of a fuzzer into decisions. When they are used up every decision is the first one, which
/// therefore has to be the one that ends something.
class ByteSource {
public:
    ByteSource(const std::uint8_t* data, std::size_t size) : at_(data), end_(data + size) {}

    bool IsEmpty() const { return at_ == end_; }

    /// @return a number below `count`, which is at most 256.
    unsigned Below(unsigned count) { return IsEmpty() ? 0 : *at_++ % count; }

    /// @return true once in `count` times, and never when the bytes are used up.
    bool Rarely(unsigned count) { return Below(count) == count - 1; }

    /// @return one of the choices.
    template <class Choice, std::size_t count>
    const Choice& Pick(const Choice (&choices)[count]) {
        static_assert(count <= 256, "a byte decides");
        return choices[Below(count)];
    }

private:
    const std::uint8_t* at_;
    const std::uint8_t* end_;
};

}  // namespace macroengine::fuzz
