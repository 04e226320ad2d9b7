#include <gtest/gtest.h>
#include <random>
#include <string>
#include <type_traits>

#include "regdef/CRegDefFile.h"
#include "regdef/PSCRegDefFile.h"
#include "support/TemporaryFolder.h"

// Files that nobody would write. Whatever is in them, a load ends, and all that it leaves can be asked for.

namespace macroengine {
namespace {

const std::string kColumns =
    "[REGISTER]\nREGISTER_NAME,ADDRESS_2WIRE,ADDRESS_3WIRE,LSB,LENGTH,RW,DESCRIPTION,FUNCTION\n";

const std::string kSectioned = "Sensor \"board\" 2\n[ENDIAN]\nB:0..0x1F\nL:32..255\n" + kColumns +
                               "GAIN,0x10,0x20,0,8,RW,\"Gain, in dB\",\"input\" // note\n"
                               "OFFSET,0x11,0x21,4,4,RO,\"a \\\"b\\\"\",x y z\n";

const std::string kLineBased =
    "HiAddress 12 // upper\nGAIN h1Fr 34 0 8 // 5 %\n//.note\n\nVAL u12*(0.5)+3 10034 0 8 33 0 4\n"
    "NEG -5 10 0 4\n";

template <class Reader>
void Exercise(const std::string& path) {
    Reader file;
    const bool isLoaded = file.Load(path.c_str());
    EXPECT_TRUE(isLoaded || file.GetErrorCount() > 0U);
    for (std::uint32_t i = 0; i <= file.GetErrorCount(); ++i)
        EXPECT_NE(file.GetErrorMessage(i), nullptr);
    for (std::uint32_t i = 0; i <= file.GetPreambleCount(); ++i)
        EXPECT_NE(file.GetPreamble(static_cast<std::int32_t>(i)), nullptr);
    EXPECT_NE(file.GetListing(), nullptr);
    if constexpr (std::is_same_v<Reader, PSCRegDefFile>) {
        EXPECT_TRUE(file.MergeSplitRegisters());
        EXPECT_NE(file.GetListing(), nullptr);
    }
}

class HostileRegisterFile : public ::testing::Test {
protected:
    /// Loads the bytes with both readers, plain and as if they were encoded.
    void Survive(const std::string& bytes) {
        for (const char* const name : {"t.txt", "t.iod"}) {
            const std::string path = folder_.Write(name, bytes);
            Exercise<CRegDefFile>(path);
            Exercise<PSCRegDefFile>(path);
        }
    }

    test::TemporaryFolder folder_;
};

TEST_F(HostileRegisterFile, NextToNothing) {
    for (const std::string bytes :
         {"",   " ",  "\t",  "\n", "\r", "\r\n", "[", "]",    ",",    "\"",          "/",
          "//", "/*", "//.", ".",  "-",  "*",    "%", "\x1A", "\xFF", "\xEF\xBB\xBF"})
        Survive(bytes);
    Survive(std::string(1, '\0'));
}

TEST_F(HostileRegisterFile, TruncatedAnywhere) {
    for (std::size_t length = 0; length <= kSectioned.size(); ++length)
        Survive(kSectioned.substr(0, length));
    for (std::size_t length = 0; length <= kLineBased.size(); ++length)
        Survive(kLineBased.substr(0, length));
}

TEST_F(HostileRegisterFile, AnyByteReplacedByAny) {
    std::mt19937 random(1);
    for (const std::string& whole : {kSectioned, kLineBased}) {
        for (int i = 0; i < 150; ++i) {
            std::string bytes = whole;
            bytes[random() % bytes.size()] = static_cast<char>(random());
            bytes[random() % bytes.size()] = "\0\n\r\t\",[]*/.-%"[random() % 13];
            Survive(bytes);
        }
    }
}

TEST_F(HostileRegisterFile, Noise) {
    std::mt19937 random(2);
    const std::string letters = "BL:.0x9,[]\"\\/*-+()%shuwr \n\r\tENDIANREGISTER";
    for (int i = 0; i < 60; ++i) {
        std::string binary;
        std::string text = kColumns;
        for (auto length = random() % 300; length != 0; --length) {
            binary += static_cast<char>(random());
            text += letters[random() % letters.size()];
        }
        Survive(binary);
        Survive(text);
        Survive(text.substr(kColumns.size()));
        Survive("[ENDIAN]\n" + text.substr(kColumns.size()));
    }
}

TEST_F(HostileRegisterFile, OtherLineEnds) {
    for (std::string bytes : {kSectioned, kLineBased}) {
        for (char& c : bytes)
            if (c == '\n') c = '\r';
        Survive(bytes);
    }
}

TEST_F(HostileRegisterFile, CarriageReturnsAloneEndTheLinesOfASectionedFile) {
    std::string bytes = kSectioned.substr(0, kSectioned.find(" // note")) + "\n";
    for (char& c : bytes)
        if (c == '\n') c = '\r';
    CRegDefFile file;
    EXPECT_TRUE(file.Load(folder_.Write("t.rgi", bytes).c_str()));
    ASSERT_EQ(file.GetRegisterCount(), 1U);
    EXPECT_STREQ(file.GetRegister(0)->GetName(), "GAIN");
}

TEST_F(HostileRegisterFile, TheTextOfASectionedFileEndsAtANul) {
    const std::string bytes = kSectioned + std::string(1, '\0') + "\nBAD\n";
    CRegDefFile file;
    EXPECT_TRUE(file.Load(folder_.Write("t.rgi", bytes).c_str()));
    EXPECT_EQ(file.GetRegisterCount(), 2U);
}

TEST_F(HostileRegisterFile, LinesOfAMegabyte) {
    constexpr std::size_t kMegabyte = 1000000;
    const std::string x(kMegabyte, 'x');
    std::string tokens;
    std::string values;
    std::string pieces;
    while (tokens.size() < kMegabyte) {
        tokens += "x ";
        values += "1,";
        pieces += " 10 0 1";
    }
    for (const std::string& line :
         {x, tokens, values, std::string(kMegabyte, ' '), std::string(kMegabyte, '['),
          std::string(kMegabyte, ','), std::string(kMegabyte, '"'), std::string(kMegabyte, '0'),
          std::string(kMegabyte, '('),
          "A " + std::string(kMegabyte, '9') + "*" + std::string(kMegabyte, '9') + "+1 10 0 8",
          "A 0" + pieces, "//." + x, "//" + std::string(kMegabyte, '.'),
          "HiAddress " + std::string(kMegabyte, 'F')}) {
        Survive(kColumns + line + "\n" + line);
        Survive("[ENDIAN]\nB:" + line);
        Survive("A 0 10 0 8\n" + line);
    }
}

TEST_F(HostileRegisterFile, LongTextsAreWhole) {
    const std::string text(1000000, 't');
    CRegDefFile sectioned;
    EXPECT_TRUE(sectioned.Load(
        folder_.Write("t.rgi", kColumns + "GAIN,1,1,0,8,RW,\"" + text + "\"," + text + "\n").c_str()));
    ASSERT_EQ(sectioned.GetRegisterCount(), 1U);
    EXPECT_EQ(sectioned.GetRegister(0)->GetDescription(), text);
    EXPECT_EQ(sectioned.GetRegister(0)->GetFunction(), text);

    PSCRegDefFile lineBased;
    EXPECT_TRUE(lineBased.Load(folder_.Write("t.txt", text + " 5 10 0 8\n//." + text).c_str()));
    ASSERT_EQ(lineBased.GetRegisterCount(), 1U);
    EXPECT_EQ(lineBased.GetRegister(0)->GetName(), text);
    EXPECT_EQ(lineBased.GetRegister(0)->GetFunction(), text + " %d 10 0 8\r\n" + text);
}

TEST_F(HostileRegisterFile, ManyLinesTakeLinearTime) {
    constexpr int kLines = 200000;
    const auto repeated = [](const std::string& line) {
        std::string text;
        text.reserve(line.size() * kLines);
        for (int i = 0; i < kLines; ++i)
            text += line;
        return text;
    };
    const auto load = [this](auto&& file, const std::string& bytes) {
        return file.Load(folder_.Write("t.txt", bytes).c_str());
    };
    CRegDefFile endian;
    EXPECT_FALSE(load(endian, "[ENDIAN]\n" + repeated("B:0..0xFFFE\n")));
    CRegDefFile bad;
    EXPECT_FALSE(load(bad, kColumns + repeated("A,\n")));
    EXPECT_EQ(bad.GetErrorCount(), 4U * kLines);
    CRegDefFile unreadable;
    EXPECT_FALSE(load(unreadable, kColumns + repeated("A,\"\n")));
    EXPECT_EQ(unreadable.GetErrorCount(), static_cast<std::uint32_t>(kLines));
    CRegDefFile preamble;
    EXPECT_FALSE(load(preamble, repeated("[REGISTER\n")));
    EXPECT_EQ(preamble.GetPreambleCount(), 2U * kLines);
    PSCRegDefFile notes;
    EXPECT_TRUE(load(notes, "A 0 10 0 8\n" + repeated("//.note\n")));
    EXPECT_EQ(std::string(notes.GetRegister(0)->GetFunction()).size(), 11 + 6U * kLines);
    PSCRegDefFile merged;
    EXPECT_TRUE(load(merged, repeated("A 1 10 0 0\n")));
    EXPECT_TRUE(merged.MergeSplitRegisters());
    EXPECT_EQ(merged.GetRegisterCount(), 1U);
    PSCRegDefFile pairs;
    EXPECT_TRUE(load(pairs, repeated("A 1 10 0 4\nB 2 10 4 4\n")));
    EXPECT_TRUE(pairs.MergeSplitRegisters());
    EXPECT_EQ(pairs.GetRegisterCount(), static_cast<std::uint32_t>(kLines));
}

}  // namespace
}  // namespace macroengine
