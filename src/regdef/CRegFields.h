#pragma once

#include <cstdint>

#include "macroengine/CRegFieldsIF.h"

namespace macroengine {

/// What a register may be used for, by the codes that the host sees.
enum class Access : std::uint8_t { ReadOnly = 0, WriteOnly = 1, ReadWrite = 2, NotConnected = 255 };

/// One register.
///
/// There may be a million of them, so a record is kept small: its texts are in the TextPool of its reader,
/// all behind one pointer.
class CRegFields : public CRegFieldsIF {
public:
    CRegFields() = default;

    std::int32_t GetRecordValue() const override { return recordValue; }
    const char* GetName() const override { return texts; }
    std::uint32_t GetRecordValue2() const override { return recordValue2; }
    std::uint32_t GetAddress2Wire() const override { return address2Wire; }
    std::uint32_t GetAddress3Wire() const override { return address3Wire; }
    std::uint32_t GetAddress(std::int32_t mode) const override;
    std::uint8_t GetLsb() const override { return lsb; }
    std::uint8_t GetLength() const override { return length; }
    std::int32_t GetRw() const override { return static_cast<std::int32_t>(access); }
    const char* GetDescription() const override;
    const char* GetFunction() const override;
    bool GetBigEndian(std::int32_t mode) const override;
    bool GetFlag1() const override { return flag1; }
    bool GetFlag2() const override { return flag2; }

    /// The name, the description and the function, each closed by a NUL, one behind the other.
    const char* texts = "\0\0";

    std::int32_t recordValue = 0;
    std::uint32_t recordValue2 = 0;
    std::uint32_t address2Wire = 0;
    std::uint32_t address3Wire = 0;
    std::uint8_t lsb = 0;
    std::uint8_t length = 0;
    Access access = Access::ReadOnly;
    bool bigEndian3Wire = false;
    bool bigEndian2Wire = false;
    bool flag1 = false;
    bool flag2 = false;
    bool isDescribedByName = false;  ///< the texts hold no description
};

}  // namespace macroengine
