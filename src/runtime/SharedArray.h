#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "runtime/Limits.h"
#include "runtime/ReferenceCount.h"
#include "runtime/ValueMeter.h"
#include "runtime/ValueView.h"

namespace macroengine {

/// The elements behind the array values of one program. Values share a block until one of them is written to.
///
/// As long as all elements are integers, or all are floating values, they are packed. Which form a block has
/// can't be told from a script or a command.
class SharedArray {
public:
    /// How the elements are kept.
    enum class Form : std::uint32_t { Integers, Floatings, Cells };

    /// An element store refuses this index and any above it.
    static constexpr std::uint32_t kIndexLimit = limits::kArrayIndex;

    /// @return an empty block with one reference.
    static SharedArray* Create() { return new SharedArray; }

    /// @return a block with one reference that holds the values and has no room for more.
    static SharedArray* Create(const std::vector<CMacroCommonValue>& values);

    SharedArray(const SharedArray&) = delete;
    SharedArray& operator=(const SharedArray&) = delete;

    void AddReference() { counts_.references.Add(); }

    /// Gives a reference back; the last one frees the block and what only it held.
    void Release() {
        if (counts_.references.Drop()) Destroy(this);
    }

    bool IsShared() const { return counts_.references.IsShared(); }

    /// @return a block with one reference and the same elements; what they point to is shared.
    SharedArray* Clone() const;

    std::uint32_t GetSize() const { return size_; }
    Form GetForm() const { return form_; }

    /// The bytes that the block and the room for its elements take.
    std::size_t GetBytes() const;

    // The elements themselves, GetSize() of them, valid until the block changes. Only those of the block's
    // own form may be asked for, and only a block that is not shared may be written through them.

    std::int32_t* Integers() { return static_cast<std::int32_t*>(elements_); }
    const std::int32_t* Integers() const { return static_cast<const std::int32_t*>(elements_); }
    double* Floatings() { return static_cast<double*>(elements_); }
    const double* Floatings() const { return static_cast<const double*>(elements_); }

    /// What an element points to is the block's own: an element that holds a reference is not to be written
    /// over (see HoldsReference).
    ValueView* Cells() { return static_cast<ValueView*>(elements_); }
    const ValueView* Cells() const { return static_cast<const ValueView*>(elements_); }

    /// @return the element; requires index < GetSize().
    ValueView At(std::uint32_t index) const {
        switch (form_) {
            case Form::Integers:
                return ValueView::Integer(Integers()[index]);
            case Form::Floatings:
                return ValueView::Floating(Floatings()[index]);
            default:
                return Cells()[index];
        }
    }

    /// Stores a value at an index, after as many integers 0 as are missing before it.
    ///
    /// Takes a reference of its own to what the value points to. On an exception of the allocator or the
    /// container the block is unchanged.
    void Set(std::uint32_t index, const ValueView& value) {
        if (index >= size_ || !Overwrite(index, value)) SetInGeneral(index, value);
    }

    /// Stores over an element, as Set does, when neither the form nor a reference is in the way; requires
    /// index < GetSize().
    /// @return false when one of them is.
    bool Overwrite(std::uint32_t index, const ValueView& value) {
        if (form_ == Form::Integers) {
            if (value.eType != ValueKind::Integer) return false;
            Integers()[index] = value.integer;
        } else if (form_ == Form::Floatings) {
            if (value.eType != ValueKind::Floating) return false;
            Floatings()[index] = value.floating;
        } else {
            if (HoldsReference(value.eType) || HoldsReference(Cells()[index].eType)) return false;
            Cells()[index] = value;
        }
        return true;
    }

    /// Stores an integer, as Set does, over another one or behind the last where there is room.
    /// @return false when it takes more than that.
    bool StoreInteger(std::uint32_t index, std::int32_t value) {
        if (form_ != Form::Integers || index >= counts_.capacity || index > size_) return false;
        if (index >= kIndexLimit) return false;
        if (index == size_) ++size_;
        Integers()[index] = value;
        return true;
    }

    void Append(const ValueView& value) { Set(size_, value); }

    /// As Append; takes over the cell's reference to what its value points to, where that is simple.
    void AppendFrom(ValueView& cell) {
        if (form_ == Form::Cells && size_ < counts_.capacity) {
            Cells()[size_++] = std::exchange(cell, ValueView());
        } else {
            Append(cell);
        }
    }

    /// Makes room for as many elements in all.
    void Reserve(std::size_t count);

    /// @return the array at an index, made this block's own if it was shared; requires an array there.
    SharedArray& MutableArrayAt(std::uint32_t index);

private:
    struct Discard;

    static void* operator new(std::size_t bytes) { return ValueMeter::Allocate(bytes); }
    static void operator delete(void* memory) {
        ValueMeter::GiveBack(sizeof(SharedArray));
        ::operator delete(memory);
    }

    SharedArray() : counts_{ReferenceCount(), 0} {}
    ~SharedArray();

    static void Destroy(SharedArray* array);
    void JoinDead(SharedArray* next);

    Form FormWith(std::uint32_t index, ValueKind kind) const;
    void SetInGeneral(std::uint32_t index, const ValueView& element);
    void Rebuild(Form form, std::size_t capacity);
    void FillTo(std::size_t size);

    struct Counts {
        ReferenceCount references;
        std::uint32_t capacity;
    };

    // Rows of a table are blocks of a few elements each: three words are all that they need beside those.
    // Its members are as private as the union is.
    // NOLINTBEGIN(readability-identifier-naming)
    union {
        Counts counts_;
        SharedArray* nextDead_;  ///< of a dead block: the chain of those that wait to be freed
    };
    // NOLINTEND(readability-identifier-naming)
    std::uint32_t size_ = 0;
    Form form_ = Form::Integers;
    void* elements_ = nullptr;
};

}  // namespace macroengine
