#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "regdef/RegisterContents.h"
#include "regdef/RegisterTokens.h"

namespace macroengine {

/// Reads a register file section by section: the preamble, [ENDIAN] and [REGISTER].
///
/// A mistake in a section ends the reading, one in a record costs that record alone (see RecordParser).
class SectionParser {
public:
    /// @param lexer  a lexer at the start of the file.
    /// @param path   names the file in messages.
    SectionParser(CLex& lexer, const std::string& path, RegisterContents& contents);

    /// @return true when the file holds no mistake; false with at least one message in the contents.
    bool ParseFile();

private:
    enum class Passed { Keep, Skip };

    bool FindSection(Passed passed, std::optional<RegisterSection>& section);
    bool ParseEndianSection(std::optional<RegisterSection>& next);
    bool ParseEndianLine(const Token& letter);
    bool ReadStartAddress(std::uint32_t& start);
    bool ReadSeparatorPoint();
    bool ParseColumns();

    bool Advance();
    bool ReadToLineEnd();
    bool Report(const Token& token, std::string_view text);

    RegisterTokens tokens_;
    const std::string& path_;
    RegisterContents& contents_;
};

}  // namespace macroengine
