#include "regdef/PSCRegFields.h"

#include <gtest/gtest.h>
#include <string>

namespace macroengine {
namespace {

/// A line as line 7 of a file.
class ParsedLine {
public:
    explicit ParsedLine(const std::string& line, std::uint32_t highAddress = 0) : line_(line) {
        isGood = fields.ParseLine(line_, 7, highAddress, texts_);
    }

    const CRegFields& Record() const { return fields; }

    PSCRegFields fields;
    bool isGood = false;

private:
    std::string line_;
    TextPool texts_;
};

TEST(PSCRegFields, ARegisterLine) {
    const ParsedLine parsed("GAIN h1F 34 0 8", 0x12);
    EXPECT_TRUE(parsed.isGood);
    const CRegFields& record = parsed.Record();
    EXPECT_EQ(record.GetRecordValue(), 7);
    EXPECT_STREQ(record.GetName(), "GAIN");
    EXPECT_EQ(record.GetRecordValue2(), 0x1FU);
    EXPECT_EQ(record.GetAddress2Wire(), 0x120034U);
    EXPECT_EQ(record.GetAddress3Wire(), 0x120034U);
    EXPECT_EQ(record.GetAddress(0), 0x120034U);
    EXPECT_EQ(record.GetAddress(1), 0x120034U);
    EXPECT_EQ(record.GetLsb(), 0);
    EXPECT_EQ(record.GetLength(), 8);
    EXPECT_EQ(record.GetRw(), 2);
    EXPECT_STREQ(record.GetDescription(), "GAIN");
    EXPECT_STREQ(record.GetFunction(), "GAIN %Xh 34 0 8");
    EXPECT_FALSE(record.GetBigEndian(0));
    EXPECT_FALSE(record.GetBigEndian(1));
    EXPECT_TRUE(record.GetFlag1());
    EXPECT_TRUE(record.GetFlag2());
}

TEST(PSCRegFields, ValuesAndTheirTemplates) {
    constexpr std::uint8_t kSigned = 0x80;
    constexpr std::uint8_t kHexadecimal = 0x10;
    constexpr std::uint8_t kWrite = 0x02;
    constexpr std::uint8_t kRead = 0x01;
    const struct {
        std::string word;
        std::uint32_t value;  // of 8 bits
        std::string directive;
        unsigned typeFlags = 0;
        bool isGood = true;
    } cases[] = {
        {"12", 12, "%d"},
        {"u12", 12, "%d"},
        {"12u", 12, "%d"},
        {"300", 300 & 0xFF, "%d"},
        {"s12", 12, "%ds", kSigned},
        {"-5", 0xFB, "%ds", kSigned},
        {"s-5", 0xFB, "%ds", kSigned},
        {"-0", 0, "%ds", kSigned},
        {"h1F", 0x1F, "%Xh", kHexadecimal},
        {"1fh", 0x1F, "%Xh", kHexadecimal},
        {"hs1F", 0x1F, "%Xh", kHexadecimal | kSigned},
        {"h123", 0x23, "%Xh", kHexadecimal},
        {"r", 0, "%dr", kRead},
        {"w", 0, "%dw", kWrite},
        {"u", 0, "%d"},
        {"s", 0, "%ds", kSigned},
        {"12r", 12, "%dr", kRead},
        {"12w", 12, "%dw", kWrite},
        {"12rw", 12, "%dr", kRead | kWrite},
        {"12wr", 12, "%dr", kRead | kWrite},
        {"h1Frw", 0x1F, "%Xhr", kHexadecimal | kRead | kWrite},
        {"suhwr12", 0x12, "%Xhr", kSigned | kHexadecimal | kWrite | kRead},
        // All ones: what cannot be read, a letter beyond the first of its kind included.
        {"x", 0xFF, "%d"},
        {"12uu", 0xFF, "%d"},
        {"ss1", 0xFF, "%ds", kSigned},
        {"1F", 0xFF, "%d"},
        {"0x10", 0xFF, "%d"},
        {"1.5", 0xFF, "%d"},
        {"+5", 0xFF, "%d"},
        {"-", 0xFF, "%ds", kSigned},
        {"-x", 0xFF, "%ds", kSigned},
        {"--5", 0xFF, "%ds", kSigned},
        {"h", 0xFF, "%Xh", kHexadecimal},
        {"h-5", 0xFF, "%Xh", kHexadecimal},
        {"hG", 0xFF, "%Xh", kHexadecimal},
        {"R", 0xFF, "%d"},
        // Expressions.
        {"u12*0.5+3", 9, "%s"},
        {"12*0.5-3r", 3, "%sr", kRead},
        {"s(-4)*2w", 0xF8, "%sw", kSigned | kWrite},
        {"h12*2", 24, "%s", kHexadecimal},
        {"12*", 0, "%d", 0, false},
        {"h1F*2+1", 0, "%Xh", kHexadecimal, false},
        {"s*r", 0, "%dsr", kSigned | kRead, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.word);
        const ParsedLine parsed("GAIN " + c.word + " 34 0 8");
        EXPECT_EQ(parsed.isGood, c.isGood);
        EXPECT_EQ(parsed.fields.typeFlags, c.typeFlags);
        EXPECT_EQ(parsed.Record().GetRecordValue2(), c.value);
        EXPECT_EQ(parsed.Record().GetFunction(), "GAIN " + c.directive + " 34 0 8");
    }
}

TEST(PSCRegFields, TheTemplateKeepsTheLayout) {
    const ParsedLine parsed("50%   5r    34  0 8   // in % of all, 5");
    EXPECT_STREQ(parsed.Record().GetName(), "50%");
    EXPECT_STREQ(parsed.Record().GetFunction(), "50%%   %dr    34  0 8   // in %% of all, 5");
}

TEST(PSCRegFields, TheValueHasAsManyBitsAsTheRegister) {
    const struct {
        std::string width;
        std::uint32_t value;
    } cases[] = {
        {"0", 0},           {"1", 1},           {"4", 0xF},          {"31", 0x7FFFFFFF},
        {"32", 0xFFFFFFFF}, {"33", 0xFFFFFFFF}, {"255", 0xFFFFFFFF},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.width);
        const ParsedLine parsed("A -1 10 0 " + c.width);
        EXPECT_EQ(parsed.Record().GetRecordValue2(), c.value);
        EXPECT_EQ(std::to_string(parsed.Record().GetLength()), c.width);
    }
}

TEST(PSCRegFields, Pieces) {
    const struct {
        std::string pieces;
        std::uint32_t address;
        unsigned lsb;
        unsigned length;
        bool isBigEndian = false;
    } cases[] = {
        // One piece; the high address is 0xABCD.
        {"10 2 3", 0xABCD0010, 2, 3},
        {"0010 2 3", 0xABCD0010, 2, 3},
        {"ffff 2 3", 0xABCDFFFF, 2, 3},
        {"10034 2 3", 0x10034, 2, 3},
        {"00010 2 3", 0x10, 2, 3},
        {"12345678 0 1", 0x12345678, 0, 1},
        {"10 2 3 // 20 0 8", 0xABCD0010, 2, 3},
        {"10 2 3 //20 0 8", 0xABCD0010, 2, 3},
        {"10 2 3//", 0xABCD0010, 2, 255},
        {"10  2   3", 0xABCD0010, 2, 3},
        // Several pieces.
        {"10 2 3 20 0 8", 0xABCD0010, 2, 11},
        {"20 2 3 10 0 8", 0xABCD0010, 2, 11, true},
        {"10 2 3 10 0 8", 0xABCD0010, 2, 11, true},
        {"30 0 8 20 0 8 10 0 8 40 0 8", 0xABCD0010, 0, 32, true},
        {"20 0 8 30 0 8 10 0 8", 0xABCD0020, 0, 24},
        // A piece without width is not in use.
        {"20 0 8 10 0 0", 0xABCD0020, 0, 8},
        {"30 0 8 20 0 8 10 0 0", 0xABCD0020, 0, 16, true},
        // None at all.
        {"", 0, 0, 0},
        {"// 10 0 8", 0, 0, 0},
        // What cannot be read is all ones.
        {"xyz 0 8", 0xFFFFFFFF, 0, 8},
        {"xyzabc 0 8", 0xFFFFFFFF, 0, 8},
        {"0x10 0 8", 0xFFFFFFFF, 0, 8},
        {"10 x 8", 0xABCD0010, 255, 8},
        {"10 0 x", 0xABCD0010, 0, 255},
        {"10 -1 8", 0xABCD0010, 255, 8},
        {"10", 0xABCD0010, 255, 255},
        {"10 0", 0xABCD0010, 0, 255},
        // Positions and widths have 8 bits.
        {"10 258 259", 0xABCD0010, 2, 3},
        {"10 0 200 20 0 100", 0xABCD0010, 0, 44},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pieces);
        const ParsedLine parsed("A 0 " + c.pieces, 0xABCD);
        EXPECT_TRUE(parsed.isGood);
        const CRegFields& record = parsed.Record();
        EXPECT_EQ(record.GetAddress2Wire(), c.address);
        EXPECT_EQ(record.GetAddress3Wire(), c.address);
        EXPECT_EQ(record.GetLsb(), c.lsb);
        EXPECT_EQ(record.GetLength(), c.length);
        EXPECT_EQ(record.GetBigEndian(0), c.isBigEndian);
        EXPECT_EQ(record.GetBigEndian(1), c.isBigEndian);
    }
}

TEST(PSCRegFields, PiecesBeyondThe32ndAreIgnored) {
    std::string line = "A 0";
    for (int i = 0; i < 32; ++i)
        line += " 20 0 1";
    EXPECT_EQ(ParsedLine(line).Record().GetLength(), 32);
    EXPECT_EQ(ParsedLine(line + " 10 0 1 x").Record().GetLength(), 32);
    EXPECT_EQ(ParsedLine(line + " 10 0 1").Record().GetAddress2Wire(), 0x20U);
}

TEST(PSCRegFields, ALineWithoutAValue) {
    const ParsedLine parsed("GAIN");
    EXPECT_TRUE(parsed.isGood);
    EXPECT_STREQ(parsed.Record().GetName(), "GAIN");
    EXPECT_EQ(parsed.Record().GetRecordValue2(), 0U);
    EXPECT_EQ(parsed.Record().GetLength(), 0);
    EXPECT_STREQ(parsed.Record().GetFunction(), "GAIN");
}

TEST(PSCRegFields, NothingIsLeftOfTheLineBefore) {
    PSCRegFields fields;
    TextPool texts;
    EXPECT_TRUE(fields.ParseLine("A shrw1*2 20 3 8 10 0 8", 1, 0, texts));
    EXPECT_TRUE(fields.ParseLine("B 5", 2, 0, texts));
    EXPECT_EQ(fields.typeFlags, 0);
    EXPECT_EQ(fields.GetRecordValue(), 2);
    EXPECT_EQ(fields.GetRecordValue2(), 0U);
    EXPECT_EQ(fields.GetAddress2Wire(), 0U);
    EXPECT_EQ(fields.GetLsb(), 0);
    EXPECT_FALSE(fields.GetBigEndian(0));
    EXPECT_STREQ(fields.GetFunction(), "B %d");
}

}  // namespace
}  // namespace macroengine
