#pragma once

#include <cstdint>

#include "macroengine/Export.h"

/// One register of a register file: where its bits are, how it may be accessed and what it is for.
///
/// A register lives on a two-wire bus, on a three-wire bus or on both. Operations that take a `mode` mean the
/// three-wire bus with 0 and the two-wire bus with 1.
///
/// @code
/// const CRegFieldsIF* gain = file->GetRegister(0);
/// if (gain != nullptr && gain->GetRw() == 2) {            // it may be read and written
///     std::uint32_t value = bus.Read(gain->GetAddress2Wire()) >> gain->GetLsb();
/// }
/// @endcode
///
/// The reader that gave the object owns it (CRegDefFileIF::GetRegister says how long it lives). Texts are
/// never null and live as long as the object. Nothing here changes the object, fails or throws: any number of
/// threads may read it at once.
///
/// Where the two file formats differ, *sectioned* is what CreateRegDefFile reads and *line-based* what
/// CreatePSCRegDefFile reads.
class MACROENGINE_API CRegFieldsIF {
public:
    CRegFieldsIF();
    CRegFieldsIF(const CRegFieldsIF& other);             ///< There is no data to copy.
    CRegFieldsIF& operator=(const CRegFieldsIF& other);  ///< There is no data to copy.
    virtual ~CRegFieldsIF();

    /// @return line-based: the number of the register's line, counted from 1. Sectioned: 0.
    virtual std::int32_t GetRecordValue() const = 0;

    /// @return the register's name; in a sectioned file letters, digits and "_".
    virtual const char* GetName() const = 0;

    /// @return line-based: the initial value, in as many low bits as the register is long. Sectioned: 0.
    virtual std::uint32_t GetRecordValue2() const = 0;

    /// @return the address on the two-wire bus; 0 when the file gives none.
    virtual std::uint32_t GetAddress2Wire() const = 0;

    /// @return the address on the three-wire bus; 0 when the file gives none.
    virtual std::uint32_t GetAddress3Wire() const = 0;

    /// @return the three-wire address for mode 0, the two-wire address for mode 1, 0 for any other mode.
    virtual std::uint32_t GetAddress(std::int32_t mode) const = 0;

    /// @return the position of the least significant bit at the address, 0 to 7 in a sectioned file.
    virtual std::uint8_t GetLsb() const = 0;

    /// @return the number of bits, 0 to 255.
    virtual std::uint8_t GetLength() const = 0;

    /// @return what may be done with the register: 0 read only ("RO"), 1 write only ("WO"), 2 read and write
    ///         ("RW"), 255 not connected ("NC"). Line-based: always 2.
    virtual std::int32_t GetRw() const = 0;

    /// @return sectioned: the description, the empty text when there is none. Line-based: the name.
    virtual const char* GetDescription() const = 0;

    /// @return sectioned: the function text, the empty text when there is none. Line-based: the line as a
    ///         template that a value can be formatted into, and the notes behind it, each after CR LF.
    virtual const char* GetFunction() const = 0;

    /// @return whether the register is big-endian: at its three-wire address for mode 0, at its two-wire
    ///         address for any other mode; false for an address that the file does not give.
    virtual bool GetBigEndian(std::int32_t mode) const = 0;

    virtual bool GetFlag1() const = 0;  ///< Line-based: true. Sectioned: false.
    virtual bool GetFlag2() const = 0;  ///< Line-based: true. Sectioned: false.
};
