#include "reference/Operations.h"

#include <cstdint>

namespace macroengine::reference {

namespace {

bool OperateIntegers(const std::string& operation, std::int32_t left, std::int32_t right, Value& result,
                     std::string& error) {
    const auto a = static_cast<std::uint32_t>(left);
    const auto b = static_cast<std::uint32_t>(right);
    std::uint32_t value = 0;
    if (operation == "+") value = a + b;
    if (operation == "-") value = a - b;
    if (operation == "*") value = a * b;
    if (operation == "&") value = a & b;
    if (operation == "|") value = a | b;
    if (operation == "<<" && b < 32) value = a << b;
    if (operation == ">>" && b < 32) value = a >> b;
    if (operation == "/") {
        if (b == 0) {
            error = "0 division.";
            return false;
        }
        value = a / b;
    }
    result = Value{static_cast<std::int32_t>(value)};
    return true;
}

double OperateFloating(const std::string& operation, double left, double right) {
    if (operation == "+") return left + right;
    if (operation == "-") return left - right;
    if (operation == "*") return left * right;
    return left / right;
}

template <class T>
bool CompareAs(const std::string& operation, const T& left, const T& right) {
    if (operation == "==") return left == right;
    if (operation == "!=") return left != right;
    if (operation == "<") return left < right;
    if (operation == "<=") return left <= right;
    if (operation == ">") return left > right;
    if (operation == ">=") return left >= right;
    if (operation == "&&") return left != T() && right != T();
    return left != T() || right != T();
}

double AsFloating(const Value& value) {
    return value.IsInteger() ? value.Integer() : value.Floating();
}

}  // namespace

bool Operate(const std::string& operation, const Value& left, const Value& right, Value& result,
             std::string& error) {
    if (left.IsText() || right.IsText()) {
        if (operation != "+") {
            error =
                "Can't execute subtraction, multiplication or division, because the source values include "
                "both "
                "string and integer.";
            return false;
        }
        if (!left.IsArray() && !right.IsArray()) {
            result = Value{TextOf(left) + TextOf(right)};
            return true;
        }
    }
    if (left.IsArray() || right.IsArray()) {
        error = "Array variable cannot be calculated.";
        return false;
    }
    if (operation == "&" || operation == "|" || operation == "<<" || operation == ">>") {
        if (!left.IsInteger() || !right.IsInteger()) {
            error = "Using \"" + operation + "\" operator, the statement has to be numerical value.";
            return false;
        }
        return OperateIntegers(operation, left.Integer(), right.Integer(), result, error);
    }
    const bool isZero =
        (right.IsInteger() && right.Integer() == 0) || (right.IsFloating() && right.Floating() == 0.0);
    if (operation == "/" && isZero) {
        error = "0 division.";
        return false;
    }
    if (left.IsBoolean() && operation != "+") {
        result = Value{std::string()};
        return true;
    }
    if (left.IsBoolean() || right.IsBoolean()) {
        error = "internal error : CMacroStatementOperate::vfRun";
        return false;
    }
    if (left.IsFloating()) {
        result = Value{OperateFloating(operation, left.Floating(), AsFloating(right))};
        return true;
    }
    const std::int32_t divisor = right.IsInteger() ? right.Integer() : Truncate(right.Floating());
    return OperateIntegers(operation, left.Integer(), divisor, result, error);
}

bool Compare(const std::string& operation, const Value& left, const Value& right, Value& result,
             std::string& error) {
    if (KindCode(left) != KindCode(right) &&
        (left.IsText() || right.IsText() || left.IsBoolean() || right.IsBoolean())) {
        error = "Can't compare string and value.";
        return false;
    }
    if (left.IsArray() || right.IsArray()) {
        error = "Can't compare array";
        return false;
    }
    if (left.IsText() && (operation == "&&" || operation == "||")) {
        error = "Can't compare string by \"" + operation + "\" operand.";
        return false;
    }
    if (left.IsText()) {
        result = Value{CompareAs(operation, left.Text(), right.Text())};
    } else if (left.IsBoolean()) {
        result = Value{CompareAs(operation, left.Boolean(), right.Boolean())};
    } else if (left.IsInteger() && right.IsInteger()) {
        result = Value{CompareAs(operation, left.Integer(), right.Integer())};
    } else {
        result = Value{CompareAs(operation, AsFloating(left), AsFloating(right))};
    }
    return true;
}

}  // namespace macroengine::reference
