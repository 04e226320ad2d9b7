#include "runtime/SharedArray.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <utility>

#include "runtime/CMacroCommonValue.h"

namespace macroengine {

namespace {

using Form = SharedArray::Form;

constexpr std::size_t kMaxCapacity = std::numeric_limits<std::uint32_t>::max();

std::size_t ElementSize(Form form) {
    return form == Form::Integers    ? sizeof(std::int32_t)
           : form == Form::Floatings ? sizeof(double)
                                     : sizeof(ValueView);
}

/// @return room for elements that are still to be made.
void* Allocate(Form form, std::size_t capacity) {
    const std::size_t most = std::numeric_limits<std::size_t>::max() / ElementSize(form);
    if (capacity > std::min(kMaxCapacity, most)) throw std::bad_alloc();
    return ValueMeter::Allocate(capacity * ElementSize(form));
}

/// @return the form in which a value of the kind is kept when it is alone.
Form FormOf(ValueKind kind) {
    return kind == ValueKind::Integer    ? Form::Integers
           : kind == ValueKind::Floating ? Form::Floatings
                                         : Form::Cells;
}

}  // namespace

/// Frees a block that runs out of memory while it is made.
struct SharedArray::Discard {
    void operator()(SharedArray* array) const {
        array->JoinDead(nullptr);
        delete array;
    }
};

std::size_t SharedArray::GetBytes() const {
    return sizeof(SharedArray) + counts_.capacity * ElementSize(form_);
}

SharedArray::~SharedArray() {
    ::operator delete(elements_);
}

SharedArray* SharedArray::Create(const std::vector<CMacroCommonValue>& values) {
    std::unique_ptr<SharedArray, Discard> array(Create());
    if (values.empty()) return array.release();
    const Form form = FormOf(values.front().GetType());
    const bool isUniform = std::all_of(values.begin(), values.end(), [&](const CMacroCommonValue& value) {
        return FormOf(value.GetType()) == form;
    });
    array->Rebuild(isUniform ? form : Form::Cells, values.size());
    // With room for all of them nothing can fail any more.
    for (const CMacroCommonValue& value : values)
        array->Append(value.View());
    return array.release();
}

SharedArray* SharedArray::Clone() const {
    std::unique_ptr<SharedArray, Discard> copy(Create());
    if (size_ == 0) return copy.release();
    copy->Rebuild(form_, size_);
    std::memcpy(copy->elements_, elements_, size_ * ElementSize(form_));
    copy->size_ = size_;
    if (form_ == Form::Cells) {
        for (std::uint32_t i = 0; i < size_; ++i)
            Retain(Cells()[i]);
    }
    return copy.release();
}

/// Puts a block that nobody refers to before others that wait to be freed; its counts are gone then.
void SharedArray::JoinDead(SharedArray* next) {
    ValueMeter::GiveBack(counts_.capacity * ElementSize(form_));
    nextDead_ = next;
}

void SharedArray::Destroy(SharedArray* array) {
    // An array may be nested as deep as a script likes: the dead ones form a chain instead of a recursion.
    SharedArray* dead = array;
    dead->JoinDead(nullptr);
    while (dead != nullptr) {
        SharedArray* const current = dead;
        dead = current->nextDead_;
        const std::uint32_t cellCount = current->form_ == Form::Cells ? current->size_ : 0;
        for (std::uint32_t i = 0; i < cellCount; ++i) {
            const ValueView& cell = current->Cells()[i];
            if (cell.eType != ValueKind::Array) {
                macroengine::Release(cell);
            } else if (cell.array->counts_.references.Drop()) {
                cell.array->JoinDead(dead);
                dead = cell.array;
            }
        }
        delete current;
    }
}

/// @return the form that the block takes when a value of the kind is stored at the index.
Form SharedArray::FormWith(std::uint32_t index, ValueKind kind) const {
    const Form form = FormOf(kind);
    if (size_ == 0 && index == 0) return form_ == Form::Cells ? form_ : form;
    // A gap is filled with integers.
    const bool fits = form == form_ && (index <= size_ || form != Form::Floatings);
    return fits ? form : Form::Cells;
}

/// Moves the elements to a room of another capacity, and perhaps to another form: cells hold any element,
/// the packed forms only their own.
void SharedArray::Rebuild(Form form, std::size_t capacity) {
    void* const elements = Allocate(form, capacity);
    if (form != form_) {
        auto* const cells = static_cast<ValueView*>(elements);
        for (std::uint32_t i = 0; i < size_; ++i)
            new (&cells[i]) ValueView(At(i));
    } else if (size_ != 0) {
        std::memcpy(elements, elements_, size_ * ElementSize(form));
    }
    ValueMeter::GiveBack(counts_.capacity * ElementSize(form_));
    ::operator delete(elements_);
    elements_ = elements;
    form_ = form;
    counts_.capacity = static_cast<std::uint32_t>(capacity);
}

/// Appends integers 0 until there are `size` elements, for which there is room.
void SharedArray::FillTo(std::size_t size) {
    const auto count = static_cast<std::uint32_t>(size);
    if (count <= size_) return;
    if (form_ == Form::Integers) {
        std::uninitialized_fill(Integers() + size_, Integers() + count, 0);
    } else if (form_ == Form::Floatings) {
        // No gap comes in this form: what is made here is about to be stored over.
        std::uninitialized_fill(Floatings() + size_, Floatings() + count, 0.0);
    } else {
        std::uninitialized_fill(Cells() + size_, Cells() + count, ValueView::Integer(0));
    }
    size_ = count;
}

void SharedArray::SetInGeneral(std::uint32_t index, const ValueView& element) {
    // The element may be one of this very block, which is about to move.
    const ValueView value = element;
    const std::size_t needed = std::size_t{index} + 1;
    const Form form = FormWith(index, value.eType);
    if (needed > counts_.capacity) {
        Rebuild(form, std::max(needed, std::min(std::size_t{size_} * 2, kMaxCapacity)));
    } else if (form != form_) {
        Rebuild(form, counts_.capacity);
    }
    FillTo(needed);
    if (form_ != Form::Cells) {
        Overwrite(index, value);
        return;
    }
    Retain(value);
    macroengine::Release(std::exchange(Cells()[index], value));
}

void SharedArray::Reserve(std::size_t count) {
    if (count > counts_.capacity) Rebuild(form_, count);
}

SharedArray& SharedArray::MutableArrayAt(std::uint32_t index) {
    ValueView& cell = Cells()[index];
    if (cell.array->IsShared()) {
        SharedArray* const own = cell.array->Clone();
        cell.array->Release();
        cell.array = own;
    }
    return *cell.array;
}

}  // namespace macroengine
