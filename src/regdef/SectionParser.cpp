#include "regdef/SectionParser.h"

#include "regdef/RecordParser.h"

namespace macroengine {

namespace {

// These texts are part of the interface, spelling included.
constexpr std::string_view kNoSection = "Can't find [ENDIAN] or [REGISTER].";
constexpr std::string_view kNoRegisterSection = "Can't find [REGISTER] section.";
constexpr std::string_view kUnknownLetter = "Unknown endian's letter. (";
constexpr std::string_view kNoColon = "Need ':' after 'B' or 'L'.";
constexpr std::string_view kNoStart = "Can't find start address. (don't digit or hex-digit)";
constexpr std::string_view kNoRangeSeparator = "Can't find address separator('..') .";
constexpr std::string_view kNoEnd =
    "Can't find end address. (don't digit or hex-digit. or invalid separator '..')";
constexpr std::string_view kTrailingLetters = "Invaid letters or strings after end address.";
constexpr std::string_view kUnknownEnd = "Unknown end address in [ENDIAN] section.";
constexpr std::string_view kUnknownKeyword = "Unknown keyword in register header. (";
constexpr std::string_view kNoSeparator = "Can't find separator(,).";
constexpr std::string_view kNoColumns = "Can't find register header fields.";

std::string Quoted(std::string_view message, std::string_view text) {
    return std::string(message).append(text).append(")");
}

}  // namespace

SectionParser::SectionParser(CLex& lexer, const std::string& path, RegisterContents& contents)
    : tokens_(lexer), path_(path), contents_(contents) {}

bool SectionParser::ParseFile() {
    std::optional<RegisterSection> section;
    if (!FindSection(Passed::Keep, section)) return false;
    if (section == RegisterSection::Endian) {
        if (!ParseEndianSection(section)) return false;
        if (section == RegisterSection::Endian) return Report(tokens_.Current(), kNoRegisterSection);
    }
    if (!section) return Report(tokens_.Current(), kNoSection);
    if (!ParseColumns()) return false;
    return RecordParser(tokens_, path_, contents_).ParseRecords();
}

/// Reads on to the end of the next line that is the header of a section: "[", the section's name and "]".
/// What stands behind it in that line is ignored.
///
/// @param passed   whether the tokens before that line belong to the preamble.
/// @param section  receives the section, nothing at the end of the file.
/// @return false on a lexical error.
bool SectionParser::FindSection(Passed passed, std::optional<RegisterSection>& section) {
    std::vector<const char*>& preamble = contents_.preamble;
    int matched = 0;  // tokens of a header that the line has begun with, -1 once it has shown to be none
    section.reset();
    while (Advance()) {
        const Token& token = tokens_.Current();
        if (token.IsEnd()) {
            section.reset();
            return true;
        }
        if (token.IsLineEnd()) {
            matched = 0;
            continue;
        }
        if (passed == Passed::Keep) preamble.push_back(contents_.texts.Add(token.text));
        if (matched == 0 && token.text == "[") {
            matched = 1;
        } else if (matched == 1 && (section = SectionOfName(token.text))) {
            matched = 2;
        } else if (matched == 2 && token.text == "]") {
            if (passed == Passed::Keep) preamble.resize(preamble.size() - 3);
            return ReadToLineEnd();
        } else {
            matched = -1;
        }
    }
    return false;
}

/// Reads the lines of [ENDIAN] and on to the end of the header line of the next section.
bool SectionParser::ParseEndianSection(std::optional<RegisterSection>& next) {
    next.reset();
    while (Advance()) {
        const Token first = tokens_.Current();
        if (first.IsEnd()) return true;
        if (first.IsLineEnd()) continue;
        if (first.text != "[") {
            if (!ParseEndianLine(first)) return false;
            continue;
        }
        // The header of any section ends this one, also of a section that is skipped.
        if (!Advance()) return false;
        const std::string_view name = tokens_.Current().text;
        if (!tokens_.IsAtLineEnd() && !Advance()) return false;
        if (tokens_.Current().text != "]") return Report(first, Quoted(kUnknownLetter, first.text));
        if (!ReadToLineEnd()) return false;
        next = SectionOfName(name);
        return next ? true : FindSection(Passed::Skip, next);
    }
    return false;
}

bool SectionParser::ParseEndianLine(const Token& letter) {
    if (letter.text != "B" && letter.text != "L") {
        return Report(letter, Quoted(kUnknownLetter, letter.text));
    }
    if (!Advance()) return false;
    if (tokens_.Current().text != ":") return Report(tokens_.Current(), kNoColon);
    std::uint32_t start = 0;
    if (!ReadStartAddress(start) || !ReadSeparatorPoint() || !Advance()) return false;
    const Token end = tokens_.Current();
    if (end.kind != TokenKind::Integer) return Report(end, kNoEnd);
    if (!Advance()) return false;
    if (!tokens_.IsAtLineEnd()) return Report(tokens_.Current(), kTrailingLetters);
    if (end.integerValue < start || end.integerValue > EndianTable::kLastAddress) {
        return Report(end, kUnknownEnd);
    }
    contents_.endian.Enter(start, end.integerValue, letter.text == "B");
    return true;
}

/// Reads the start address and the first point behind it, which the lexer may have made a part of the number.
bool SectionParser::ReadStartAddress(std::uint32_t& start) {
    if (!Advance()) return false;
    const Token& token = tokens_.Current();
    if (token.kind == TokenKind::Integer) {
        start = token.integerValue;
        return ReadSeparatorPoint();
    }
    if (token.kind != TokenKind::Real || token.text.back() != '.') return Report(token, kNoStart);
    // A start that is no address has no end either.
    const bool isAddress = token.realValue >= 0.0 && token.realValue <= EndianTable::kLastAddress;
    start = isAddress ? static_cast<std::uint32_t>(token.realValue) : EndianTable::kLastAddress + 1;
    return true;
}

bool SectionParser::ReadSeparatorPoint() {
    if (!Advance()) return false;
    return tokens_.Current().text == "." || Report(tokens_.Current(), kNoRangeSeparator);
}

/// Reads the header line of [REGISTER].
bool SectionParser::ParseColumns() {
    do {
        if (!Advance()) return false;
    } while (tokens_.Current().IsLineEnd());
    if (tokens_.Current().IsEnd()) return Report(tokens_.Current(), kNoColumns);
    while (!tokens_.IsAtLineEnd()) {
        const Token& keyword = tokens_.Current();
        const std::optional<RegisterColumn> column = ColumnOfKeyword(keyword.text);
        if (!column) return Report(keyword, Quoted(kUnknownKeyword, keyword.text));
        contents_.columns.push_back(*column);
        if (!Advance()) return false;
        if (tokens_.IsAtLineEnd()) break;
        if (tokens_.Current().text != ",") return Report(tokens_.Current(), kNoSeparator);
        if (!Advance()) return false;
    }
    return true;
}

/// @return false on a lexical error.
bool SectionParser::ReadToLineEnd() {
    while (!tokens_.IsAtLineEnd()) {
        if (!Advance()) return false;
    }
    return true;
}

/// @return false on a lexical error, which is then in the contents.
bool SectionParser::Advance() {
    if (tokens_.Advance()) return true;
    contents_.errors.TakeErrors(tokens_.GetLexerErrors());
    return false;
}

/// @return false.
bool SectionParser::Report(const Token& token, std::string_view text) {
    contents_.errors.AddLocatedError(path_.c_str(), static_cast<std::int32_t>(token.line), text);
    return false;
}

}  // namespace macroengine
