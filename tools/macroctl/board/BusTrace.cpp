#include "board/BusTrace.h"

#include <cstdio>

#include "macro/Console.h"

namespace macroctl {

namespace {

const char* WireText(BusKind bus) {
    return bus == BusKind::TwoWire ? "2-wire" : "3-wire";
}

}  // namespace

void BusTrace::WriteLine(BusKind bus, const char* direction, std::uint32_t address, const char* arrow,
                         std::uint8_t value) {
    char line[64];
    std::snprintf(line, sizeof line, "bus %s %s 0x%04X %s 0x%02X\n", WireText(bus), direction,
                  static_cast<unsigned int>(address), arrow, static_cast<unsigned int>(value));
    console_.Trace(line);
}

std::uint8_t BusTrace::Read(BusKind bus, std::uint32_t address) {
    const std::uint8_t value = target_.Read(bus, address);
    WriteLine(bus, "read", address, "->", value);
    return value;
}

void BusTrace::Write(BusKind bus, std::uint32_t address, std::uint8_t value) {
    target_.Write(bus, address, value);
    WriteLine(bus, "write", address, "<-", value);
}

}  // namespace macroctl
