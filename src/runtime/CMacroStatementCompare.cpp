#include "runtime/CMacroStatementCompare.h"

namespace macroengine {

namespace {

/// Compares two of the same type; `&&` and `||` take whatever differs from the default of the type as true.
template <class Value>
bool Holds(Operator op, Value left, Value right) {
    switch (op) {
        case Operator::Equal:
            return left == right;
        case Operator::NotEqual:
            return left != right;
        case Operator::Less:
            return left < right;
        case Operator::LessOrEqual:
            return left <= right;
        case Operator::Greater:
            return left > right;
        case Operator::GreaterOrEqual:
            return left >= right;
        case Operator::LogicalAnd:
            return left != Value() && right != Value();
        case Operator::LogicalOr:
            return left != Value() || right != Value();
        default:
            return false;
    }
}

bool IsTextOrBoolean(const ValueView& value) {
    return value.eType == ValueKind::String || value.eType == ValueKind::Boolean;
}

void ToFloating(ValueView& value) {
    if (value.eType == ValueKind::Integer) value = ValueView::Floating(value.integer);
}

}  // namespace

CMacroStatementCompare::CMacroStatementCompare(SourceUnit& unit, std::uint32_t line)
    : CMacroStatementBase(Kind::Compare, unit, line) {}

bool CMacroStatementCompare::vfRun() {
    ValueView left;
    ValueView right;
    if (!Resolve(left_, left) || !Resolve(right_, right)) return false;
    if (left.eType != right.eType) {
        if (IsTextOrBoolean(left) || IsTextOrBoolean(right)) return Fail("Can't compare string and value.");
        ToFloating(left);
        ToFloating(right);
    }
    bool result = false;
    if (!CompareLikes(left, right, result)) return false;
    result_ = CMacroCommonValue::Boolean(result);
    return true;
}

bool CMacroStatementCompare::CompareLikes(const ValueView& left, const ValueView& right, bool& result) {
    if (left.eType == ValueKind::Array || right.eType == ValueKind::Array) return Fail("Can't compare array");
    switch (left.eType) {
        case ValueKind::Integer:
            result = Holds(operator_, left.integer, right.integer);
            return true;
        case ValueKind::Floating:
            result = Holds(operator_, left.floating, right.floating);
            return true;
        case ValueKind::Boolean:
            result = Holds(operator_, left.boolean, right.boolean);
            return true;
        case ValueKind::String:
            return CompareTexts(left.Text(), right.Text(), result);
        default:
            return Fail("internal error : CMacroStatementCompare::vfRun");
    }
}

bool CMacroStatementCompare::CompareTexts(std::string_view left, std::string_view right, bool& result) {
    if (operator_ == Operator::LogicalAnd) return Fail("Can't compare string by \"&&\" operand.");
    if (operator_ == Operator::LogicalOr) return Fail("Can't compare string by \"||\" operand.");
    result = Holds(operator_, left, right);
    return true;
}

}  // namespace macroengine
