#include "regdef/CRegFields.h"

#include <cstring>

namespace macroengine {

namespace {

enum BusMode : std::int32_t { kThreeWire = 0, kTwoWire = 1 };

const char* Behind(const char* text) {
    return text + std::strlen(text) + 1;
}

}  // namespace

const char* CRegFields::GetDescription() const {
    return isDescribedByName ? texts : Behind(texts);
}

const char* CRegFields::GetFunction() const {
    return Behind(GetDescription());
}

std::uint32_t CRegFields::GetAddress(std::int32_t mode) const {
    switch (mode) {
        case kThreeWire:
            return address3Wire;
        case kTwoWire:
            return address2Wire;
        default:
            return 0;
    }
}

bool CRegFields::GetBigEndian(std::int32_t mode) const {
    return mode == kThreeWire ? bigEndian3Wire : bigEndian2Wire;
}

}  // namespace macroengine
