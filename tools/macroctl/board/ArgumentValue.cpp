#include "board/ArgumentValue.h"

#include <charconv>

#include <macroengine/ArgumentText.h>
#include <macroengine/CMacroPropertyIF.h>

namespace macroctl {

namespace {

ArgumentKind KindOf(CMacroPropertyIF& property, unsigned int index) {
    return static_cast<ArgumentKind>(property.GetArgType(index));
}

bool IsNumber(ArgumentKind kind) {
    return kind == ArgumentKind::Integer || kind == ArgumentKind::Floating;
}

/// An integer converts exactly, so comparing as floating values loses nothing.
double NumberOf(CMacroPropertyIF& property, unsigned int index) {
    double value = 0;
    property.GetArgFloating(index, 0, 0, value);
    return value;
}

std::string TextOf(CMacroPropertyIF& property, unsigned int index) {
    const char* text = FormatMacroArgument(&property, index);
    return text != nullptr ? text : "";
}

std::string Quoted(const std::string& text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"') result += '\\';
        result += c;
    }
    return result + '"';
}

}  // namespace

bool ArgumentsEqual(CMacroPropertyIF& property, unsigned int left, unsigned int right) {
    const ArgumentKind leftKind = KindOf(property, left);
    const ArgumentKind rightKind = KindOf(property, right);
    if (IsNumber(leftKind) && IsNumber(rightKind))
        return NumberOf(property, left) == NumberOf(property, right);
    return leftKind == rightKind && TextOf(property, left) == TextOf(property, right);
}

std::string DescribeArgument(CMacroPropertyIF& property, unsigned int index, bool exact) {
    const ArgumentKind kind = KindOf(property, index);
    if (kind == ArgumentKind::Text) return Quoted(TextOf(property, index));
    if (kind != ArgumentKind::Floating || !exact) return TextOf(property, index);
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, NumberOf(property, index)).ptr;
    return std::string(digits, end);
}

}  // namespace macroctl
