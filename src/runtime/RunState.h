#pragma once

#include <cstdint>

namespace macroengine {

/// The state of a program. The word that holds it is all that threads share.
enum class RunState : std::int32_t {
    Empty = 0,
    Loading = 1,
    Loaded = 2,
    Running = 3,
    StepRunning = 4,  ///< executes one group, then pauses
    Breaking = 5,     ///< paused
    Finished = 6,
    Aborting = 7,
    Aborted = 8,
    Failed = 9
};

}  // namespace macroengine
