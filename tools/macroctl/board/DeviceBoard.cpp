#include "board/DeviceBoard.h"

#include <macroengine/CMacroFileIF.h>

namespace macroctl {

DeviceBoard::DeviceBoard(const DeviceMap& map, Console& console, bool trace)
    : registers_(map),
      tracedRegisters_(registers_, console),
      access_{map, registers_, trace ? static_cast<RegisterBus&>(tracedRegisters_) : registers_, console},
      read_("read", access_, BusKind::TwoWire),
      write_("write", Operation::Write, access_, BusKind::TwoWire),
      preset_("preset", Operation::Preset, access_, BusKind::TwoWire),
      read3_("read3", access_, BusKind::ThreeWire),
      write3_("write3", Operation::Write, access_, BusKind::ThreeWire),
      preset3_("preset3", Operation::Preset, access_, BusKind::ThreeWire),
      print_(console),
      expect_(console) {}

bool DeviceBoard::RegisterWith(CMacroFileIF& file) {
    CMacroCategoryBase* const commands[] = {&read_,   &write_,   &preset_, &read3_,
                                            &write3_, &preset3_, &print_,  &expect_};
    for (CMacroCategoryBase* command : commands) {
        if (!file.RegisterCategory(nullptr, command, false)) return false;
    }
    return true;
}

}  // namespace macroctl
