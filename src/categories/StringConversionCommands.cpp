#include "categories/StringConversionCommands.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "categories/CommandFailure.h"
#include "categories/NumberText.h"
#include "categories/TrimSpaces.h"
#include "macroengine/CMacroPropertyIF.h"
#include "source/Characters.h"

namespace macroengine {

namespace {

constexpr const char* kNoHexadecimal = "Error: Can't be converted to decimal a hexadecimal.";
constexpr const char* kStoppedHexadecimal = "Error: Can't be converted to adecimal a hexadecimal.";
constexpr const char* kNoDecimal = "Error: Can't be converted to decimal a string.";
constexpr const char* kNoFloating = "Error: Can't be converted to float a string.";

bool ReadTarget(CMacroPropertyIF* property, std::string_view& text) {
    if (property->CheckArgumentCount(1, 1) < 0) return false;
    const char* const target = property->GetArgString(0);
    if (target == nullptr || *target == '\0') return Fail(property, "Error: target string is null.");
    if (!property->CheckNoAssignedValue(false)) return false;
    text = TrimSpaces(target);
    return true;
}

std::size_t SignLength(std::string_view text) {
    return !text.empty() && (text.front() == '+' || text.front() == '-') ? 1 : 0;
}

/// @return the text up to the end of the number at its start; of a text without one its sign.
std::string_view KeepNumber(std::string_view text, std::size_t length) {
    return text.substr(0, std::max(length, SignLength(text)));
}

/// @return the text up to where, behind its sign, something else begins than digits with one point.
std::string_view KeepDigitsAndPoint(std::string_view text) {
    std::size_t end = SignLength(text);
    for (bool hasPoint = false; end < text.size(); ++end) {
        if (text[end] == '.' && !hasPoint) {
            hasPoint = true;
        } else if (!IsDigit(text[end])) {
            break;
        }
    }
    return text.substr(0, end);
}

/// Takes "0x" away from a number that has it behind its sign.
/// @param storage  holds the text when its parts have to be joined.
std::string_view RemovePrefix(std::string_view text, std::string& storage) {
    const std::size_t start = SignLength(text);
    const std::string_view number = text.substr(start);
    if (number.size() < 2 || number[0] != '0' || (number[1] != 'x' && number[1] != 'X')) return text;
    if (start == 0) return number.substr(2);
    storage.assign(text.substr(0, start)).append(number.substr(2));
    return storage;
}

/// The range comes first: it does not matter whether there was a number at all.
template <class Number>
bool Check(CMacroPropertyIF* property, std::string_view text, const ConvertedNumber<Number>& number,
           RangeIndicator& indicator, const char* stopped) {
    if (number.isOutOfRange) indicator.isSet = true;
    if (indicator.isSet) return Fail(property, "Error: " + std::string(text) + " is out of range");
    if (number.value == 0 && number.length < text.size()) return Fail(property, stopped);
    return true;
}

}  // namespace

CMacroCategoryCmdString_Hex2Dec::CMacroCategoryCmdString_Hex2Dec(const char* category, const char* property,
                                                                 RangeIndicator& indicator)
    : CMacroCategoryBase(category, property, true, false, ""), indicator_(indicator) {}

bool CMacroCategoryCmdString_Hex2Dec::Run(CMacroPropertyIF* property) {
    std::string storage;
    std::string_view text;
    if (!ReadTarget(property, text)) return false;
    text = RemovePrefix(text, storage);
    const auto number = ToUnsigned(text, 16);
    text = KeepNumber(text, number.length);
    if (text.empty()) return Fail(property, kNoHexadecimal);
    return Check(property, text, number, indicator_, kStoppedHexadecimal) &&
           property->SetResultInteger(static_cast<int>(number.value));
}

CMacroCategoryCmdString_Str2Dec::CMacroCategoryCmdString_Str2Dec(const char* category, const char* property,
                                                                 RangeIndicator& indicator)
    : CMacroCategoryBase(category, property, true, false, ""), indicator_(indicator) {}

bool CMacroCategoryCmdString_Str2Dec::Run(CMacroPropertyIF* property) {
    std::string_view text;
    if (!ReadTarget(property, text)) return false;
    const auto number = ToUnsigned(text, 10);
    text = KeepNumber(text, number.length);
    if (text.empty()) return Fail(property, kNoDecimal);
    return Check(property, text, number, indicator_, kNoDecimal) &&
           property->SetResultInteger(static_cast<int>(number.value));
}

CMacroCategoryCmdString_Str2Float::CMacroCategoryCmdString_Str2Float(const char* category,
                                                                     const char* property,
                                                                     RangeIndicator& indicator)
    : CMacroCategoryBase(category, property, true, false, ""), indicator_(indicator) {}

bool CMacroCategoryCmdString_Str2Float::Run(CMacroPropertyIF* property) {
    std::string_view text;
    if (!ReadTarget(property, text)) return false;
    text = KeepDigitsAndPoint(text);
    if (text.empty()) return Fail(property, kNoFloating);
    const auto number = ToFloating(text);
    return Check(property, text, number, indicator_, kNoFloating) &&
           property->SetResultFloating(number.value);
}

}  // namespace macroengine
