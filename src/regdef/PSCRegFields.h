#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "regdef/CRegFields.h"
#include "regdef/TextPool.h"

namespace macroengine {

/// Some of a register's bits: `bitWidth` of them from `bitPosition` on, at one address.
struct AddressPiece {
    std::uint32_t address = 0;
    std::uint8_t bitPosition = 0;
    std::uint8_t bitWidth = 0;  ///< 0 for a piece that is not in use
};

/// What one register line of the line-based format says.
struct STRUCT_CMOSDEFINEDATA {
    static constexpr std::size_t kPieceLimit = 32;

    static constexpr std::uint8_t kSigned = 0x80;
    static constexpr std::uint8_t kHexadecimal = 0x10;
    static constexpr std::uint8_t kWrite = 0x02;
    static constexpr std::uint8_t kRead = 0x01;

    std::string_view name;             ///< a view into the line
    std::uint8_t typeFlags = 0;        ///< of the four above
    std::uint8_t totalWidth = 0;       ///< of all pieces
    std::uint32_t initialValue = 0;    ///< as the line gives it, bits beyond the width included
    AddressPiece pieces[kPieceLimit];  ///< in the order of the line
    std::size_t pieceCount = 0;
    bool isScaled = false;  ///< the initial value is given as an expression
    std::string displayTemplate;
};

/// A register line and the record that becomes of it. One object reads line after line.
class PSCRegFields : public CRegFields, public STRUCT_CMOSDEFINEDATA {
public:
    PSCRegFields() = default;

    /// Reads a line, without blanks around it, and makes the record.
    ///
    /// @param highAddress  the upper 16 bits of addresses that are given short.
    /// @param pool         takes the texts of the record.
    /// @return false when the initial value is an expression that cannot be worked out; the record is
    ///         complete all the same.
    bool ParseLine(std::string_view line, std::int32_t lineNumber, std::uint32_t highAddress, TextPool& pool);

private:
    bool ParseValue(std::string_view word);
    std::uint32_t ParsePlainValue(std::string_view text);
    void ParsePieces(std::string_view text, std::uint32_t highAddress);
    std::string_view WriteDirective();
    void SetAddresses();

    std::string value_;
    std::string directive_;
};

}  // namespace macroengine
