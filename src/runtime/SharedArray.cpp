#include "runtime/SharedArray.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "runtime/CMacroCommonValue.h"

namespace macroengine {

/// Frees a block that runs out of memory while it is made: the cells are counted only once they are all
/// there.
struct SharedArray::Discard {
    void operator()(SharedArray* array) const { delete array; }
};

SharedArray* SharedArray::Create(const std::vector<CMacroCommonValue>& values) {
    std::unique_ptr<SharedArray, Discard> array(Create());
    array->isPacked_ = std::all_of(values.begin(), values.end(), [](const CMacroCommonValue& value) {
        return value.GetType() == ValueKind::Integer;
    });
    array->Reserve(values.size());
    for (const CMacroCommonValue& value : values) {
        const ValueView& view = value.View();
        if (array->isPacked_) {
            array->integers_.push_back(view.integer);
        } else {
            array->cells_.push_back(view);
            Retain(view);
        }
    }
    return array.release();
}

SharedArray* SharedArray::Clone() const {
    std::unique_ptr<SharedArray, Discard> copy(Create());
    copy->isPacked_ = isPacked_;
    copy->integers_ = integers_;
    copy->cells_ = cells_;
    for (const ValueView& cell : copy->cells_)
        Retain(cell);
    return copy.release();
}

void SharedArray::Destroy(SharedArray* array) {
    // An array may be nested as deep as a script likes: the dead ones form a chain instead of a recursion.
    SharedArray* dead = array;
    dead->nextDead_ = nullptr;
    while (dead != nullptr) {
        SharedArray* const current = dead;
        dead = current->nextDead_;
        for (const ValueView& cell : current->cells_) {
            if (cell.eType != ValueKind::Array) {
                macroengine::Release(cell);
            } else if (--cell.array->references_ == 0) {
                cell.array->nextDead_ = dead;
                dead = cell.array;
            }
        }
        delete current;
    }
}

/// Gives up the packed form, with room for `count` elements.
void SharedArray::Unpack(std::size_t count) {
    std::vector<ValueView> cells;
    cells.reserve(std::max(count, integers_.size()));
    for (const std::int32_t integer : integers_)
        cells.push_back(ValueView::Integer(integer));
    cells_ = std::move(cells);
    integers_ = {};
    isPacked_ = false;
}

void SharedArray::Set(std::uint32_t index, const ValueView& value) {
    const std::size_t needed = std::size_t{index} + 1;
    if (isPacked_) {
        if (value.eType == ValueKind::Integer) {
            if (needed > integers_.size()) integers_.resize(needed);
            integers_[index] = value.integer;
            return;
        }
        Unpack(needed);
    }
    if (needed > cells_.size()) cells_.resize(needed, ValueView::Integer(0));
    const ValueView old = cells_[index];
    Retain(value);
    cells_[index] = value;
    macroengine::Release(old);
}

void SharedArray::Reserve(std::size_t count) {
    if (isPacked_) {
        integers_.reserve(count);
    } else {
        cells_.reserve(count);
    }
}

SharedArray& SharedArray::MutableArrayAt(std::uint32_t index) {
    ValueView& cell = cells_[index];
    if (cell.array->IsShared()) {
        SharedArray* const own = cell.array->Clone();
        cell.array->Release();
        cell.array = own;
    }
    return *cell.array;
}

}  // namespace macroengine
