#include "board/SimulatedBoard.h"

#include <macroengine/CMacroFileIF.h>

namespace macroctl {

SimulatedBoard::SimulatedBoard(Console& console, bool trace)
    : tracedRegisters_(registers_, console),
      bus_(trace ? static_cast<RegisterBus&>(tracedRegisters_) : registers_),
      read_("read", console, bus_, BusKind::TwoWire),
      write_("write", console, bus_, BusKind::TwoWire),
      read3_("read3", console, bus_, BusKind::ThreeWire),
      write3_("write3", console, bus_, BusKind::ThreeWire),
      print_(console),
      expect_(console) {}

bool SimulatedBoard::RegisterWith(CMacroFileIF& file) {
    CMacroCategoryBase* const commands[] = {&read_, &write_, &read3_, &write3_, &print_, &expect_};
    for (CMacroCategoryBase* command : commands) {
        if (!file.RegisterCategory(nullptr, command, false)) return false;
    }
    return true;
}

}  // namespace macroctl
