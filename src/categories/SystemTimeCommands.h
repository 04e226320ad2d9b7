#pragma once

#include "macroengine/CMacroCategoryBase.h"

namespace macroengine {

/// `n = system.get_time_local(part, seconds)`: the year, month, day, hour, minute or second, for 0 to 5 in this
/// order, of a time in the time zone of the system.
class CMacroCategorySystem_GetTimeLocal : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

/// `seconds = system.get_time_serial()`: the seconds since 1970-01-01 00:00 UTC.
class CMacroCategorySystem_GetTimeSerial : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

}  // namespace macroengine
