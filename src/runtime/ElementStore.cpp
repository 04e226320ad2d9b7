#include "runtime/ElementStore.h"

#include <cstddef>
#include <cstdint>
#include <new>
#include <string>

#include "runtime/OperandResolution.h"

namespace macroengine {

namespace {

/// The indexes of a store, all resolved before anything changes. The usual few need no memory of their own.
class Indexes {
public:
    /// @return false when one of them can't be an index.
    bool Resolve(const OperandList& subscripts) {
        count_ = subscripts.size();
        if (count_ > kFew) many_.resize(count_);
        std::string error;
        for (std::size_t i = 0; i < count_; ++i) {
            std::int32_t index = 0;
            if (!ResolveSubscript(subscripts[i].View(), index, error)) return false;
            if (static_cast<std::uint32_t>(index) >= SharedArray::kIndexLimit) return false;
            (count_ > kFew ? many_.data() : few_)[i] = static_cast<std::uint32_t>(index);
        }
        return true;
    }

    std::size_t GetCount() const { return count_; }
    std::uint32_t operator[](std::size_t i) const { return (count_ > kFew ? many_.data() : few_)[i]; }

private:
    static constexpr std::size_t kFew = 4;
    std::size_t count_ = 0;
    std::uint32_t few_[kFew] = {};
    std::vector<std::uint32_t> many_;
};

/// Builds what takes the place of something that is no array: arrays of arrays, with the source at the
/// innermost of the indexes from `first` on. Built from the inside, so that it is whole before anything that
/// exists changes.
CMacroCommonValue BuildNested(const Indexes& indexes, std::size_t first, const ValueView& source) {
    CMacroCommonValue value(source);
    for (std::size_t i = indexes.GetCount(); i > first; --i) {
        CMacroCommonValue outer = CMacroCommonValue::Array(SharedArray::Create());
        outer.MutableArray().Set(indexes[i - 1], value.View());
        value = std::move(outer);
    }
    return value;
}

void Store(CMacroCommonValue& variable, const Indexes& indexes, const ValueView& source) {
    if (variable.GetType() != ValueKind::Array) {
        variable = BuildNested(indexes, 0, source);
        return;
    }
    SharedArray* array = &variable.MutableArray();
    std::size_t level = 0;
    for (; level + 1 < indexes.GetCount(); ++level) {
        const std::uint32_t index = indexes[level];
        if (index >= array->GetSize() || array->At(index).eType != ValueKind::Array) break;
        array = &array->MutableArrayAt(index);
    }
    if (level + 1 == indexes.GetCount()) {
        array->Set(indexes[level], source);
    } else {
        array->Set(indexes[level], BuildNested(indexes, level + 1, source).View());
    }
}

}  // namespace

bool StoreElement(CMacroCommonValue& variable, const OperandList& subscripts, const ValueView& source) {
    try {
        Indexes indexes;
        if (!indexes.Resolve(subscripts)) return false;
        // Held, because the source may be an array that contains the element or is contained in it.
        const CMacroCommonValue held(source);
        Store(variable, indexes, held.View());
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace macroengine
