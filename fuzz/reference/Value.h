#pragma once

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace macroengine::reference {

/// A value of the language as plainly as C++ can say it: a copy is a copy.
struct Value {
    using Array = std::vector<Value>;
    /// In the order of the kinds' codes, which is no code for arrays (6) and none (8).
    std::variant<std::int32_t, double, std::string, bool, Array, std::monostate> content = std::monostate();

    bool IsInteger() const { return std::holds_alternative<std::int32_t>(content); }
    bool IsFloating() const { return std::holds_alternative<double>(content); }
    bool IsText() const { return std::holds_alternative<std::string>(content); }
    bool IsBoolean() const { return std::holds_alternative<bool>(content); }
    bool IsArray() const { return std::holds_alternative<Array>(content); }
    bool IsNone() const { return std::holds_alternative<std::monostate>(content); }

    std::int32_t Integer() const { return std::get<std::int32_t>(content); }
    double Floating() const { return std::get<double>(content); }
    const std::string& Text() const { return std::get<std::string>(content); }
    bool Boolean() const { return std::get<bool>(content); }
    const Array& Elements() const { return std::get<Array>(content); }
    Array& Elements() { return std::get<Array>(content); }
};

using Variables = std::map<std::string, Value>;

/// @return what scripts and commands see of the kind: 0 integer, 1 floating, 2 text, 3 boolean, 6 array.
int KindCode(const Value& value);

/// @return the value as text: what a join with a text makes of it. Not for arrays.
std::string TextOf(const Value& value);

/// @return the kind and the exact content, in the words of tests/support/ValueDescription.h.
std::string Describe(const Value& value);

/// @return how much memory a value takes, in elements and bytes of text.
std::size_t SizeOf(const Value& value);

/// @return the floating value without its fraction, as far as 32 bits hold it; 0 where 64 bits don't.
std::int32_t Truncate(double value);

}  // namespace macroengine::reference
