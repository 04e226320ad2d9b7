#include "source/EncodedText.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "support/EncodedLine.h"

namespace macroengine {
namespace {

using test::EncodedLine;

using Decoder = Base64Decoder<const char*, char*>;

struct Decoded {
    std::string bytes;
    std::uint32_t faults = 0;
};

std::string Decode(Decoder& decoder, std::string_view text, bool final = true) {
    std::string bytes(text.size() + 1, '\0');
    const char* const end = decoder.Decode(text.data(), text.data() + text.size(), bytes.data(), final);
    bytes.resize(static_cast<std::size_t>(end - bytes.data()));
    return bytes;
}

Decoded Decode(std::string_view text) {
    Decoder decoder;
    Decoded decoded;
    decoded.bytes = Decode(decoder, text);
    decoded.faults = decoder.GetFaults();
    return decoded;
}

TEST(Base64Decoder, GroupsOfFourCharactersGiveThreeBytes) {
    const struct {
        std::string_view text;
        std::string expected;
        std::uint32_t faults;
    } cases[] = {
        {"", "", 0},
        {"TWFu", "Man", 0},
        {"TWFuTWFu", "ManMan", 0},
        // The alphabet's ends: A is 0, Z 25, a 26, z 51, 0 52, 9 61, + 62, - 63.
        {"AAAA", std::string(3, '\0'), 0},
        {"ZZZZ", "\x65\x96\x59", 0},
        {"aaaa", "\x69\xA6\x9A", 0},
        {"zzzz", "\xCF\x3C\xF3", 0},
        {"0000", "\xD3\x4D\x34", 0},
        {"9999", "\xF7\xDF\x7D", 0},
        {"++++", "\xFB\xEF\xBE", 0},
        {"----", "\xFF\xFF\xFF", 0},
        // Line ends are ignored, wherever they stand.
        {"TW\r\nFu\n\r", "Man", 0},
        // A pad ends the group after one byte or two.
        {"TWE*", "Ma", 0},
        {"TQ**", "M", 0},
        {"TWFuTQ**", "ManM", 0},
        // What stands behind the pad in the third place does not count.
        {"TQ*u", "M", 0},
        // An incomplete group at the end is dropped.
        {"TWF", "", 0},
        {"TWFuTWF", "Man", 0},
        {"T", "", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const Decoded decoded = Decode(c.text);
        EXPECT_EQ(decoded.bytes, c.expected);
        EXPECT_EQ(decoded.faults, c.faults);
    }
}

TEST(Base64Decoder, ForeignCharactersAndMisplacedPadsAreFaultsAndPassedOver) {
    const struct {
        std::string_view text;
        std::string expected;
        std::uint32_t faults;
    } cases[] = {
        {"T!W?F.u", "Man", 3},
        {"=TWFu/", "Man", 2},
        {" TWFu\t", "Man", 2},
        {"T\x80WF\xFFu", "Man", 2},
        {std::string_view("TW\0Fu", 5), "Man", 1},
        // A pad in the first or the second place: the group gives nothing.
        {"*WFu", "", 1},
        {"T*Fu", "", 1},
        {"****", "", 1},
        {"*WFuTWFu", "Man", 1},
        // A group behind the end of the data is a fault, and decoded all the same; the next one is none.
        {"TWE*TWFu", "MaMan", 1},
        {"TWE*TWFuTWFu", "MaManMan", 1},
        {"TQ**TWE*", "MMa", 1},
        {"TQ**TWE*TWFu", "MMaMan", 2},
        {"TQ***WFuTWFu", "MMan", 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const Decoded decoded = Decode(c.text);
        EXPECT_EQ(decoded.bytes, c.expected);
        EXPECT_EQ(decoded.faults, c.faults);
    }
}

TEST(Base64Decoder, AGroupMayBeSpreadOverSeveralRanges) {
    Decoder decoder;
    EXPECT_EQ(Decode(decoder, "TW", false), "");
    EXPECT_EQ(Decode(decoder, "F", false), "");
    EXPECT_EQ(Decode(decoder, "uT", false), "Man");
    EXPECT_EQ(Decode(decoder, "WFu"), "Man");
    EXPECT_EQ(decoder.GetFaults(), 0U);
}

TEST(Base64Decoder, FinishDropsAnIncompleteGroup) {
    Decoder decoder;
    char bytes[8] = {};
    EXPECT_EQ(Decode(decoder, "TWF", false), "");
    EXPECT_EQ(decoder.Finish(bytes), bytes);
    EXPECT_EQ(Decode(decoder, "TWFu"), "Man");
}

TEST(Base64Decoder, ItIsReachedThroughItsBase) {
    Decoder decoder;
    MimeCoder<const char*, char*>& coder = decoder;
    const std::string_view text = "TWFuTW";
    char bytes[8] = {};
    EXPECT_EQ(coder.Decode(text.data(), text.data() + text.size(), bytes, false), bytes + 3);
    EXPECT_EQ(coder.Finish(bytes + 3), bytes + 3);
    EXPECT_EQ(std::string(bytes, 3), "Man");
}

struct Line {
    std::string text;
    std::size_t length = 0;
};

Line DecodeLine(std::string_view encoded) {
    Line line{"before ", 0};
    line.length = DecodeSourceLine(encoded, line.text);
    return line;
}

TEST(DecodeSourceLine, TheDecodedBytesAreComplemented) {
    const struct {
        std::string_view encoded;
        std::string expected;
    } cases[] = {
        // ~'a' is 0x9E, ~'b' 0x9D, ~'c' 0x9C.
        {"np2c", "abc"}, {"np2c\r\n", "abc"}, {"np2c\n", "abc"}, {"np0*", "ab"},
        {"ng**", "a"},   {"n=p/2c", "abc"},   {"", ""},          {"\r\n", ""},
        {"n", ""},       {"*p2c", ""},        {"np2cnp", "abc"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.encoded);
        const Line line = DecodeLine(c.encoded);
        EXPECT_EQ(line.text, "before " + c.expected);
        EXPECT_EQ(line.length, c.expected.size());
    }
}

TEST(DecodeSourceLine, ANulEndsTheLineOnEitherSideOfTheCoding) {
    // In the encoded text.
    EXPECT_EQ(DecodeLine(std::string_view("np2c\0np2c", 9)).text, "before abc");
    // Among the decoded bytes: 0x9E 0x00 0x9C.
    EXPECT_EQ(DecodeLine("ngCc").text, "before a");
    // A decoded 0xFF is the complement of NUL: 0x9E 0xFF 0x9C.
    EXPECT_EQ(DecodeLine("nv+c").text, "before a");
    // First of all.
    EXPECT_EQ(DecodeLine("AJ2c").text, "before ");
    EXPECT_EQ(DecodeLine("-52c").text, "before ");
}

TEST(DecodeSourceLine, EveryByteButTheFirstAndTheLastMayStandInALine) {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    // The last one, 0xFF, has a NUL for its complement and so ends the line.
    const std::string kept = bytes.substr(0, 254);
    EXPECT_EQ(DecodeLine(EncodedLine(kept)).text, "before " + kept);
    EXPECT_EQ(DecodeLine(EncodedLine(bytes)).text, "before " + kept);
}

TEST(DecodeSourceLine, ALineOfMoreThan4095BytesIsEmpty) {
    const std::string longest(4095, 'x');
    const Line kept = DecodeLine(EncodedLine(longest));
    EXPECT_EQ(kept.text, "before " + longest);
    EXPECT_EQ(kept.length, 4095U);

    for (const std::size_t length : {4096U, 4097U, 5000U, 100000U}) {
        SCOPED_TRACE(length);
        const Line dropped = DecodeLine(EncodedLine(std::string(length, 'x')));
        EXPECT_EQ(dropped.text, "before ");
        EXPECT_EQ(dropped.length, 0U);
    }
}

TEST(DecodeSourceLine, TheLengthIsMeasuredUpToTheFirstDecodedNul) {
    std::string text(4095, 'x');
    // 0xFF is encoded as its complement, a NUL: what follows does not count.
    text.append("\xFF").append(3000, 'y');
    EXPECT_EQ(DecodeLine(EncodedLine(text)).text, "before " + std::string(4095, 'x'));
    // The complement of NUL is a byte like any other while the length is measured.
    text = std::string(10, 'x').append(1, '\0').append(4085, 'y');
    EXPECT_EQ(DecodeLine(EncodedLine(text)).text, "before ");
    text.pop_back();
    EXPECT_EQ(DecodeLine(EncodedLine(text)).text, "before " + std::string(10, 'x'));
}

}  // namespace
}  // namespace macroengine
