#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "macroengine/Limits.h"
#include "runtime/ValueMeter.h"

namespace macroengine {

/// Holds one run to its limits.
class RunMeter {
public:
    /// @param valueBytes  what the values of the program take at the start.
    RunMeter(const MacroLimits& limits, std::size_t valueBytes);

    /// Counts statements that are about to run.
    /// @return false when a limit is met: none of them is to run.
    bool Take(std::uint32_t statements) {
        if (statements > statementsLeft_) return false;
        if (++checks_ % kChecksPerLook == 0) LookAtClock();
        if (isLate_ || values_.IsExceeded()) return false;
        statementsLeft_ -= statements;
        return true;
    }

    /// Takes back statements that were counted and did not run.
    void GiveBack(std::uint32_t statements) { statementsLeft_ += statements; }

    /// Looks at the clock at once: after what may have taken long.
    void LookAtClock();

    /// Whether the statement that has just failed has done so for a limit.
    bool HasFailedStatement() const { return values_.IsExceeded(); }

    /// @return what the run is ended with, which names the limit that was met.
    std::string GetMessage() const;

private:
    static constexpr std::uint32_t kChecksPerLook = 256;

    MacroLimits limits_;
    std::uint64_t statementsLeft_;
    std::uint32_t checks_ = 0;
    bool isLate_ = false;
    std::chrono::steady_clock::time_point end_;
    ValueMeter values_;
};

}  // namespace macroengine
