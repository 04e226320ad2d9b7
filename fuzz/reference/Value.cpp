#include "reference/Value.h"

#include <charconv>
#include <sstream>

namespace macroengine::reference {

int KindCode(const Value& value) {
    if (value.IsArray()) return 6;
    if (value.IsNone()) return 8;
    return static_cast<int>(value.content.index());
}

std::string TextOf(const Value& value) {
    if (value.IsText()) return value.Text();
    if (value.IsBoolean()) return value.Boolean() ? "true" : "false";
    std::ostringstream text;
    if (value.IsInteger()) text << value.Integer();
    if (value.IsFloating()) text << value.Floating();
    return text.str();
}

std::string Describe(const Value& value) {
    switch (KindCode(value)) {
        case 0:
            return "integer " + std::to_string(value.Integer());
        case 1: {
            char digits[64];
            return "floating " +
                   std::string(digits, std::to_chars(digits, digits + 64, value.Floating()).ptr);
        }
        case 2:
            return "text \"" + value.Text() + "\"";
        case 3:
            return value.Boolean() ? "boolean true" : "boolean false";
        case 6: {
            std::string text = "[";
            for (const Value& element : value.Elements())
                text.append(text.size() > 1 ? ", " : "").append(Describe(element));
            return text + "]";
        }
        default:
            return "none";
    }
}

std::size_t SizeOf(const Value& value) {
    std::size_t size = 1;
    if (value.IsText()) size += value.Text().size();
    if (value.IsArray()) {
        for (const Value& element : value.Elements())
            size += SizeOf(element);
    }
    return size;
}

std::int32_t Truncate(double value) {
    constexpr double kTooLarge = 9223372036854775808.0;
    if (!(value >= -kTooLarge && value < kTooLarge)) return 0;
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::int64_t>(value)));
}

}  // namespace macroengine::reference
