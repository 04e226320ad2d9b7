#include "categories/SystemVariableStore.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <string_view>

#include "categories/NumberText.h"
#include "platform/Environment.h"

namespace macroengine {

namespace {

constexpr int kDigitsBehindPoint = 6;

/// A sign, all digits of the largest number, the point and the digits behind it.
constexpr std::size_t kLongestNumber = std::numeric_limits<double>::max_exponent10 + 4 + kDigitsBehindPoint;

}  // namespace

std::optional<SystemValue> ReadSystemVariable(const std::string& name) {
    const std::string stored = platform::GetEnvironmentText(name).value_or("");
    std::string_view text = stored;
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    // An empty text is no number, but all of it has been read.
    if (stored.empty()) return std::int32_t{0};

    const ConvertedNumber<std::int32_t> integer = ToInteger(text);
    if (integer.length > 0 && integer.length == text.size()) return integer.value;
    const ConvertedNumber<double> floating = ToFloating(text);
    if (floating.length > 0 && floating.length == text.size() && !floating.isOutOfRange)
        return floating.value;
    return std::nullopt;
}

bool WriteSystemVariable(const std::string& name, std::int64_t value) {
    return platform::SetEnvironmentText(name, std::to_string(value));
}

bool WriteSystemVariable(const std::string& name, double value) {
    char text[kLongestNumber];
    const char* const end =
        std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, kDigitsBehindPoint).ptr;
    return platform::SetEnvironmentText(name, std::string(text, static_cast<std::size_t>(end - text)));
}

}  // namespace macroengine
