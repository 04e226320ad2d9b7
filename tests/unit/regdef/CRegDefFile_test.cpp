#include "regdef/CRegDefFile.h"

#include <gtest/gtest.h>
#include <string>

#include "support/EncodedLine.h"
#include "support/ScopedCodePage.h"
#include "support/TemporaryFolder.h"

namespace macroengine {
namespace {

const std::string kHeader = "[REGISTER]\nREGISTER_NAME,ADDRESS_2WIRE,LSB,LENGTH,RW,DESCRIPTION\n";

/// The lines of a plain text, each encoded.
std::string Encoded(const std::string& text) {
    std::string encoded;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        encoded += test::EncodedLine(text.substr(begin, end - begin)) + "\r\n";
        begin = end + 1;
    }
    return encoded;
}

TEST(CRegDefFile, FilesMayBeEncoded) {
    const test::TemporaryFolder folder;
    const std::string text = "Sensor\n\n" + kHeader + "GAIN,0x10,0,8,RW,\"in dB\"\n";
    for (const std::string name : {"plain.rgi", "plain.RGI", "plain.txt", "plain"}) {
        SCOPED_TRACE(name);
        CRegDefFile file;
        EXPECT_TRUE(file.Load(folder.Write(name, text).c_str()));
        ASSERT_EQ(file.GetRegisterCount(), 1U);
    }
    for (const std::string name :
         {"encoded.rgi", "encoded.Rgi", "encoded.iod", "encoded.dat", "encoded.DAT"}) {
        SCOPED_TRACE(name);
        CRegDefFile file;
        EXPECT_TRUE(file.Load(folder.Write(name, Encoded(text)).c_str()));
        ASSERT_EQ(file.GetRegisterCount(), 1U);
        EXPECT_STREQ(file.GetRegister(0)->GetDescription(), "in dB");
        EXPECT_STREQ(file.GetPreamble(0), "Sensor");
    }
}

TEST(CRegDefFile, LineNumbersAreThoseOfTheEncodedFile) {
    const test::TemporaryFolder folder;
    const std::string path = folder.Write("sensor.rgi", Encoded("\n" + kHeader + "\nGAIN,0x10,8,8,RW\n"));
    CRegDefFile file;
    EXPECT_FALSE(file.Load(path.c_str()));
    ASSERT_EQ(file.GetErrorCount(), 1U);
    EXPECT_EQ(file.GetErrorMessage(0), path + "(5): error : LSB filed is not numric or invalid value.");
}

TEST(CRegDefFile, FilesThatCannotBeRead) {
    const test::TemporaryFolder folder;
    const auto errorOf = [](const std::string& path) {
        CRegDefFile file;
        EXPECT_FALSE(file.Load(path.c_str()));
        EXPECT_EQ(file.GetErrorCount(), 1U);
        return std::string(file.GetErrorMessage(0));
    };
    for (const std::string name : {"missing.rgi", "missing.iod", "missing.txt"}) {
        const std::string path = folder.PathOf(name);
        EXPECT_EQ(errorOf(path), "error : File open error. (" + path + ")");
    }
    EXPECT_EQ(errorOf(folder.Path()), "error : File open error. (" + folder.Path() + ")");
    EXPECT_EQ(errorOf(""), "error : File open error. ()");
    const std::string empty = folder.Write("empty.rgi", "");
    EXPECT_EQ(errorOf(empty), "error : File read error. (" + empty + ")");
}

TEST(CRegDefFile, LoadsAddUp) {
    const test::TemporaryFolder folder;
    const std::string first =
        folder.Write("first.rgi", "one\n[ENDIAN]\nB:0..0x1F\n" + kHeader + "A,1,0,8,RW,\n");
    const std::string second =
        folder.Write("second.rgi", "two\n[ENDIAN]\nL:0..0x2F\n" + kHeader +
                                       "B,0x1F,0,8,RW,text\nC,0x20,0,8,RW\nD,0x30,0,8,RW\n");
    CRegDefFile file;
    EXPECT_TRUE(file.Load(first.c_str()));
    CRegFieldsIF* const a = file.GetRegister(0);
    const std::string listing = file.GetListing();
    EXPECT_FALSE(file.Load(folder.PathOf("missing.rgi").c_str()));
    EXPECT_FALSE(file.Load(second.c_str()));

    ASSERT_EQ(file.GetRegisterCount(), 3U);
    EXPECT_EQ(file.GetRegister(0), a);
    EXPECT_STREQ(a->GetName(), "A");
    EXPECT_TRUE(file.GetRegister(1)->GetBigEndian(1));
    EXPECT_FALSE(file.GetRegister(2)->GetBigEndian(1));
    ASSERT_EQ(file.GetPreambleCount(), 2U);
    EXPECT_STREQ(file.GetPreamble(0), "one");
    EXPECT_STREQ(file.GetPreamble(1), "two");
    ASSERT_EQ(file.GetErrorCount(), 2U);
    EXPECT_EQ(file.GetErrorMessage(1), second +
                                           "(8): error : ADDRESS_3WIRE (0x30) is defined in [REGISTER] "
                                           "section, but there is no address in [ENDIAN] section.");
    EXPECT_NE(file.GetListing(), listing);
}

TEST(CRegDefFile, TheColumnsOfAFurtherFileFollowThoseOfTheFirst) {
    const test::TemporaryFolder folder;
    const std::string first = folder.Write("first.rgi", kHeader + "A,1,0,8,RW\n");
    const std::string second =
        folder.Write("second.rgi", "[REGISTER]\nRW,LENGTH\nB,2,0,8,RW,text,RO,4\nC,2,0,8,RW,text,RO\n");
    CRegDefFile file;
    EXPECT_TRUE(file.Load(first.c_str()));
    EXPECT_TRUE(file.Load(second.c_str()));
    ASSERT_EQ(file.GetRegisterCount(), 3U);
    EXPECT_EQ(file.GetRegister(1)->GetRw(), 0);
    EXPECT_EQ(file.GetRegister(1)->GetLength(), 4);
    EXPECT_EQ(file.GetRegister(2)->GetRw(), 0);
    EXPECT_EQ(file.GetRegister(2)->GetLength(), 8);
}

TEST(CRegDefFile, TheSecondByteOfADoubleByteCharacterIsNoBackslash) {
    const test::TemporaryFolder folder;
    // In code page 932 these two bytes are one character; elsewhere the second one escapes the quote.
    const std::string path = folder.Write("sensor.rgi", kHeader + "A,1,0,8,RW,\"\x83\x5C\"\n");
    {
        const test::ScopedCodePage codePage(932);
        CRegDefFile file;
        EXPECT_TRUE(file.Load(path.c_str()));
        ASSERT_EQ(file.GetRegisterCount(), 1U);
        EXPECT_STREQ(file.GetRegister(0)->GetDescription(), "\x83\x5C");
    }
    const test::ScopedCodePage codePage(0);
    CRegDefFile file;
    EXPECT_FALSE(file.Load(path.c_str()));
    ASSERT_EQ(file.GetErrorCount(), 1U);
    EXPECT_EQ(file.GetErrorMessage(0), path + "(3): error : This line format is invalid.");
}

TEST(CRegDefFile, IndexesOutOfRange) {
    CRegDefFile file;
    EXPECT_STREQ(file.GetErrorMessage(0), "");
    EXPECT_STREQ(file.GetErrorMessage(0xFFFFFFFF), "");
    EXPECT_EQ(file.GetRegister(0), nullptr);
    EXPECT_EQ(file.GetRegister(0xFFFFFFFF), nullptr);
    EXPECT_STREQ(file.GetPreamble(0), "");
    EXPECT_STREQ(file.GetPreamble(-1), "");
    EXPECT_STREQ(file.GetPreamble(0x7FFFFFFF), "");
}

}  // namespace
}  // namespace macroengine
