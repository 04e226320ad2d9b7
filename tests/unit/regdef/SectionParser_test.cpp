#include "regdef/SectionParser.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "unit/regdef/ParsedText.h"

namespace macroengine {
namespace {

using test::ParsedText;
using Lines = std::vector<std::string>;

const std::string kRegisters = "[REGISTER]\nREGISTER_NAME,ADDRESS_2WIRE,LSB,LENGTH,RW\nGAIN,0x10,0,8,RW\n";

// --- preamble and section headers

TEST(SectionParser, ThePreambleIsAllThatStandsBeforeTheFirstSection) {
    const struct {
        std::string text;
        Lines preamble;
    } cases[] = {
        {"", {}},
        {"\n\n", {}},
        {"// nothing\n/* that\ncounts */\n", {}},
        {"Sensor board, rev 2\n", {"Sensor", "board", ",", "rev", "2"}},
        {"one\n\n  two // three\n", {"one", "two"}},
        {"\"a \\\"b\\\" c\" 0x1F -5 1.5 #define ==\n",
         {"\"a \"b\" c\"", "0x1F", "-5", "1.5", "#define", "=="}},
        // No section that is known, so its header is text like any other.
        {"[NOTES]\nwhatever\n", {"[", "NOTES", "]", "whatever"}},
        {"[Register]\n[ REGISTER\n]\n[REGISTER x]\n[[REGISTER]]\n",
         {"[", "Register", "]", "[", "REGISTER", "]", "[", "REGISTER", "x", "]", "[", "[", "REGISTER", "]",
          "]"}},
        {"see [REGISTER] below\n", {"see", "[", "REGISTER", "]", "below"}},
        {"[\n[ENDIAN\n", {"[", "[", "ENDIAN"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const ParsedText parsed(c.text + kRegisters);
        EXPECT_TRUE(parsed.isGood);
        EXPECT_EQ(parsed.Preamble(), c.preamble);
        EXPECT_EQ(parsed.Errors(), Lines{});
        EXPECT_EQ(parsed.Names(), Lines{"GAIN"});
    }
}

TEST(SectionParser, BlanksAndCommentsMayStandInAHeaderLineAndOtherTextBehindIt) {
    for (const std::string header : {"[REGISTER]", " \t[ REGISTER ] \t", "/* a */ [/**/REGISTER/**/] // b",
                                     "[REGISTER] and so on", "[REGISTER]]"}) {
        SCOPED_TRACE(header);
        const ParsedText parsed(header + kRegisters.substr(std::string("[REGISTER]").size()));
        EXPECT_TRUE(parsed.isGood);
        EXPECT_EQ(parsed.Preamble(), Lines{});
        EXPECT_EQ(parsed.Names(), Lines{"GAIN"});
    }
}

TEST(SectionParser, UnknownSectionsAreSkipped) {
    const ParsedText parsed("[ENDIAN]\nB:0..0x1F\n[NOTES]\nB 5\n\n[MORE] text\n" + kRegisters);
    EXPECT_TRUE(parsed.isGood);
    EXPECT_EQ(parsed.Preamble(), Lines{});
    EXPECT_EQ(parsed.Names(), Lines{"GAIN"});
}

TEST(SectionParser, MissingSections) {
    const struct {
        std::string text;
        std::string error;
    } cases[] = {
        {"", "t.rgi(1): error : Can't find [ENDIAN] or [REGISTER]."},
        {"a\nb\n", "t.rgi(3): error : Can't find [ENDIAN] or [REGISTER]."},
        {"a\nb", "t.rgi(2): error : Can't find [ENDIAN] or [REGISTER]."},
        {"[REGISTER", "t.rgi(1): error : Can't find [ENDIAN] or [REGISTER]."},
        {"[REGISTER\n", "t.rgi(2): error : Can't find [ENDIAN] or [REGISTER]."},
        {"[register]\nREGISTER_NAME\n", "t.rgi(3): error : Can't find [ENDIAN] or [REGISTER]."},
        {"// [REGISTER]\n", "t.rgi(2): error : Can't find [ENDIAN] or [REGISTER]."},
        {"[ENDIAN]", "t.rgi(1): error : Can't find [ENDIAN] or [REGISTER]."},
        {"[ENDIAN]\nB:0..5\n", "t.rgi(3): error : Can't find [ENDIAN] or [REGISTER]."},
        {"[ENDIAN]\nB:0..5\n[NOTES]\nx\n", "t.rgi(5): error : Can't find [ENDIAN] or [REGISTER]."},
        {"[ENDIAN]\nB:0..5\n[ENDIAN]\nL:6..7\n" + kRegisters,
         "t.rgi(4): error : Can't find [REGISTER] section."},
        {"[ENDIAN]\n[NOTES]\n[ENDIAN]", "t.rgi(3): error : Can't find [REGISTER] section."},
        {std::string("[REGI\0STER]", 11), "t.rgi(1): error : Can't find [ENDIAN] or [REGISTER]."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const ParsedText parsed(c.text);
        EXPECT_FALSE(parsed.isGood);
        EXPECT_EQ(parsed.Errors(), Lines{c.error});
        EXPECT_EQ(parsed.Names(), Lines{});
    }
}

TEST(SectionParser, WhatTheLexerCannotReadOutsideOfRecordsEndsTheLoad) {
    const struct {
        std::string text;
        std::string error;
    } cases[] = {
        {"caf\xC3\xA9\n", "t.rgi(1): error : find invalid letter(s) in file."},
        {"\n15\" panel\n", "t.rgi(2): error : Can't find [\"] for the end of string."},
        {"phone 99999999999\n", "t.rgi(1): error : 99999999999 is out of range"},
        {"[REGISTER] \"\n", "t.rgi(1): error : Can't find [\"] for the end of string."},
        {"[ENDIAN]\nB:0x100000000..5\n", "t.rgi(2): error : 0x100000000 is out of range"},
        {"[ENDIAN]\n\xFF:0..5\n", "t.rgi(2): error : find invalid letter(s) in file."},
        {"[ENDIAN]\nB\xFF:0..5\n", "t.rgi(2): error : find invalid letter(s) in file."},
        {"[ENDIAN]\nB \xFF:0..5\n", "t.rgi(2): error : find invalid letter(s) in file."},
        {"[ENDIAN]\nB:\xFF:0..5\n", "t.rgi(2): error : find invalid letter(s) in file."},
        {"[ENDIAN]\nB:0\xFF..5\n", "t.rgi(2): error : find invalid letter(s) in file."},
        {"[ENDIAN]\nB:0..\xFF\n", "t.rgi(2): error : find invalid letter(s) in file."},
        {"[ENDIAN]\nB:0..5 \"\n", "t.rgi(2): error : Can't find [\"] for the end of string."},
        {"[ENDIAN]\n[\xFF", "t.rgi(2): error : find invalid letter(s) in file."},
        {"[ENDIAN]\n[NOTES\xFF", "t.rgi(2): error : find invalid letter(s) in file."},
        {"[ENDIAN]\n[NOTES \xFF", "t.rgi(2): error : find invalid letter(s) in file."},
        {"[ENDIAN]\n[NOTES]\xFF", "t.rgi(2): error : find invalid letter(s) in file."},
        {"[ENDIAN]\n[NOTES]\n\xFF", "t.rgi(3): error : find invalid letter(s) in file."},
        {"[REGISTER]\n\xFF\n", "t.rgi(2): error : find invalid letter(s) in file."},
        {"[REGISTER]\nLSB \xFF\n", "t.rgi(2): error : find invalid letter(s) in file."},
        {"[REGISTER]\nLSB, \xFF\n", "t.rgi(2): error : find invalid letter(s) in file."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const ParsedText parsed(c.text + kRegisters);
        EXPECT_FALSE(parsed.isGood);
        EXPECT_EQ(parsed.Errors(), Lines{c.error});
        EXPECT_EQ(parsed.Names(), Lines{});
    }
}

// --- [ENDIAN]

std::string OrderOf(const ParsedText& parsed, std::uint32_t address) {
    const std::optional<bool> order = parsed.contents.endian.IsBigEndian(address);
    if (!order) return "unknown";
    return *order ? "big" : "little";
}

TEST(SectionParser, EndianLinesInAnyForm) {
    for (const std::string line :
         {"B:0x10..0x1F", "B:16..31", " B : 0x10 . . 0x1f ", "B:16 ..31", "B:16. .31", "B:0X10../* to */31",
          "B:0x10..31 // comment", "B:016..0x1F", "\tB:0x00000010..0x0000001F\r"}) {
        SCOPED_TRACE(line);
        const ParsedText parsed("[ENDIAN]\n" + line + "\n" + kRegisters);
        EXPECT_TRUE(parsed.isGood);
        EXPECT_EQ(parsed.Errors(), Lines{});
        EXPECT_EQ(OrderOf(parsed, 0x0F), "unknown");
        EXPECT_EQ(OrderOf(parsed, 0x10), "big");
        EXPECT_EQ(OrderOf(parsed, 0x1F), "big");
        EXPECT_EQ(OrderOf(parsed, 0x20), "unknown");
    }
}

TEST(SectionParser, TheFirstEndianEntryOfAnAddressCounts) {
    const ParsedText parsed("[ENDIAN]\n\nB:0..0x1F\n\nL:0x10..0xFFFF\nB:5..5\n" + kRegisters);
    EXPECT_TRUE(parsed.isGood);
    EXPECT_EQ(OrderOf(parsed, 0), "big");
    EXPECT_EQ(OrderOf(parsed, 0x1F), "big");
    EXPECT_EQ(OrderOf(parsed, 0x20), "little");
    EXPECT_EQ(OrderOf(parsed, 0xFFFF), "little");
}

TEST(SectionParser, AnEndianSectionMayBeEmpty) {
    const ParsedText parsed("[ENDIAN]\n" + kRegisters);
    EXPECT_TRUE(parsed.isGood);
    EXPECT_EQ(OrderOf(parsed, 0x2FFF), "big");
    EXPECT_EQ(OrderOf(parsed, 0x3000), "little");
}

TEST(SectionParser, BadEndianLines) {
    const std::string start = "Can't find start address. (don't digit or hex-digit)";
    const std::string separator = "Can't find address separator('..') .";
    const std::string end = "Can't find end address. (don't digit or hex-digit. or invalid separator '..')";
    const std::string trailing = "Invaid letters or strings after end address.";
    const std::string unknownEnd = "Unknown end address in [ENDIAN] section.";
    const struct {
        std::string line;
        std::string text;
        int lineNumber = 2;
    } cases[] = {
        {"X:0..5", "Unknown endian's letter. (X)"},
        {"b:0..5", "Unknown endian's letter. (b)"},
        {"BL:0..5", "Unknown endian's letter. (BL)"},
        {"\"B\":0..5", "Unknown endian's letter. (\"B\")"},
        {"0..5", "Unknown endian's letter. (0.)"},
        {":0..5", "Unknown endian's letter. (:)"},
        {"[", "Unknown endian's letter. ([)"},
        {"[B:0..5]", "Unknown endian's letter. ([)"},
        {"[NOTES", "Unknown endian's letter. ([)"},
        {"B 0..5", "Need ':' after 'B' or 'L'."},
        {"L=0..5", "Need ':' after 'B' or 'L'."},
        // A line end counts with the line that it leads to.
        {"B", "Need ':' after 'B' or 'L'.", 3},
        {"B:..5", start},
        {"B:start..5", start},
        {"B:\"0\"..5", start},
        {"B:1.5..5", start},
        {"B:", start, 3},
        {"B:0x10", separator, 3},
        {"B:0x10 5", separator},
        {"B:0x10-5", separator},
        {"B:0x10.5", separator},
        {"B:16.", separator, 3},
        {"B:16. 31", separator},
        {"B:0x10:5", separator},
        {"B:0x10.. ", end, 3},
        {"B:0x10...5", end},
        {"B:0..x", end},
        {"B:0..5.", end},
        {"B:0..1.5", end},
        {"B:0..\"5\"", end},
        {"B:0..5,", trailing},
        {"B:0..5 L:6..7", trailing},
        {"B:0..5 5", trailing},
        {"B:5..0 x", trailing},
        {"B:0..0x10G", trailing},
        {"B:5..4", unknownEnd},
        {"B:0..0x10000", unknownEnd},
        {"B:0..4294967295", unknownEnd},
        {"B:0..-1", unknownEnd},
        {"B:-1..5", unknownEnd},
        {"B:-16..31", unknownEnd},
        {"B:0x10000..0x10001", unknownEnd},
        {"B:65536..65537", unknownEnd},
        {"B:99999999999..5", unknownEnd},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        const ParsedText parsed("[ENDIAN]\n" + c.line + "\n" + kRegisters);
        EXPECT_FALSE(parsed.isGood);
        EXPECT_EQ(parsed.Errors(), Lines{"t.rgi(" + std::to_string(c.lineNumber) + "): error : " + c.text});
        EXPECT_EQ(parsed.Names(), Lines{});
    }
}

TEST(SectionParser, ABadEndianLineEndsTheLoad) {
    const ParsedText parsed("[ENDIAN]\nB:0..5\nX\nY\n" + kRegisters);
    EXPECT_EQ(parsed.Errors(), Lines{"t.rgi(3): error : Unknown endian's letter. (X)"});
    EXPECT_EQ(OrderOf(parsed, 5), "big");
}

// --- the columns of [REGISTER]

TEST(SectionParser, ColumnsInTheirOrder) {
    const ParsedText parsed(
        "[REGISTER]\n\n// columns\nFUNCTION, DESCRIPTION,RW ,LENGTH,LSB,ADDRESS_3WIRE,ADDRESS_2WIRE,"
        "REGISTER_NAME,\n");
    using Column = RegisterColumn;
    EXPECT_TRUE(parsed.isGood);
    EXPECT_EQ(parsed.contents.columns,
              (std::vector<Column>{Column::Function, Column::Description, Column::Access, Column::Length,
                                   Column::Lsb, Column::Address3Wire, Column::Address2Wire, Column::Name}));
}

TEST(SectionParser, BadColumns) {
    const struct {
        std::string header;
        std::string error;
    } cases[] = {
        {"", "t.rgi(1): error : Can't find register header fields."},
        {"\n", "t.rgi(2): error : Can't find register header fields."},
        {"\n\n// nothing\n", "t.rgi(4): error : Can't find register header fields."},
        {"\nNAME,LSB", "t.rgi(2): error : Unknown keyword in register header. (NAME)"},
        {"\nLSB,lsb", "t.rgi(2): error : Unknown keyword in register header. (lsb)"},
        {"\nLSB,,RW", "t.rgi(2): error : Unknown keyword in register header. (,)"},
        {"\n,LSB", "t.rgi(2): error : Unknown keyword in register header. (,)"},
        {"\n\"LSB\"", "t.rgi(2): error : Unknown keyword in register header. (\"LSB\")"},
        {"\n[ENDIAN]", "t.rgi(2): error : Unknown keyword in register header. ([)"},
        {"\nLSB LENGTH", "t.rgi(2): error : Can't find separator(,)."},
        {"\n\nLSB;LENGTH", "t.rgi(3): error : Can't find separator(,)."},
        {"\nRW,LSB.", "t.rgi(2): error : Can't find separator(,)."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.header);
        const ParsedText parsed("[REGISTER]" + c.header);
        EXPECT_FALSE(parsed.isGood);
        EXPECT_EQ(parsed.Errors(), Lines{c.error});
    }
}

TEST(SectionParser, ASectionWithColumnsAloneIsGood) {
    const ParsedText parsed("[REGISTER]\nREGISTER_NAME");
    EXPECT_TRUE(parsed.isGood);
    EXPECT_EQ(parsed.Errors(), Lines{});
    EXPECT_EQ(parsed.Names(), Lines{});
}

}  // namespace
}  // namespace macroengine
