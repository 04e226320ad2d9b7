#include "categories/SystemTimeCommands.h"

#include <cstdint>

#include "categories/ArgumentRange.h"
#include "macroengine/CMacroPropertyIF.h"
#include "platform/Clock.h"

namespace macroengine {

namespace {

/// What a time that the system can't represent is taken for.
constexpr platform::LocalTime kNoTime{1970, 1, 1, 0, 0, 0};

int PartOf(const platform::LocalTime& time, int part) {
    const int parts[] = {time.year, time.month, time.day, time.hour, time.minute, time.second};
    return parts[part];
}

}  // namespace

bool CMacroCategorySystem_GetTimeLocal::Run(CMacroPropertyIF* property) {
    int part = 0;
    int seconds = 0;
    if (property->CheckArgumentCount(2, 2) < 0 || !ReadInRange(property, 0, 0, 5, part) ||
        !property->GetArgInteger(1, 0, 0, seconds) || !property->CheckNoAssignedValue(false)) {
        return false;
    }
    // The integers of the language count on behind 2^31 - 1 as negative numbers.
    const auto time = platform::ToLocalTime(static_cast<std::uint32_t>(seconds));
    return property->SetResultInteger(PartOf(time.value_or(kNoTime), part));
}

bool CMacroCategorySystem_GetTimeSerial::Run(CMacroPropertyIF* property) {
    if (property->CheckArgumentCount(0, 0) < 0 || !property->CheckNoAssignedValue(false)) return false;
    const auto seconds = static_cast<std::uint32_t>(platform::SecondsSince1970());
    return property->SetResultInteger(static_cast<int>(seconds));
}

}  // namespace macroengine
