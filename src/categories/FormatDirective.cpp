#include "categories/FormatDirective.h"

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <type_traits>

#include "source/Characters.h"

namespace macroengine {

namespace {

constexpr std::size_t kBufferSize = 1024;

/// More digits than this do not change what %g writes, and need not be asked for.
constexpr std::size_t kMostSignificantDigits = 1100;

bool Contains(std::string_view set, char c) {
    return set.find(c) != std::string_view::npos;
}

std::string_view TakeWhile(std::string_view& rest, bool (*matches)(char)) {
    std::size_t length = 0;
    while (length < rest.size() && matches(rest[length]))
        ++length;
    const std::string_view taken = rest.substr(0, length);
    rest.remove_prefix(length);
    return taken;
}

/// @return the number, or one too large for any buffer.
std::size_t ToCount(std::string_view digits) {
    std::size_t count = 0;
    for (const char digit : digits)
        count = std::min(count * 10 + static_cast<std::size_t>(digit - '0'), kBufferSize * 2);
    return count;
}

/// @return the length of the length modifier that begins the text.
std::size_t ModifierLength(std::string_view rest, FormatDirective::Value value) {
    if (value == FormatDirective::Value::Integer && rest.substr(0, 2) == "hh") return 2;
    if (value == FormatDirective::Value::Integer && rest.substr(0, 1) == "h") return 1;
    return value != FormatDirective::Value::String && rest.substr(0, 1) == "l" ? 1 : 0;
}

std::string_view ConversionsFor(FormatDirective::Value value) {
    switch (value) {
        case FormatDirective::Value::Integer:
            return "diouxXc";
        case FormatDirective::Value::Floating:
            return "eEfFgGaA";
        default:
            return "s";
    }
}

/// The process may have set a locale with another decimal point.
void UsePoint(std::string& number) {
    const std::string_view point = std::localeconv()->decimal_point;
    if (point == "." || point.empty()) return;
    const std::size_t found = number.find(point);
    if (found != std::string::npos) number.replace(found, point.size(), ".");
}

}  // namespace

bool FormatDirective::Parse(std::string_view format, Value value) {
    std::string* text = &before_;
    while (!format.empty()) {
        const char c = format.front();
        format.remove_prefix(1);
        if (c != '%') {
            *text += c;
        } else if (!format.empty() && format.front() == '%') {
            *text += '%';
            format.remove_prefix(1);
        } else {
            if (!directive_.empty() || !ParseConversion(format, value)) return false;
            text = &after_;
        }
    }
    return true;
}

bool FormatDirective::ParseConversion(std::string_view& rest, Value value) {
    const std::string_view flags = TakeWhile(rest, [](char c) { return Contains("-+ #0", c); });
    const std::string_view width = TakeWhile(rest, IsDigit);
    const bool hasPrecision = !rest.empty() && rest.front() == '.';
    std::string_view precision;
    if (hasPrecision) {
        rest.remove_prefix(1);
        precision = TakeWhile(rest, IsDigit);
    }
    std::string_view modifier = rest.substr(0, ModifierLength(rest, value));
    rest.remove_prefix(modifier.size());
    if (rest.empty() || !Contains(ConversionsFor(value), rest.front())) return false;
    const char conversion = rest.front();
    rest.remove_prefix(1);

    // The value has 32 bits on every platform, whatever the width of long.
    if (modifier == "l") modifier = {};
    std::size_t digits = ToCount(precision);
    if (conversion == 'g' || conversion == 'G') digits = std::min(digits, kMostSignificantDigits);
    const bool cuts = Contains("sc", conversion);
    tooWide_ =
        ToCount(width) >= kBufferSize || (!cuts && !Contains("gG", conversion) && digits >= kBufferSize);
    directive_.append("%").append(flags).append(width);
    if (hasPrecision) directive_.append(".").append(std::to_string(digits));
    directive_.append(modifier).append(1, conversion);
    return true;
}

template <class Argument>
bool FormatDirective::FormatValue(Argument value, std::string& text) const {
    std::string piece;
    if (!directive_.empty()) {
        if (tooWide_) return false;
        char buffer[kBufferSize];
        const int length = std::snprintf(buffer, sizeof buffer, directive_.c_str(), value);
        if (length < 0 || static_cast<std::size_t>(length) >= sizeof buffer) return false;
        piece.assign(buffer, static_cast<std::size_t>(length));
        if (std::is_same_v<Argument, double>) UsePoint(piece);
    }
    text = before_ + piece + after_;
    return text.size() < kBufferSize;
}

bool FormatDirective::Format(std::int32_t value, std::string& text) const {
    return FormatValue(value, text);
}
bool FormatDirective::Format(double value, std::string& text) const {
    return FormatValue(value, text);
}
bool FormatDirective::Format(const char* value, std::string& text) const {
    return FormatValue(value, text);
}

}  // namespace macroengine
