#include "regdef/Listing.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace macroengine {

namespace {

constexpr std::uint32_t kListedAddresses = 256;
constexpr const char* kLineEnd = "\r\n";

/// More than a line of the address table, and more than a record without its texts, can take.
constexpr std::size_t kAddressLineBound = 24;
constexpr std::size_t kRecordBound = 160;

void AppendNumber(std::string& text, std::uint32_t number, int base) {
    char digits[10];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof(digits), number, base);
    text.append(digits, static_cast<std::size_t>(end.ptr - digits));
}

void AppendByteOrder(std::string& text, const EndianTable& endian, std::uint32_t address) {
    AppendNumber(text, address, 16);
    text += ':';
    const std::optional<bool> isBigEndian = endian.IsBigEndian(address);
    if (!isBigEndian) {
        text += " Unknown endian";
    } else {
        text += *isBigEndian ? "TRUE" : "FALSE";
    }
    text += kLineEnd;
}

void AppendRecord(std::string& text, std::uint32_t index, const CRegFields& record) {
    text += '(';
    AppendNumber(text, index, 10);
    text.append(")*******\r\n Name:").append(record.GetName());
    text += "\r\n Address3W:";
    AppendNumber(text, record.address3Wire, 16);
    text += "\r\n Address2W:";
    AppendNumber(text, record.address2Wire, 16);
    text += "\r\n LSB:";
    AppendNumber(text, record.lsb, 10);
    text += "\r\n Length:";
    AppendNumber(text, record.length, 10);
    text.append("\r\n Description:").append(record.GetDescription());
    text.append("\r\n Function:").append(record.GetFunction()).append(kLineEnd);
}

/// @return no less than the size of the listing. Room that stays unused costs address space alone, while a
///         text that grows as it goes would be in memory twice.
std::size_t BoundOf(const RegisterContents& contents) {
    std::size_t bound = kListedAddresses * kAddressLineBound + kRecordBound;
    for (const CRegFields& record : contents.records) {
        bound += kRecordBound + std::strlen(record.GetName()) + std::strlen(record.GetDescription()) +
                 std::strlen(record.GetFunction());
    }
    return bound;
}

}  // namespace

std::string WriteListing(const RegisterContents& contents) {
    std::string text;
    text.reserve(BoundOf(contents));
    for (std::uint32_t address = 0; address < kListedAddresses; ++address)
        AppendByteOrder(text, contents.endian, address);
    text.append("---------------------------------------------").append(kLineEnd);
    std::uint32_t index = 0;
    for (const CRegFields& record : contents.records)
        AppendRecord(text, index++, record);
    return text;
}

}  // namespace macroengine
