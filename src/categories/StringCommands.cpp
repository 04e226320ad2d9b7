#include "categories/StringCommands.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "categories/ArgumentRange.h"
#include "categories/FormatDirective.h"
#include "macroengine/CMacroPropertyIF.h"
#include "runtime/ValueView.h"

namespace macroengine {

namespace {

constexpr int kMinWidth = 1;
constexpr int kMaxWidth = 32;

/// The hexadecimal digits of the largest number.
constexpr int kLongestHexadecimal = 8;

/// Digits filled up from the left to a width, in a buffer of their own.
class PaddedDigits {
public:
    PaddedDigits(const char* first, const char* last, int width, char padding) {
        const auto length = static_cast<std::size_t>(last - first);
        const std::size_t wanted = static_cast<std::size_t>(width);
        const std::size_t fill = wanted > length ? wanted - length : 0;
        // Zeros go between the sign and the digits, blanks before the sign.
        const std::size_t sign = padding == '0' && *first == '-' ? 1 : 0;
        std::memcpy(text_, first, sign);
        std::memset(text_ + sign, padding, fill);
        std::memcpy(text_ + sign + fill, first + sign, length - sign);
        text_[fill + length] = '\0';
    }

    const char* Get() const { return text_; }

private:
    char text_[kMaxWidth + 16];
};

bool FormatByKind(CMacroPropertyIF* property, const char* format, std::string& text) {
    FormatDirective directive;
    const auto suits = [&](FormatDirective::Value value) {
        if (directive.Parse(format, value)) return true;
        property->AddErrorMessage("string.format() argument error. (format does not suit the value)");
        return false;
    };
    switch (static_cast<ValueKind>(property->GetArgType(1))) {
        case ValueKind::Integer:
        case ValueKind::ResultReference: {
            // The engine resolves a reference before a call; a plug-in's interface may answer for it.
            int value = 0;
            return property->GetArgInteger(1, 0, 0, value) && suits(FormatDirective::Value::Integer) &&
                   directive.Format(std::int32_t{value}, text);
        }
        case ValueKind::Floating: {
            double value = 0.0;
            return property->GetArgFloating(1, 0, 0, value) && suits(FormatDirective::Value::Floating) &&
                   directive.Format(value, text);
        }
        case ValueKind::String: {
            const char* const value = property->GetArgString(1);
            return value != nullptr && suits(FormatDirective::Value::String) && directive.Format(value, text);
        }
        default:
            // There is no conversion for any other kind: its text is empty.
            return true;
    }
}

}  // namespace

bool CMacroCategoryCmdString_Format::Run(CMacroPropertyIF* property) {
    if (property->CheckArgumentCount(2, 2) < 0 || !property->CheckNoAssignedValue(false)) return false;
    const char* const format = property->GetArgString(0);
    if (format == nullptr || *format == '\0') {
        property->AddErrorMessage("Error: format string is null.");
        return false;
    }
    std::string text;
    return FormatByKind(property, format, text) && property->SetResultString(text.c_str());
}

bool CMacroCategoryCmdString_int2Hexstr::Run(CMacroPropertyIF* property) {
    int value = 0;
    int width = 0;
    const int count = property->CheckArgumentCount(1, 2);
    if (count < 0 || !property->GetArgInteger(0, 0, 0, value)) return false;
    if (count > 1 && !ReadInRange(property, 1, kMinWidth, kMaxWidth, width)) return false;
    if (!property->CheckNoAssignedValue(false)) return false;

    const auto number = static_cast<std::uint32_t>(value);
    int length = std::max(width, 1);
    while (length < kLongestHexadecimal && number >> (4 * length) != 0)
        ++length;
    char digits[kMaxWidth + 1];
    digits[length] = '\0';
    auto rest = number;
    for (int i = length; i > 0; rest /= 16)
        digits[--i] = "0123456789ABCDEF"[rest % 16];
    return property->SetResultString(digits);
}

bool CMacroCategoryCmdString_int2Decstr::Run(CMacroPropertyIF* property) {
    int value = 0;
    int width = 0;
    int padding = 1;
    const int count = property->CheckArgumentCount(1, 3);
    if (count < 0 || !property->GetArgInteger(0, 0, 0, value)) return false;
    if (count > 1 && !ReadInRange(property, 1, kMinWidth, kMaxWidth, width)) return false;
    if (count > 2 && !ReadInRange(property, 2, 0, 1, padding)) return false;
    if (!property->CheckNoAssignedValue(false)) return false;

    char digits[16] = {};
    const char* const last = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return property->SetResultString(PaddedDigits(digits, last, width, padding == 0 ? '0' : ' ').Get());
}

}  // namespace macroengine
