#include "regdef/RecordParser.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "source/Characters.h"

namespace macroengine {

namespace {

// These texts are part of the interface, spelling included.
constexpr std::string_view kUnreadableValue = "This line format is invalid.";
constexpr std::string_view kNoSeparator = "Can't find separator(,).";
constexpr std::string_view kBadName = "REGISTER_NAME field is not alphabet or numeric.";
constexpr std::string_view kBadAddress2Wire = "ADDRESS_2WIRE filed is not numric.";
constexpr std::string_view kBadAddress3Wire = "ADDRESS_3WIRE filed is not numric.";
constexpr std::string_view kBadLsb = "LSB filed is not numric or invalid value.";
constexpr std::string_view kBadLength = "LENGTH filed is not numric.";
constexpr std::string_view kBadAccess = "RW filed is invalid keyword.";
constexpr std::string_view kUnknownColumn = "Unknown register field.";
constexpr std::string_view kNoName = "REGISTER_NAME field is not defined.";
constexpr std::string_view kNoAddress = "Address field is not defined both 2WIRE and 3WIRE.";
constexpr std::string_view kNoLsb = "LSB field is not defined.";
constexpr std::string_view kNoLength = "LENGTH field is not defined.";
constexpr std::string_view kNoAccess = "RW field is not defined.";

constexpr std::uint32_t kLargestLsb = 7;
constexpr std::uint32_t kLargestLength = std::numeric_limits<std::uint8_t>::max();
constexpr std::uint32_t kLargestNumber = std::numeric_limits<std::uint32_t>::max();

constexpr std::uint32_t BitOf(RegisterColumn column) {
    return 1U << static_cast<unsigned>(column);
}

/// The wording names the three-wire address for an address of either bus.
std::string NoByteOrder(std::uint32_t address) {
    char digits[8];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof(digits), address, 16);
    return std::string("ADDRESS_3WIRE (0x")
        .append(digits, static_cast<std::size_t>(end.ptr - digits))
        .append(") is defined in [REGISTER] section, but there is no address in [ENDIAN] section.");
}

}  // namespace

RecordParser::RecordParser(RegisterTokens& tokens, const std::string& path, RegisterContents& contents)
    : tokens_(tokens), path_(path), contents_(contents) {}

bool RecordParser::ParseRecords() {
    bool isGood = true;
    for (;;) {
        if (!tokens_.Advance()) {
            isGood = ReportUnreadable();
            tokens_.SkipLine();
        } else if (!tokens_.IsAtLineEnd()) {
            if (!ParseRecord()) isGood = false;
            tokens_.SkipLine();
        }
        if (tokens_.Current().IsEnd()) return isGood;
    }
}

bool RecordParser::ParseRecord() {
    record_ = CRegFields();
    name_.clear();
    description_.clear();
    function_.clear();
    line_ = tokens_.Current().line;
    given_ = 0;
    if (!ReadValues() || !CheckRequiredFields() || !CheckByteOrder()) return false;
    record_.texts = contents_.texts.Add({name_, description_, function_});
    contents_.records.push_back(record_);
    return true;
}

bool RecordParser::ReadValues() {
    for (const RegisterColumn column : contents_.columns) {
        if (!ReadValue()) return ReportUnreadable();
        // The line may end behind a comma as well.
        if (value_.tokenCount == 0 && tokens_.IsAtLineEnd()) return true;
        if (!StoreValue(column)) return false;
        if (tokens_.IsAtLineEnd()) return true;
        if (!tokens_.Advance()) return ReportUnreadable();
    }
    // Values without a column are free; what cannot be read among them may have hidden the lines that follow.
    while (!tokens_.IsAtLineEnd()) {
        if (!tokens_.Advance()) return ReportUnreadable();
    }
    return true;
}

/// Reads up to the next comma or the end of the line.
/// @return false on a lexical error.
bool RecordParser::ReadValue() {
    value_.first = tokens_.Current();
    value_.tokenCount = 0;
    value_.text = {};
    while (!tokens_.IsAtLineEnd() && tokens_.Current().text != ",") {
        const Token& token = tokens_.Current();
        ++value_.tokenCount;
        if (value_.tokenCount == 1) {
            value_.text = token.text;
        } else {
            if (value_.tokenCount == 2) {
                value_.secondLine = token.line;
                joined_ = value_.text;
            }
            joined_ += token.text;
        }
        if (!tokens_.Advance()) return false;
    }
    if (value_.tokenCount > 1) value_.text = joined_;
    return true;
}

bool RecordParser::StoreValue(RegisterColumn column) {
    std::uint32_t number = 0;
    switch (column) {
        case RegisterColumn::Name:
            // A record without a name is told so at its end.
            if (value_.tokenCount == 0) return true;
            if (!StoreName()) return false;
            break;
        case RegisterColumn::Address2Wire:
            if (!StoreNumber(record_.address2Wire, kLargestNumber, kBadAddress2Wire)) return false;
            break;
        case RegisterColumn::Address3Wire:
            if (!StoreNumber(record_.address3Wire, kLargestNumber, kBadAddress3Wire)) return false;
            break;
        case RegisterColumn::Lsb:
            if (!StoreNumber(number, kLargestLsb, kBadLsb)) return false;
            record_.lsb = static_cast<std::uint8_t>(number);
            break;
        case RegisterColumn::Length:
            if (!StoreNumber(number, kLargestLength, kBadLength)) return false;
            record_.length = static_cast<std::uint8_t>(number);
            break;
        case RegisterColumn::Access:
            if (!StoreAccess()) return false;
            break;
        case RegisterColumn::Description:
            if (!StoreText(description_)) return false;
            break;
        case RegisterColumn::Function:
            if (!StoreText(function_)) return false;
            break;
        default:
            return Report(value_.first.line, kUnknownColumn);
    }
    given_ |= BitOf(column);
    return true;
}

bool RecordParser::StoreName() {
    if (!std::all_of(value_.text.begin(), value_.text.end(), IsNamePart)) {
        return Report(value_.first.line, kBadName);
    }
    name_ = value_.text;
    return true;
}

bool RecordParser::StoreNumber(std::uint32_t& field, std::uint32_t largest, std::string_view message) {
    const Token& token = value_.first;
    if (value_.tokenCount != 1 || token.kind != TokenKind::Integer || token.integerValue > largest) {
        return Report(token.line, message);
    }
    field = token.integerValue;
    return true;
}

bool RecordParser::StoreAccess() {
    const std::optional<Access> access = AccessOfKeyword(value_.text);
    if (!access) return Report(value_.first.line, kBadAccess);
    record_.access = *access;
    return true;
}

bool RecordParser::StoreText(std::string& field) {
    std::string_view text = value_.text;
    if (!text.empty() && text.front() == '"') {
        if (value_.tokenCount > 1) return Report(value_.secondLine, kNoSeparator);
        text = text.substr(1, text.size() - 2);
    }
    field = text;
    return true;
}

bool RecordParser::CheckRequiredFields() {
    const std::size_t before = contents_.errors.GetCount();
    if (!IsGiven(RegisterColumn::Name)) Report(line_, kNoName);
    if (!IsGiven(RegisterColumn::Address2Wire) && !IsGiven(RegisterColumn::Address3Wire)) {
        Report(line_, kNoAddress);
    }
    if (!IsGiven(RegisterColumn::Lsb)) Report(line_, kNoLsb);
    if (!IsGiven(RegisterColumn::Length)) Report(line_, kNoLength);
    if (!IsGiven(RegisterColumn::Access)) Report(line_, kNoAccess);
    return contents_.errors.GetCount() == before;
}

bool RecordParser::CheckByteOrder() {
    // Both are looked up, so that both are reported.
    const bool has3Wire =
        FindByteOrder(RegisterColumn::Address3Wire, record_.address3Wire, record_.bigEndian3Wire);
    const bool has2Wire =
        FindByteOrder(RegisterColumn::Address2Wire, record_.address2Wire, record_.bigEndian2Wire);
    return has3Wire && has2Wire;
}

/// @return false with a message when the record has the address but its byte order is not known.
bool RecordParser::FindByteOrder(RegisterColumn column, std::uint32_t address, bool& isBigEndian) {
    if (!IsGiven(column)) return true;
    const std::optional<bool> found = contents_.endian.IsBigEndian(address);
    if (!found) return Report(line_, NoByteOrder(address));
    isBigEndian = *found;
    return true;
}

bool RecordParser::IsGiven(RegisterColumn column) const {
    return (given_ & BitOf(column)) != 0;
}

/// @return false.
bool RecordParser::Report(std::uint32_t line, std::string_view text) {
    contents_.errors.AddLocatedError(path_.c_str(), static_cast<std::int32_t>(line), text);
    return false;
}

/// The lexer's own message gives way to the one that belongs to the line.
/// @return false.
bool RecordParser::ReportUnreadable() {
    tokens_.GetLexerErrors().Clear();
    return Report(tokens_.GetLexerLine(), kUnreadableValue);
}

}  // namespace macroengine
