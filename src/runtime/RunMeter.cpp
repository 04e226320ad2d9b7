#include "runtime/RunMeter.h"

#include <limits>
#include <string_view>

#include "runtime/ValueText.h"

namespace macroengine {

namespace {

using Clock = std::chrono::steady_clock;

/// @return the time so many seconds from now, or the last one there is.
Clock::time_point After(double seconds) {
    const Clock::time_point now = Clock::now();
    const std::chrono::duration<double> wanted(seconds);
    const std::chrono::duration<double> most = Clock::time_point::max() - now;
    if (wanted >= most) return Clock::time_point::max();
    return now + std::chrono::duration_cast<Clock::duration>(wanted);
}

}  // namespace

RunMeter::RunMeter(const MacroLimits& limits, std::size_t valueBytes)
    : limits_(limits),
      statementsLeft_(limits.statements == 0 ? std::numeric_limits<std::uint64_t>::max() : limits.statements),
      end_(limits.seconds > 0.0 ? After(limits.seconds) : Clock::time_point::max()),
      values_(limits.valueBytes, valueBytes) {}

void RunMeter::LookAtClock() {
    if (limits_.seconds > 0.0 && Clock::now() >= end_) isLate_ = true;
}

std::string RunMeter::GetMessage() const {
    std::string message = "Macro aborted. (limit of ";
    if (values_.IsExceeded()) {
        message += std::to_string(limits_.valueBytes) + " bytes of values";
    } else if (isLate_) {
        message += std::string(ValueText(ValueView::Floating(limits_.seconds)).Get()) + " seconds";
    } else {
        message += std::to_string(limits_.statements) + " statements";
    }
    return message + ")";
}

}  // namespace macroengine
