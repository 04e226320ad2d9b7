#include "regdef/RecordParser.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "unit/regdef/ParsedText.h"

namespace macroengine {
namespace {

using test::ParsedText;
using Lines = std::vector<std::string>;

/// The record line is line 3.
const std::string kAllColumns =
    "[REGISTER]\n"
    "REGISTER_NAME,ADDRESS_2WIRE,ADDRESS_3WIRE,LSB,LENGTH,RW,DESCRIPTION,FUNCTION\n";

std::string ErrorAt(int line, const std::string& text) {
    return "t.rgi(" + std::to_string(line) + "): error : " + text;
}

TEST(RecordParser, EveryColumn) {
    const ParsedText parsed(kAllColumns + "GAIN,0x10,0x20,3,5,WO,\"Gain, in dB\",\"input\"\n");
    ASSERT_TRUE(parsed.isGood);
    ASSERT_EQ(parsed.contents.records.size(), 1U);
    const CRegFields& record = parsed.contents.records[0];
    EXPECT_EQ(record.GetRecordValue(), 0);
    EXPECT_STREQ(record.GetName(), "GAIN");
    EXPECT_EQ(record.GetRecordValue2(), 0U);
    EXPECT_EQ(record.GetAddress2Wire(), 0x10U);
    EXPECT_EQ(record.GetAddress3Wire(), 0x20U);
    EXPECT_EQ(record.GetAddress(0), 0x20U);
    EXPECT_EQ(record.GetAddress(1), 0x10U);
    EXPECT_EQ(record.GetAddress(2), 0U);
    EXPECT_EQ(record.GetAddress(-1), 0U);
    EXPECT_EQ(record.GetLsb(), 3);
    EXPECT_EQ(record.GetLength(), 5);
    EXPECT_EQ(record.GetRw(), 1);
    EXPECT_STREQ(record.GetDescription(), "Gain, in dB");
    EXPECT_STREQ(record.GetFunction(), "input");
    EXPECT_FALSE(record.GetFlag1());
    EXPECT_FALSE(record.GetFlag2());
}

TEST(RecordParser, ColumnsInAnotherOrder) {
    const ParsedText parsed(
        "[REGISTER]\nRW,LENGTH,ADDRESS_3WIRE,LSB,REGISTER_NAME\nRO,8,32,0,A\nNC,4,33,1,B");
    ASSERT_TRUE(parsed.isGood);
    ASSERT_EQ(parsed.Names(), (Lines{"A", "B"}));
    EXPECT_EQ(parsed.contents.records[0].GetRw(), 0);
    EXPECT_EQ(parsed.contents.records[0].GetAddress3Wire(), 32U);
    EXPECT_EQ(parsed.contents.records[0].GetAddress2Wire(), 0U);
    EXPECT_EQ(parsed.contents.records[1].GetRw(), 255);
    EXPECT_STREQ(parsed.contents.records[1].GetDescription(), "");
}

TEST(RecordParser, AccessKeywords) {
    const ParsedText parsed(kAllColumns + "A,0,0,0,1,NC\nB,0,0,0,1,RO\nC,0,0,0,1,WO\nD,0,0,0,1,RW\n");
    ASSERT_EQ(parsed.contents.records.size(), 4U);
    EXPECT_EQ(parsed.contents.records[0].GetRw(), 255);
    EXPECT_EQ(parsed.contents.records[1].GetRw(), 0);
    EXPECT_EQ(parsed.contents.records[2].GetRw(), 1);
    EXPECT_EQ(parsed.contents.records[3].GetRw(), 2);
}

TEST(RecordParser, LinesThatAreGood) {
    const struct {
        std::string line;
        std::string name;
        std::string description;
        std::string function;
    } cases[] = {
        {"GAIN,1,2,0,8,RW", "GAIN", "", ""},
        {"GAIN,1,2,0,8,RW,", "GAIN", "", ""},
        {"GAIN,1,2,0,8,RW,,", "GAIN", "", ""},
        {"GAIN,1,2,0,8,RW,,F", "GAIN", "", "F"},
        {"GAIN,1,2,0,8,RW,\"\",\"\"", "GAIN", "", ""},
        {"  GAIN , 1 ,\t2,0,8,RW , \"D\" , \"F\"  // comment", "GAIN", "D", "F"},
        {"GAIN,1,/* three\nwire */2,0,8,RW,D,F", "GAIN", "D", "F"},
        {"GAIN,1,2,0,8,RW,\"D\",\"F\",more,\"text\" 1 2", "GAIN", "D", "F"},
        {"3WIRE_EN,1,2,0,8,RW", "3WIRE_EN", "", ""},
        {"_a9,1,2,0,8,RW", "_a9", "", ""},
        {"GA IN 2,1,2,0,8,RW", "GAIN2", "", ""},
        {"0x1F,1,2,0,8,RW", "0x1F", "", ""},
        {"include,1,2,0,8,RW", "include", "", ""},
        {"GAIN,1,2,7,255,RW", "GAIN", "", ""},
        {"GAIN,1,2,0x7,0,RW", "GAIN", "", ""},
        {"GAIN,1,2,0,8,R W", "GAIN", "", ""},
        {"GAIN,1,2,0,8,RW,gain of channel 1 (dB),a.b-c", "GAIN", "gainofchannel1(dB)", "a.b-c"},
        {"GAIN,1,2,0,8,RW,the \"gain\",5", "GAIN", "the\"gain\"", "5"},
        {"GAIN,1,2,0,8,RW,\"say \\\"a\\\", \\\\ // no comment\",\" F \"", "GAIN",
         "say \"a\", \\\\ // no comment", " F "},
        {"GAIN,1,2,0,8,RW,\"\x83\x5C\xFF\"", "GAIN", "\x83\x5C\xFF", ""},
        {"GAIN,1,2,0,8,RW\r", "GAIN", "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        const ParsedText parsed(kAllColumns + c.line);
        EXPECT_TRUE(parsed.isGood);
        EXPECT_EQ(parsed.Errors(), Lines{});
        ASSERT_EQ(parsed.contents.records.size(), 1U);
        const CRegFields& record = parsed.contents.records[0];
        EXPECT_EQ(record.GetName(), c.name);
        EXPECT_EQ(record.address2Wire, 1U);
        EXPECT_EQ(record.address3Wire, 2U);
        EXPECT_EQ(record.access, Access::ReadWrite);
        EXPECT_EQ(record.GetDescription(), c.description);
        EXPECT_EQ(record.GetFunction(), c.function);
    }
}

TEST(RecordParser, ABadValueIsTheOnlyMessageOfItsLine) {
    const std::string name = "REGISTER_NAME field is not alphabet or numeric.";
    const std::string address2Wire = "ADDRESS_2WIRE filed is not numric.";
    const std::string address3Wire = "ADDRESS_3WIRE filed is not numric.";
    const std::string lsb = "LSB filed is not numric or invalid value.";
    const std::string length = "LENGTH filed is not numric.";
    const std::string access = "RW filed is invalid keyword.";
    const std::string unreadable = "This line format is invalid.";
    const std::string separator = "Can't find separator(,).";
    const struct {
        std::string line;
        std::string text;
    } cases[] = {
        {"GA-IN,1,2,0,8,RW", name},
        {"\"GAIN\",1,2,0,8,RW", name},
        {"GAIN.1,1,2,0,8,RW", name},
        {"[NOTES]", name},
        {"[ENDIAN]", name},
        {"-1,x,x,x,x,x", name},
        {"GAIN,,2,0,8,RW", address2Wire},
        {"GAIN,x,2,0,8,RW", address2Wire},
        {"GAIN,\"1\",2,0,8,RW", address2Wire},
        {"GAIN,1.5,2,0,8,RW", address2Wire},
        {"GAIN,1 2,2,0,8,RW", address2Wire},
        {"GAIN,0x,2,0,8,RW", address2Wire},
        {"GAIN,1F,2,0,8,RW", address2Wire},
        {"GAIN,- 1,2,0,8,RW", address2Wire},
        {"GAIN,1,,0,8,RW", address3Wire},
        {"GAIN,1,x,9,x,x", address3Wire},
        {"GAIN,1,2,,8,RW", lsb},
        {"GAIN,1,2,8,8,RW", lsb},
        {"GAIN,1,2,x,8,RW", lsb},
        {"GAIN,1,2,-1,8,RW", lsb},
        {"GAIN,1,2,0.0,8,RW", lsb},
        {"GAIN,1,2,0,,RW", length},
        {"GAIN,1,2,0,x,RW", length},
        {"GAIN,1,2,0,256,RW", length},
        {"GAIN,1,2,0,-1,RW", length},
        {"GAIN,1,2,0,8,", "RW field is not defined."},
        {"GAIN,1,2,0,8,,D", access},
        {"GAIN,1,2,0,8,RWX", access},
        {"GAIN,1,2,0,8,rw", access},
        {"GAIN,1,2,0,8,\"RW\"", access},
        {"GAIN,1,2,0,8,2", access},
        {"GAIN,1,2,0,8,RW,\"D\" more,F", separator},
        {"GAIN,1,2,0,8,RW,\"D\"\"E\",F", separator},
        {"GAIN,1,2,0,8,RW,D,\"F\";", separator},
        {"GAIN,1,2,0,8,RW,\"D", unreadable},
        {"GAIN,1,2,0,8,RW,\"D\\\",F", unreadable},
        {"\"", unreadable},
        {"99999999999,1,2,0,8,RW", unreadable},
        {"GAIN,0x100000000,2,0,8,RW", unreadable},
        {"GAIN,1,2,0,8,RW,D,F,99999999999", unreadable},
        {"GAIN,1,2,0,8,RW,D,F,\"", unreadable},
        {"GAIN,1,2,0,8,RW,D,F,more \"", unreadable},
        // The rest of the line does not count, whatever it is.
        {"GAIN,x,99999999999,\"", address2Wire},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        const ParsedText parsed(kAllColumns + c.line + "\nNEXT,1,2,0,8,RW\n");
        EXPECT_FALSE(parsed.isGood);
        EXPECT_EQ(parsed.Errors(), Lines{ErrorAt(3, c.text)});
        EXPECT_EQ(parsed.Names(), Lines{"NEXT"});
    }
}

TEST(RecordParser, AnInvalidLetterHidesWhatFollows) {
    const ParsedText parsed(kAllColumns + "A,1,2,0,8,RW\nB,1,2,0,8,RW,caf\xC3\xA9\nC,1,2,0,8,RW\n");
    EXPECT_FALSE(parsed.isGood);
    EXPECT_EQ(parsed.Errors(), Lines{ErrorAt(4, "This line format is invalid.")});
    EXPECT_EQ(parsed.Names(), Lines{"A"});
}

TEST(RecordParser, RequiredFieldsAreAllCheckedInOrder) {
    const std::string name = ErrorAt(3, "REGISTER_NAME field is not defined.");
    const std::string address = ErrorAt(3, "Address field is not defined both 2WIRE and 3WIRE.");
    const std::string lsb = ErrorAt(3, "LSB field is not defined.");
    const std::string length = ErrorAt(3, "LENGTH field is not defined.");
    const std::string access = ErrorAt(3, "RW field is not defined.");
    const struct {
        std::string header;
        std::string line;
        Lines errors;
    } cases[] = {
        {"REGISTER_NAME,LSB,LENGTH,RW", "GAIN,0,8,RW", {address}},
        {"ADDRESS_2WIRE,LSB,LENGTH,RW", "0,0,8,RW", {name}},
        {"REGISTER_NAME,ADDRESS_3WIRE,LENGTH,RW", "GAIN,0,8,RW", {lsb}},
        {"REGISTER_NAME,ADDRESS_3WIRE,LSB,RW", "GAIN,0,0,RW", {length}},
        {"REGISTER_NAME,ADDRESS_3WIRE,LSB,LENGTH", "GAIN,0,0,8", {access}},
        {"DESCRIPTION", "\"text\"", {name, address, lsb, length, access}},
        {"DESCRIPTION,FUNCTION", ",", {name, address, lsb, length, access}},
        {"REGISTER_NAME,ADDRESS_2WIRE,LSB,LENGTH,RW", "GAIN", {address, lsb, length, access}},
        {"REGISTER_NAME,ADDRESS_2WIRE,LSB,LENGTH,RW", "GAIN,5,", {lsb, length, access}},
        {"REGISTER_NAME,ADDRESS_2WIRE,LSB,LENGTH,RW", ",5,0,8,RW", {name}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.header + " / " + c.line);
        const ParsedText parsed("[REGISTER]\n" + c.header + "\n" + c.line + "\n");
        EXPECT_FALSE(parsed.isGood);
        EXPECT_EQ(parsed.Errors(), c.errors);
        EXPECT_EQ(parsed.Names(), Lines{});
    }
}

TEST(RecordParser, AllBadRecordsAreReportedAndAllGoodOnesKept) {
    const ParsedText parsed(kAllColumns +
                            "A,1,2,0,8,RW\n"
                            "B,1,2,9,8,RW\n"
                            "\n"
                            "C,1,2,0,8,RW\n"
                            "D,1,2\n"
                            "E,1,2,0,8,XX\n"
                            "F,1,2,0,8,RW");
    EXPECT_FALSE(parsed.isGood);
    EXPECT_EQ(parsed.Names(), (Lines{"A", "C", "F"}));
    EXPECT_EQ(parsed.Errors(),
              (Lines{ErrorAt(4, "LSB filed is not numric or invalid value."),
                     ErrorAt(7, "LSB field is not defined."), ErrorAt(7, "LENGTH field is not defined."),
                     ErrorAt(7, "RW field is not defined."), ErrorAt(8, "RW filed is invalid keyword.")}));
}

TEST(RecordParser, AColumnNamedTwiceTakesTheLaterValue) {
    const ParsedText parsed("[REGISTER]\nREGISTER_NAME,LSB,ADDRESS_2WIRE,LSB,LENGTH,RW\nGAIN,1,2,3,4,RO\n");
    ASSERT_TRUE(parsed.isGood);
    EXPECT_EQ(parsed.contents.records[0].GetLsb(), 3);
}

TEST(RecordParser, AddressesKeepAll32Bits) {
    const ParsedText parsed(kAllColumns + "A,0x12345678,4294967295,0,8,RW\nB,-1,65536,0,8,RW\n");
    ASSERT_TRUE(parsed.isGood);
    EXPECT_EQ(parsed.contents.records[0].GetAddress2Wire(), 0x12345678U);
    EXPECT_EQ(parsed.contents.records[0].GetAddress3Wire(), 0xFFFFFFFFU);
    EXPECT_EQ(parsed.contents.records[1].GetAddress2Wire(), 0xFFFFFFFFU);
    EXPECT_EQ(parsed.contents.records[1].GetAddress3Wire(), 0x10000U);
}

// --- byte order

TEST(RecordParser, WithoutEndianEntriesTheRuleGivesTheByteOrder) {
    const ParsedText parsed(kAllColumns + "A,0x2FFF,0x3000,0,8,RW\nB,0x3000,0x2FFF,0,8,RW\n");
    ASSERT_TRUE(parsed.isGood);
    EXPECT_FALSE(parsed.contents.records[0].GetBigEndian(0));
    EXPECT_TRUE(parsed.contents.records[0].GetBigEndian(1));
    EXPECT_TRUE(parsed.contents.records[1].GetBigEndian(0));
    EXPECT_FALSE(parsed.contents.records[1].GetBigEndian(1));
    EXPECT_FALSE(parsed.contents.records[1].GetBigEndian(2));
    EXPECT_TRUE(parsed.contents.records[0].GetBigEndian(-1));
}

TEST(RecordParser, EndianEntriesGiveTheByteOrder) {
    const ParsedText parsed("[ENDIAN]\nB:0x4000..0x4FFF\nL:0..0xFF\n" + kAllColumns +
                            "A,0x4000,0x10,0,8,RW\n");
    ASSERT_TRUE(parsed.isGood);
    EXPECT_FALSE(parsed.contents.records[0].GetBigEndian(0));
    EXPECT_TRUE(parsed.contents.records[0].GetBigEndian(1));
}

TEST(RecordParser, AnAddressThatIsNotGivenHasNoByteOrder) {
    const ParsedText parsed("[REGISTER]\nREGISTER_NAME,ADDRESS_2WIRE,LSB,LENGTH,RW\nA,0x10,0,8,RW\n");
    ASSERT_TRUE(parsed.isGood);
    EXPECT_TRUE(parsed.contents.records[0].GetBigEndian(1));
    EXPECT_FALSE(parsed.contents.records[0].GetBigEndian(0));
}

TEST(RecordParser, EveryAddressNeedsAnEndianEntry) {
    const auto missing = [](const std::string& address) {
        return "t.rgi(5): error : ADDRESS_3WIRE (0x" + address +
               ") is defined in [REGISTER] section, but there is no address in [ENDIAN] section.";
    };
    const struct {
        std::string line;
        Lines errors;
    } cases[] = {
        {"GAIN,0x10,0x1F,0,8,RW", {}},
        {"GAIN,0x10,0x20,0,8,RW", {missing("20")}},
        // The wording is the same for the two-wire address.
        {"GAIN,0x20,0x10,0,8,RW", {missing("20")}},
        {"GAIN,0xABCD,0xF,0,8,RW", {missing("f"), missing("abcd")}},
        {"GAIN,0x12345,0x10,0,8,RW", {missing("12345")}},
        {"GAIN,0x10,-1,0,8,RW", {missing("ffffffff")}},
        // What is not whole is not looked up.
        {"GAIN,0x20,0x20,0,8", {"t.rgi(5): error : RW field is not defined."}},
        {"GAIN,0x20,0x20,0,8,X", {"t.rgi(5): error : RW filed is invalid keyword."}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        const ParsedText parsed("[ENDIAN]\nB:0x10..0x1F\n" + kAllColumns + c.line + "\n");
        EXPECT_EQ(parsed.isGood, c.errors.empty());
        EXPECT_EQ(parsed.Errors(), c.errors);
        EXPECT_EQ(parsed.contents.records.size(), c.errors.empty() ? 1U : 0U);
    }
}

TEST(RecordParser, OnlyAddressesThatAreGivenNeedAnEndianEntry) {
    const ParsedText parsed(
        "[ENDIAN]\nB:0x10..0x1F\n[REGISTER]\nREGISTER_NAME,LSB,LENGTH,RW,ADDRESS_3WIRE,ADDRESS_2WIRE\n"
        "A,0,8,RW,0x10\n");
    EXPECT_TRUE(parsed.isGood);
    EXPECT_EQ(parsed.Errors(), Lines{});
}

}  // namespace
}  // namespace macroengine
