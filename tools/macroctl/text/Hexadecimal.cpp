#include "text/Hexadecimal.h"

#include <cinttypes>
#include <cstdio>

namespace macroctl {

std::string Hexadecimal(std::uint64_t value, int digits) {
    char text[32];
    std::snprintf(text, sizeof text, "0x%0*" PRIX64, digits, value);
    return text;
}

}  // namespace macroctl
