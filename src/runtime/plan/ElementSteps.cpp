#include "runtime/plan/ElementSteps.h"

#include <new>

#include "runtime/SharedArray.h"
#include "runtime/plan/StatementSteps.h"

namespace macroengine::plan {

namespace {

using Form = SharedArray::Form;

/// 0 when the value is an array.
std::uint32_t NotArray(const ValueView& value) {
    return Kind(value) ^ static_cast<std::uint32_t>(ValueKind::Array);
}

bool HasElement(const ValueView& base, const ValueView& index) {
    return (NotArray(base) | Kind(index)) == 0 &&
           static_cast<std::uint32_t>(index.integer) < base.array->GetSize();
}

/// Finds the array that holds the last of two subscripts' element.
/// @return null when there is no such element.
SharedArray* FindRow(const Step& step) {
    if (!HasElement(*step.left, *step.right) || step.left->array->GetForm() != Form::Cells) return nullptr;
    const ValueView& row = step.left->array->Cells()[step.right->integer];
    return HasElement(row, *step.second) ? row.array : nullptr;
}

/// Lets a step see an element, which stays the array's.
void Load(ValueView& target, const SharedArray& array, std::uint32_t index) {
    if (array.GetForm() == Form::Integers) {
        target.eType = ValueKind::Integer;
        target.integer = array.Integers()[index];
    } else if (array.GetForm() == Form::Floatings) {
        target.eType = ValueKind::Floating;
        target.floating = array.Floatings()[index];
    } else {
        target = array.Cells()[index];
    }
}

/// Copies an element to a variable where both are integers.
/// @return false when they are not.
bool CopyInteger(ValueView& variable, const SharedArray& array, std::uint32_t index) {
    if (variable.eType != ValueKind::Integer || array.GetForm() != Form::Integers) return false;
    variable.integer = array.Integers()[index];
    return true;
}

/// Stores what needs more than an element written over.
/// @return false when only the statement can do it; nothing has changed then.
bool StoreInGeneral(SharedArray& array, std::uint32_t index, const ValueView& value) {
    // What is stored may hold the array itself: the statement sees to that.
    if (value.eType == ValueKind::Array || !IsConcrete(value.eType)) return false;
    try {
        array.Set(index, value);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

/// Stores into an array that only its holder holds.
/// @return false when only the statement can do it; nothing has changed then.
bool Store(SharedArray& array, std::int32_t index, const ValueView& value) {
    const auto position = static_cast<std::uint32_t>(index);
    if (position >= SharedArray::kIndexLimit) return false;
    if (position < array.GetSize() && IsConcrete(value.eType) && array.Overwrite(position, value))
        return true;
    return StoreInGeneral(array, position, value);
}

}  // namespace

Step* LoadElement(Step* step, Frame& frame) {
    if (!HasElement(*step->left, *step->right)) return RunStatements(step, frame);
    Load(*step->target, *step->left->array, static_cast<std::uint32_t>(step->right->integer));
    return Continue(step + 1, frame);
}

Step* LoadNestedElement(Step* step, Frame& frame) {
    const SharedArray* const row = FindRow(*step);
    if (row == nullptr) return RunStatements(step, frame);
    Load(*step->target, *row, static_cast<std::uint32_t>(step->second->integer));
    return Continue(step + 1, frame);
}

Step* CopyElement(Step* step, Frame& frame) {
    if (!HasElement(*step->left, *step->right)) return RunStatements(step, frame);
    const SharedArray& array = *step->left->array;
    const auto index = static_cast<std::uint32_t>(step->right->integer);
    if (CopyInteger(*step->target, array, index)) return Continue(step + 1, frame);
    AssignCell(*step->target, array.At(index));
    return step + 1;
}

Step* CopyNestedElement(Step* step, Frame& frame) {
    const SharedArray* const row = FindRow(*step);
    if (row == nullptr) return RunStatements(step, frame);
    const auto index = static_cast<std::uint32_t>(step->second->integer);
    if (CopyInteger(*step->target, *row, index)) return Continue(step + 1, frame);
    AssignCell(*step->target, row->At(index));
    return step + 1;
}

Step* StoreElement(Step* step, Frame& frame) {
    const ValueView& variable = *step->target;
    const ValueView& index = *step->left;
    const ValueView& source = *step->right;
    if ((NotArray(variable) | Kind(index)) != 0 || variable.array->IsShared()) {
        return RunStatements(step, frame);
    }
    if (source.eType == ValueKind::Integer &&
        variable.array->StoreInteger(static_cast<std::uint32_t>(index.integer), source.integer)) {
        return Continue(step + 1, frame);
    }
    if (!Store(*variable.array, index.integer, source)) return RunStatements(step, frame);
    return Continue(step + 1, frame);
}

Step* StoreNestedElement(Step* step, Frame& frame) {
    const ValueView& variable = *step->target;
    const ValueView& outer = *step->left;
    const ValueView& inner = *step->second;
    if (!HasElement(variable, outer) || Kind(inner) != 0 || variable.array->IsShared() ||
        variable.array->GetForm() != Form::Cells ||
        static_cast<std::uint32_t>(outer.integer) >= SharedArray::kIndexLimit) {
        return RunStatements(step, frame);
    }
    const ValueView& row = variable.array->Cells()[outer.integer];
    if (row.eType != ValueKind::Array || row.array->IsShared() ||
        !Store(*row.array, inner.integer, *step->right)) {
        return RunStatements(step, frame);
    }
    return Continue(step + 1, frame);
}

}  // namespace macroengine::plan
