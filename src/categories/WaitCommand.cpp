#include "categories/WaitCommand.h"

#include <cstdint>

#include "macroengine/CMacroPropertyIF.h"
#include "platform/Clock.h"

namespace macroengine {

bool CMacroCategoryCmdWaitms_waitms::Run(CMacroPropertyIF* property) {
    int milliseconds = 0;
    if (property->CheckArgumentCount(1, 1) < 0) return false;
    if (!property->GetArgInteger(0, 0, 0, milliseconds)) return false;
    if (!property->CheckNoAssignedValue(false)) return false;
    if (milliseconds > 0) platform::SleepMilliseconds(static_cast<std::uint32_t>(milliseconds));
    return true;
}

}  // namespace macroengine
