#pragma once

namespace macroengine {

/// Says that a number was out of range. The conversions of one macro file share it as C functions share
/// errno: whichever meets such a number sets it, all of them look at it after converting, and none clears it.
/// So once a number was out of range, every later conversion of the same run fails as if its own were.
///
/// errno itself will not do: what the host has left there would fail the first conversion of a run.
struct RangeIndicator {
    bool isSet = false;
};

}  // namespace macroengine
