#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "runtime/ValueView.h"

namespace macroengine {

/// The elements behind the array values of one program. Values share a block until one of them is written to.
///
/// As long as all elements are integers they are packed. Which of the two forms a block has can't be told
/// from outside.
class SharedArray {
public:
    /// An element store refuses this index and any above it.
    static constexpr std::uint32_t kIndexLimit = 134217728;

    /// @return an empty block with one reference.
    static SharedArray* Create() { return new SharedArray; }

    /// @return a block with one reference that holds the values and has no room for more.
    static SharedArray* Create(const std::vector<CMacroCommonValue>& values);

    SharedArray(const SharedArray&) = delete;
    SharedArray& operator=(const SharedArray&) = delete;

    void AddReference() { ++references_; }

    /// Gives a reference back; the last one frees the block and what only it held.
    void Release() {
        if (--references_ == 0) Destroy(this);
    }

    bool IsShared() const { return references_ > 1; }

    /// @return a block with one reference and the same elements; what they point to is shared.
    SharedArray* Clone() const;

    std::uint32_t GetSize() const {
        return static_cast<std::uint32_t>(isPacked_ ? integers_.size() : cells_.size());
    }

    /// Whether the elements are packed integers, which Integers() gives; otherwise Cells() gives them.
    bool IsPacked() const { return isPacked_; }
    std::int32_t* Integers() { return integers_.data(); }
    ValueView* Cells() { return cells_.data(); }

    /// @return the element; requires index < GetSize().
    ValueView At(std::uint32_t index) const {
        return isPacked_ ? ValueView::Integer(integers_[index]) : cells_[index];
    }

    /// Stores a value at an index, after as many integers 0 as are missing before it.
    ///
    /// Takes a reference of its own to what the value points to. On an exception of the allocator or the
    /// container the block is unchanged.
    void Set(std::uint32_t index, const ValueView& value);

    void Append(const ValueView& value) { Set(GetSize(), value); }

    void Reserve(std::size_t count);

    /// @return the array at an index, made this block's own if it was shared; requires an array there.
    SharedArray& MutableArrayAt(std::uint32_t index);

private:
    SharedArray() = default;
    ~SharedArray() = default;

    struct Discard;
    static void Destroy(SharedArray* array);
    void Unpack(std::size_t count);

    std::uint32_t references_ = 1;
    bool isPacked_ = true;
    std::vector<std::int32_t> integers_;
    std::vector<ValueView> cells_;
    SharedArray* nextDead_ = nullptr;  ///< the chain of blocks that wait to be freed
};

}  // namespace macroengine
