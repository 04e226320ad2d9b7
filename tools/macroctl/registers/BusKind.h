#pragma once

namespace macroctl {

/// A board has two register spaces, told apart by the bus that reaches them.
enum class BusKind { TwoWire, ThreeWire };

constexpr BusKind kBuses[] = {BusKind::TwoWire, BusKind::ThreeWire};

}  // namespace macroctl
