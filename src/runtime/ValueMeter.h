#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <new>

namespace macroengine {

/// Counts the bytes that the texts and arrays of a program take during a run of limited memory. While it
/// lives it sees all that this thread takes and gives back, save what a run inside of this one does.
class ValueMeter {
public:
    /// @param limit  in bytes; 0 for none, and nothing is counted then.
    /// @param taken  the bytes that the program holds already.
    ValueMeter(std::uint64_t limit, std::size_t taken);
    ValueMeter(const ValueMeter&) = delete;
    ValueMeter& operator=(const ValueMeter&) = delete;
    ~ValueMeter();

    /// Whether more was asked for than the limit allows, so that a statement has failed.
    bool IsExceeded() const { return isExceeded_; }

    /// @return memory for a part of a value, counted.
    /// @throws std::bad_alloc also beyond the limit of this thread's meter.
    static void* Allocate(std::size_t bytes) {
        if (count_.load(std::memory_order_relaxed) != 0) Take(bytes);
        try {
            return ::operator new(bytes);
        } catch (const std::bad_alloc&) {
            GiveBack(bytes);
            throw;
        }
    }

    /// Counts memory that is given back.
    static void GiveBack(std::size_t bytes) noexcept {
        if (count_.load(std::memory_order_relaxed) != 0) Drop(bytes);
    }

private:
    static void Take(std::size_t bytes);
    static void Drop(std::size_t bytes) noexcept;

    static std::atomic<int> count_;  ///< of all meters, so that values cost nothing where there is none
    std::uint64_t limit_;
    std::int64_t taken_;
    bool isExceeded_ = false;
    bool isInForce_ = false;
    ValueMeter* outer_ = nullptr;  ///< the meter of the run whose command has started this one
};

}  // namespace macroengine
