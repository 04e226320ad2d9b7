#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "regdef/CRegFields.h"

namespace macroengine {

/// A column of the [REGISTER] section.
enum class RegisterColumn : std::uint8_t {
    Name = 2,
    Address2Wire = 3,
    Address3Wire = 4,
    Lsb = 5,
    Length = 6,
    Access = 7,
    Description = 8,
    Function = 9
};

enum class RegisterSection : std::uint8_t { Endian, Register };

// Names are exact, with case; any other text gives nothing.

std::optional<RegisterColumn> ColumnOfKeyword(std::string_view keyword);
std::optional<RegisterSection> SectionOfName(std::string_view name);
std::optional<Access> AccessOfKeyword(std::string_view keyword);

}  // namespace macroengine
