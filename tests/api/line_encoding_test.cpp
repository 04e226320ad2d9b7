#include <gtest/gtest.h>
#include <string>

#include <macroengine/LineEncoding.h>

namespace {

struct Coded {
    int size;
    std::string text;
};

Coded Encode(const std::string& line, std::size_t capacity = 6000) {
    std::string out(capacity, '#');
    const int size = EncodeSourceLine(line.data(), static_cast<unsigned int>(line.size()), out.data(),
                                      static_cast<unsigned int>(out.size()));
    return {size, out.substr(0, size < 0 ? 0 : static_cast<std::size_t>(size))};
}

Coded Decode(const std::string& line, std::size_t capacity = kLongestEncodableLine) {
    std::string out(capacity, '#');
    const int size = DecodeSourceLine(line.data(), static_cast<unsigned int>(line.size()), out.data(),
                                      static_cast<unsigned int>(out.size()));
    return {size, out.substr(0, size < 0 ? 0 : static_cast<std::size_t>(size))};
}

TEST(LineEncodingTest, ALineIsTheComplementOfItsBytesInGroupsOfFourLetters) {
    // 'A' is 0x41, its complement 0xBE: 101111 10(0000) gives "v" and "g".
    EXPECT_EQ(Encode("A").text, "vg**");
    // "AB" is 0xBE 0xBD: 101111 101011 1101(00).
    EXPECT_EQ(Encode("AB").text, "vr0*");
    // "ABC" is 0xBE 0xBD 0xBC: 101111 101011 110110 111100.
    EXPECT_EQ(Encode("ABC").text, "vr28");
    EXPECT_EQ(Encode("").size, 0);
}

TEST(LineEncodingTest, EveryLineWithinTheLimitComesBack) {
    std::string line;
    for (int length = 0; length <= 4095; length += 7) {
        line.clear();
        for (int i = 0; i < length; ++i)
            line += static_cast<char>(1 + (i * 37 + length) % 254);
        const Coded encoded = Encode(line);
        ASSERT_EQ(encoded.size, (length + 2) / 3 * 4);
        const Coded decoded = Decode(encoded.text + "\r\n");
        ASSERT_EQ(decoded.size, length);
        ASSERT_EQ(decoded.text, line);
    }
}

TEST(LineEncodingTest, TheLongestLineIsTheLastThatIsEncoded) {
    EXPECT_EQ(Encode(std::string(4095, 'x')).size, 5460);
    EXPECT_EQ(Encode(std::string(4096, 'x')).size, -1);
    EXPECT_EQ(Decode(Encode(std::string(4095, 'x')).text).size, 4095);
}

TEST(LineEncodingTest, BytesWithoutAnEncodedFormAreRefused) {
    EXPECT_EQ(Encode(std::string("a\0b", 3)).size, -1);
    EXPECT_EQ(Encode("a\xFF").size, -1);
    EXPECT_EQ(Encode("a\x01\xFE").size, 4);
}

TEST(LineEncodingTest, ALineThatDecodesToMoreThanTheLimitIsRefused) {
    // "vr28" is "ABC": 1365 of them are 4095 bytes, 1366 are 4098.
    std::string encoded;
    for (int i = 0; i < 1365; ++i)
        encoded += "vr28";
    EXPECT_EQ(Decode(encoded, 5000).size, 4095);
    EXPECT_EQ(Decode(encoded + "vr28", 5000).size, -1);
}

TEST(LineEncodingTest, TooLittleRoomIsRefused) {
    EXPECT_EQ(Encode("ABC", 3).size, -1);
    EXPECT_EQ(Encode("ABC", 4).size, 4);
    EXPECT_EQ(Decode("vr28", 2).size, -1);
    EXPECT_EQ(Decode("vr28", 3).text, "ABC");
}

}  // namespace
