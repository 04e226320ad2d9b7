#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace macroctl {

/// Why a text can't be converted.
struct ConversionError {
    std::size_t line = 0;  ///< counted from 1
    std::string reason;
};

// The line ends of the result are those of the source: LF, CR LF, or none behind the last line. Any other CR
// belongs to its line. So decoding what was encoded gives the same bytes.

/// Encodes a text line by line.
///
/// @return false, with the first line to blame, when a line has no encoded form.
bool EncodeText(const std::string& text, std::string& encoded, ConversionError& error);

/// Decodes an encoded file line by line.
///
/// @return false, with the first line to blame, when a line is no encoded one. Where a load skips what
/// doesn't
///         belong to the encoded form, a conversion would lose it.
bool DecodeText(const std::string& encoded, std::string& text, ConversionError& error);

/// @return whether the engine reads a file of this name and content in the encoded form.
bool IsEncodedSource(std::string_view path, std::string_view bytes);

}  // namespace macroctl
