#include "runtime/plan/ElementSteps.h"

#include <new>
#include <stdexcept>

#include "runtime/SharedArray.h"
#include "runtime/plan/StatementSteps.h"

namespace macroengine::plan {

namespace {

/// 0 when the value is an array.
std::uint32_t NotArray(const ValueView& value) {
    return Kind(value) ^ static_cast<std::uint32_t>(ValueKind::Array);
}

/// @return whether the value is of a kind whose copies share nothing.
bool IsPlain(const ValueView& value) {
    return IsNumber(value) || value.eType == ValueKind::Boolean;
}

/// Stores at an index of an array that only its holder holds.
/// @return false when there is no room for it; nothing has changed then.
bool Store(SharedArray& array, std::uint32_t index, const ValueView& value) {
    if (index < array.GetSize()) {
        if (array.IsPacked()) {
            if (value.eType == ValueKind::Integer) {
                array.Integers()[index] = value.integer;
                return true;
            }
        } else {
            ValueView& cell = array.Cells()[index];
            if (IsPlain(cell) && IsPlain(value)) {
                cell = value;
                return true;
            }
        }
    }
    // What is stored may hold the array itself: the statement sees to that.
    if (index >= SharedArray::kIndexLimit || value.eType == ValueKind::Array) return false;
    try {
        array.Set(index, value);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const std::length_error&) {
        return false;
    }
}

}  // namespace

Step* LoadElement(Step* step, Frame& frame) {
    const ValueView& base = *step->left;
    const ValueView& index = *step->right;
    if ((NotArray(base) | Kind(index)) != 0) return RunStatements(step, frame);
    SharedArray& array = *base.array;
    const auto position = static_cast<std::uint32_t>(index.integer);
    if (position >= array.GetSize()) return RunStatements(step, frame);
    if (array.IsPacked()) {
        step->target->eType = ValueKind::Integer;
        step->target->integer = array.Integers()[position];
    } else {
        *step->target = array.Cells()[position];
    }
    return Continue(step + 1, frame);
}

Step* CopyElement(Step* step, Frame& frame) {
    const ValueView& base = *step->left;
    const ValueView& index = *step->right;
    if ((NotArray(base) | Kind(index)) != 0) return RunStatements(step, frame);
    SharedArray& array = *base.array;
    const auto position = static_cast<std::uint32_t>(index.integer);
    if (position >= array.GetSize()) return RunStatements(step, frame);
    ValueView& target = *step->target;
    if (array.IsPacked() && target.eType == ValueKind::Integer) {
        target.integer = array.Integers()[position];
    } else {
        AssignCell(target, array.At(position));
    }
    return Continue(step + 1, frame);
}

Step* StoreElement(Step* step, Frame& frame) {
    ValueView& variable = *step->target;
    const ValueView& index = *step->left;
    const ValueView& source = *step->right;
    if ((NotArray(variable) | Kind(index)) != 0) return RunStatements(step, frame);
    SharedArray& array = *variable.array;
    const auto position = static_cast<std::uint32_t>(index.integer);
    if (array.IsShared() || !IsConcrete(source.eType) || !Store(array, position, source)) {
        return RunStatements(step, frame);
    }
    return Continue(step + 1, frame);
}

Step* StoreNestedElement(Step* step, Frame& frame) {
    ValueView& variable = *step->target;
    const ValueView& outer = *step->left;
    const ValueView& inner = *step->second;
    const ValueView& source = *step->right;
    if ((NotArray(variable) | Kind(outer) | Kind(inner)) != 0) return RunStatements(step, frame);
    SharedArray& rows = *variable.array;
    const auto row = static_cast<std::uint32_t>(outer.integer);
    if (rows.IsShared() || rows.IsPacked() || row >= rows.GetSize()) return RunStatements(step, frame);
    const ValueView& cell = rows.Cells()[row];
    if (cell.eType != ValueKind::Array || cell.array->IsShared() || !IsConcrete(source.eType) ||
        !Store(*cell.array, static_cast<std::uint32_t>(inner.integer), source)) {
        return RunStatements(step, frame);
    }
    return Continue(step + 1, frame);
}

}  // namespace macroengine::plan
