#include "registers/Register.h"

#include <algorithm>

namespace macroctl {

bool CanRead(Access access) {
    return access == Access::ReadOnly || access == Access::ReadWrite;
}

bool CanWrite(Access access) {
    return access == Access::WriteOnly || access == Access::ReadWrite;
}

const char* AccessText(Access access) {
    switch (access) {
        case Access::ReadOnly:
            return "RO";
        case Access::WriteOnly:
            return "WO";
        case Access::ReadWrite:
            return "RW";
        case Access::NotConnected:
            break;
    }
    return "NC";
}

void ForEachPart(const Register& reg, const RegisterPlace& place,
                 const std::function<void(const RegisterPart&)>& visit) {
    const unsigned int count = reg.ByteCount();
    for (unsigned int i = 0; i < count; ++i) {
        const unsigned int significance = place.bigEndian ? count - 1 - i : i;
        const unsigned int begin = std::max(reg.lsb, significance * 8);
        const unsigned int end = std::min(reg.lsb + reg.length, significance * 8 + 8);
        if (begin < end) visit({place.address + i, begin - significance * 8, end - begin, begin - reg.lsb});
    }
}

}  // namespace macroctl
