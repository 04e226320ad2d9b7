#include "regdef/Listing.h"

#include <gtest/gtest.h>
#include <string>

#include "unit/regdef/ParsedText.h"

namespace macroengine {
namespace {

using test::ParsedText;

const std::string kDashes = "---------------------------------------------\r\n";

std::string Hexadecimal(unsigned number) {
    const std::string digits = "0123456789abcdef";
    return number < 16 ? digits.substr(number, 1) : digits.substr(number / 16, 1) + digits[number % 16];
}

TEST(Listing, WithoutEndianEntriesAllAddressesAreTrue) {
    std::string expected;
    for (unsigned address = 0; address < 256; ++address)
        expected += Hexadecimal(address) + ":TRUE\r\n";
    EXPECT_EQ(WriteListing(RegisterContents()), expected + kDashes);
}

TEST(Listing, EndianEntriesAndRecords) {
    const ParsedText parsed(
        "[ENDIAN]\nB:0x0..0x0F\nL:0x20..0xFF\nB:0xABC..0xABC\n[REGISTER]\n"
        "REGISTER_NAME,ADDRESS_2WIRE,ADDRESS_3WIRE,LSB,LENGTH,RW,DESCRIPTION,FUNCTION\n"
        "GAIN,0xABC,0x20,7,255,RW,\"Gain, in dB\",input\n"
        "OFFSET,0x00,0x0F,0,1,RO\n");
    ASSERT_TRUE(parsed.isGood);
    std::string expected;
    for (unsigned address = 0; address < 256; ++address) {
        expected += Hexadecimal(address);
        expected += address < 0x10 ? ":TRUE\r\n" : address < 0x20 ? ": Unknown endian\r\n" : ":FALSE\r\n";
    }
    expected += kDashes;
    expected +=
        "(0)*******\r\n Name:GAIN\r\n Address3W:20\r\n Address2W:abc\r\n LSB:7\r\n Length:255\r\n"
        " Description:Gain, in dB\r\n Function:input\r\n"
        "(1)*******\r\n Name:OFFSET\r\n Address3W:f\r\n Address2W:0\r\n LSB:0\r\n Length:1\r\n"
        " Description:\r\n Function:\r\n";
    EXPECT_EQ(WriteListing(parsed.contents), expected);
}

TEST(Listing, RecordsAreNumberedInDecimal) {
    RegisterContents contents;
    contents.records.resize(12);
    CRegFields& last = contents.records.back();
    last.texts = "LAST\0\0";
    last.address2Wire = last.address3Wire = 0xFFFFFFFF;
    last.lsb = last.length = 255;
    const std::string listing = WriteListing(contents);
    const std::string tail =
        "(11)*******\r\n Name:LAST\r\n Address3W:ffffffff\r\n Address2W:ffffffff\r\n LSB:255\r\n "
        "Length:255\r\n"
        " Description:\r\n Function:\r\n";
    ASSERT_GT(listing.size(), tail.size());
    EXPECT_EQ(listing.substr(listing.size() - tail.size()), tail);
}

}  // namespace
}  // namespace macroengine
