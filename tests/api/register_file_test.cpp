#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <string>
#include <utility>

#include <macroengine/CRegDefFileIF.h>
#include <macroengine/CRegFieldsIF.h>

#include "support/TemporaryFolder.h"

namespace {

using macroengine::test::TemporaryFolder;
using ::testing::HasSubstr;

using Reader = std::unique_ptr<CRegDefFileIF, void (*)(CRegDefFileIF*)>;

Reader SectionedReader() {
    return {CreateRegDefFile(), DeleteRegDefFile};
}

Reader LineBasedReader() {
    return {CreatePSCRegDefFile(), DeleteRegDefFile};
}

std::string ProjectFile(const std::string& name) {
    const char* const folder = std::getenv("SOURCE_DIR");
    return (folder == nullptr ? "." : std::string(folder)) + "/" + name;
}

std::string TextOf(const std::string& name) {
    std::ifstream file(ProjectFile(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The listing's first part for a file without an [ENDIAN] section.
std::string AllTrue() {
    std::string text;
    const std::string digits = "0123456789abcdef";
    for (std::size_t address = 0; address < 256; ++address) {
        if (address >= 16) text += digits[address / 16];
        text += digits[address % 16];
        text += ":TRUE\r\n";
    }
    return text + "---------------------------------------------\r\n";
}

TEST(SectionedRegisterFile, IsReadWhole) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("sensor.rgi",
                                          "Sensor 2\n"
                                          "[ENDIAN]\n"
                                          "B:0x10..0x1F\n"
                                          "L:0x20..0x2F\n"
                                          "[REGISTER]\n"
                                          "REGISTER_NAME,ADDRESS_2WIRE,ADDRESS_3WIRE,LSB,LENGTH,RW,FUNCTION,"
                                          "DESCRIPTION\n"
                                          "GAIN,0x10,0x20,4,3,RW,input,\"in dB\"\n"
                                          "FUSE,0x2F,0x1F,0,8,NC\n");
    const Reader file = SectionedReader();
    ASSERT_TRUE(file->Load(path.c_str()));
    EXPECT_EQ(file->GetErrorCount(), 0U);
    ASSERT_EQ(file->GetPreambleCount(), 2U);
    EXPECT_STREQ(file->GetPreamble(0), "Sensor");
    EXPECT_STREQ(file->GetPreamble(1), "2");

    ASSERT_EQ(file->GetRegisterCount(), 2U);
    const CRegFieldsIF* const gain = file->GetRegister(0);
    EXPECT_EQ(gain->GetRecordValue(), 0);
    EXPECT_STREQ(gain->GetName(), "GAIN");
    EXPECT_EQ(gain->GetRecordValue2(), 0U);
    EXPECT_EQ(gain->GetAddress2Wire(), 0x10U);
    EXPECT_EQ(gain->GetAddress3Wire(), 0x20U);
    EXPECT_EQ(gain->GetAddress(0), 0x20U);
    EXPECT_EQ(gain->GetAddress(1), 0x10U);
    EXPECT_EQ(gain->GetAddress(2), 0U);
    EXPECT_EQ(gain->GetLsb(), 4);
    EXPECT_EQ(gain->GetLength(), 3);
    EXPECT_EQ(gain->GetRw(), 2);
    EXPECT_STREQ(gain->GetDescription(), "in dB");
    EXPECT_STREQ(gain->GetFunction(), "input");
    EXPECT_FALSE(gain->GetBigEndian(0));
    EXPECT_TRUE(gain->GetBigEndian(1));
    EXPECT_FALSE(gain->GetFlag1());
    EXPECT_FALSE(gain->GetFlag2());
    EXPECT_EQ(file->GetRegister(1)->GetRw(), 255);
    EXPECT_STREQ(file->GetRegister(1)->GetDescription(), "");
    EXPECT_STREQ(file->GetRegister(1)->GetFunction(), "");

    const std::string listing = file->GetListing();
    EXPECT_THAT(listing, HasSubstr("f: Unknown endian\r\n10:TRUE\r\n"));
    EXPECT_THAT(listing, HasSubstr("\r\n20:FALSE\r\n"));
    EXPECT_THAT(listing, HasSubstr("(0)*******\r\n Name:GAIN\r\n Address3W:20\r\n Address2W:10\r\n LSB:4\r\n"
                                   " Length:3\r\n Description:in dB\r\n Function:input\r\n"
                                   "(1)*******\r\n Name:FUSE\r\n"));
}

TEST(SectionedRegisterFile, WithoutAnEndianSection) {
    const TemporaryFolder folder;
    const std::string path = folder.Write(
        "sensor.rgi",
        "[REGISTER]\nREGISTER_NAME,ADDRESS_2WIRE,LSB,LENGTH,RW\nA,0x2FFF,0,8,RW\nB,0x3000,0,8,RO\n");
    const Reader file = SectionedReader();
    ASSERT_TRUE(file->Load(path.c_str()));
    EXPECT_TRUE(file->GetRegister(0)->GetBigEndian(1));
    EXPECT_FALSE(file->GetRegister(1)->GetBigEndian(1));
    EXPECT_EQ(file->GetListing(), AllTrue() +
                                      "(0)*******\r\n Name:A\r\n Address3W:0\r\n Address2W:2fff\r\n LSB:0\r\n"
                                      " Length:8\r\n Description:\r\n Function:\r\n"
                                      "(1)*******\r\n Name:B\r\n Address3W:0\r\n Address2W:3000\r\n LSB:0\r\n"
                                      " Length:8\r\n Description:\r\n Function:\r\n");
}

TEST(SectionedRegisterFile, BadRecordsAreReportedTogether) {
    const TemporaryFolder folder;
    const std::string path = folder.Write(
        "sensor.rgi",
        "[REGISTER]\nREGISTER_NAME,ADDRESS_2WIRE,LSB,LENGTH,RW\nA,1,8,8,RW\nB,1,0,8,RWX\nC,1,0,8,RW\n");
    const Reader file = SectionedReader();
    EXPECT_FALSE(file->Load(path.c_str()));
    ASSERT_EQ(file->GetErrorCount(), 2U);
    EXPECT_EQ(file->GetErrorMessage(0), path + "(3): error : LSB filed is not numric or invalid value.");
    EXPECT_EQ(file->GetErrorMessage(1), path + "(4): error : RW filed is invalid keyword.");
    ASSERT_EQ(file->GetRegisterCount(), 1U);
    EXPECT_STREQ(file->GetRegister(0)->GetName(), "C");
}

TEST(LineBasedRegisterFile, IsReadWhole) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("sensor.txt",
                                          "HiAddress 12\n"
                                          "GAIN h1F 34 0 8\n"
                                          "//.note\n"
                                          "VAL u12*0.5+3 10034 0 8\n"
                                          "WORD -5r 21 2 8 20 0 8\n"
                                          "HiAddress x\n"
                                          "BAD 1*y 10 0 8\n");
    const Reader file = LineBasedReader();
    EXPECT_TRUE(file->Load(path.c_str()));
    ASSERT_EQ(file->GetErrorCount(), 2U);
    EXPECT_EQ(file->GetErrorMessage(0), path + "(6): error : Invalid HiAddress description.");
    EXPECT_EQ(file->GetErrorMessage(1), path + "(7): error : Invalid InitiaValue description.");
    EXPECT_EQ(file->GetPreambleCount(), 0U);

    ASSERT_EQ(file->GetRegisterCount(), 4U);
    const CRegFieldsIF* const gain = file->GetRegister(0);
    EXPECT_EQ(gain->GetRecordValue(), 2);
    EXPECT_STREQ(gain->GetName(), "GAIN");
    EXPECT_EQ(gain->GetRecordValue2(), 0x1FU);
    EXPECT_EQ(gain->GetAddress2Wire(), 0x120034U);
    EXPECT_EQ(gain->GetAddress3Wire(), 0x120034U);
    EXPECT_EQ(gain->GetAddress(0), 0x120034U);
    EXPECT_EQ(gain->GetAddress(1), 0x120034U);
    EXPECT_EQ(gain->GetAddress(2), 0U);
    EXPECT_EQ(gain->GetLsb(), 0);
    EXPECT_EQ(gain->GetLength(), 8);
    EXPECT_EQ(gain->GetRw(), 2);
    EXPECT_STREQ(gain->GetDescription(), "GAIN");
    EXPECT_STREQ(gain->GetFunction(), "GAIN %Xh 34 0 8\r\nnote");
    EXPECT_FALSE(gain->GetBigEndian(0));
    EXPECT_FALSE(gain->GetBigEndian(1));
    EXPECT_TRUE(gain->GetFlag1());
    EXPECT_TRUE(gain->GetFlag2());

    EXPECT_EQ(file->GetRegister(1)->GetRecordValue2(), 9U);
    EXPECT_EQ(file->GetRegister(1)->GetAddress2Wire(), 0x10034U);
    EXPECT_STREQ(file->GetRegister(1)->GetFunction(), "VAL %s 10034 0 8");
    EXPECT_EQ(file->GetRegister(2)->GetRecordValue2(), 0xFFFBU);
    EXPECT_EQ(file->GetRegister(2)->GetAddress2Wire(), 0x120020U);
    EXPECT_EQ(file->GetRegister(2)->GetLsb(), 2);
    EXPECT_EQ(file->GetRegister(2)->GetLength(), 16);
    EXPECT_TRUE(file->GetRegister(2)->GetBigEndian(0));
    EXPECT_TRUE(file->GetRegister(2)->GetBigEndian(1));
    EXPECT_STREQ(file->GetRegister(2)->GetFunction(), "WORD %dsr 21 2 8 20 0 8");

    const std::string listing = file->GetListing();
    EXPECT_EQ(listing.substr(0, AllTrue().size()), AllTrue());
    EXPECT_THAT(listing, HasSubstr("(0)*******\r\n Name:GAIN\r\n Address3W:120034\r\n Address2W:120034\r\n"
                                   " LSB:0\r\n Length:8\r\n Description:GAIN\r\n"
                                   " Function:GAIN %Xh 34 0 8\r\nnote\r\n(1)"));
}

TEST(LineBasedRegisterFile, SplitRegistersAreMergedOnDemand) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("sensor.txt", "LOW 1 10 0 4\nHIGH 2 10 4 4\nNEXT 0 11 0 8\n");
    const Reader file = LineBasedReader();
    ASSERT_TRUE(file->Load(path.c_str()));
    EXPECT_EQ(file->GetRegisterCount(), 3U);
    EXPECT_TRUE(MergeSplitRegisters(file.get()));
    ASSERT_EQ(file->GetRegisterCount(), 2U);
    EXPECT_STREQ(file->GetRegister(0)->GetName(), "LOW");
    EXPECT_EQ(file->GetRegister(0)->GetLength(), 8);
    EXPECT_EQ(file->GetRegister(0)->GetRecordValue2(), 0x21U);
    EXPECT_STREQ(file->GetRegister(1)->GetName(), "NEXT");
    EXPECT_THAT(file->GetListing(), HasSubstr("(0)*******\r\n Name:LOW\r\n"));
}

TEST(RegisterFile, NullArgumentsAreTakenAsNothing) {
    DeleteRegDefFile(nullptr);
    EXPECT_FALSE(MergeSplitRegisters(nullptr));
    for (const Reader& file : {SectionedReader(), LineBasedReader()}) {
        EXPECT_FALSE(file->Load(nullptr));
        ASSERT_EQ(file->GetErrorCount(), 1U);
        EXPECT_STREQ(file->GetErrorMessage(0), "error : File open error. ()");
    }
}

TEST(RegisterFile, ReadersStartEmptyAndIndexesAreChecked) {
    for (const Reader& file : {SectionedReader(), LineBasedReader()}) {
        EXPECT_EQ(file->GetErrorCount(), 0U);
        EXPECT_STREQ(file->GetErrorMessage(0), "");
        EXPECT_STREQ(file->GetErrorMessage(0xFFFFFFFF), "");
        EXPECT_EQ(file->GetRegisterCount(), 0U);
        EXPECT_EQ(file->GetRegister(0), nullptr);
        EXPECT_EQ(file->GetRegister(0xFFFFFFFF), nullptr);
        EXPECT_EQ(file->GetPreambleCount(), 0U);
        EXPECT_STREQ(file->GetPreamble(0), "");
        EXPECT_STREQ(file->GetPreamble(-1), "");
        EXPECT_EQ(file->GetListing(), AllTrue());
        EXPECT_EQ(file->GetListing(), AllTrue());
    }
}

/// A reader and a register of the host's own.
class HostRegister : public CRegFieldsIF {
public:
    std::int32_t GetRecordValue() const override { return 1; }
    const char* GetName() const override { return "HOST"; }
    std::uint32_t GetRecordValue2() const override { return 2; }
    std::uint32_t GetAddress2Wire() const override { return 3; }
    std::uint32_t GetAddress3Wire() const override { return 4; }
    std::uint32_t GetAddress(std::int32_t) const override { return 5; }
    std::uint8_t GetLsb() const override { return 6; }
    std::uint8_t GetLength() const override { return 7; }
    std::int32_t GetRw() const override { return 8; }
    const char* GetDescription() const override { return ""; }
    const char* GetFunction() const override { return ""; }
    bool GetBigEndian(std::int32_t) const override { return true; }
    bool GetFlag1() const override { return true; }
    bool GetFlag2() const override { return true; }
};

class HostReader : public CRegDefFileIF {
public:
    HostReader() = default;
    HostReader(const HostReader&) = default;
    HostReader& operator=(const HostReader&) = default;
    ~HostReader() override {
        if (deleted_ != nullptr) *deleted_ = true;
    }

    void TellWhenDeleted(bool& deleted) { deleted_ = &deleted; }

    bool Load(const char*) override { return true; }
    std::uint32_t GetErrorCount() const override { return 0; }
    const char* GetErrorMessage(std::uint32_t) const override { return ""; }
    std::uint32_t GetRegisterCount() const override { return 1; }
    CRegFieldsIF* GetRegister(std::uint32_t) override { return &register_; }
    std::uint32_t GetPreambleCount() const override { return 0; }
    const char* GetPreamble(std::int32_t) const override { return ""; }
    const char* GetListing() override { return ""; }

private:
    bool* deleted_ = nullptr;
    HostRegister register_;
};

TEST(RegisterFile, TheInterfacesCanBeCopiedAndAssigned) {
    HostReader reader;
    HostReader copy(reader);
    copy = reader;
    EXPECT_EQ(copy.GetRegisterCount(), 1U);
    const HostRegister fields;
    HostRegister copiedFields(fields);
    copiedFields = fields;
    EXPECT_STREQ(copiedFields.GetName(), "HOST");
}

TEST(RegisterFile, ReadersOfTheHostAreDeletedAndNotMerged) {
    auto* const reader = new HostReader();
    bool isDeleted = false;
    reader->TellWhenDeleted(isDeleted);
    EXPECT_FALSE(MergeSplitRegisters(reader));
    DeleteRegDefFile(reader);
    EXPECT_TRUE(isDeleted);
    EXPECT_FALSE(MergeSplitRegisters(SectionedReader().get()));
}

TEST(RegisterFile, ReadersShareNothing) {
    const Reader first = SectionedReader();
    const Reader second = SectionedReader();
    EXPECT_FALSE(first->Load("no such file"));
    EXPECT_EQ(first->GetErrorCount(), 1U);
    EXPECT_EQ(second->GetErrorCount(), 0U);
}

// --- the example files and their document

std::string ErrorsOf(const CRegDefFileIF& file) {
    std::string errors;
    for (std::uint32_t i = 0; i < file.GetErrorCount(); ++i)
        errors.append(file.GetErrorMessage(i)).append("\n");
    return errors;
}

TEST(RegisterFileExamples, TemperatureSensor) {
    const Reader file = SectionedReader();
    EXPECT_TRUE(file->Load(ProjectFile("examples/registers/temperature_sensor.rgi").c_str()));
    EXPECT_EQ(ErrorsOf(*file), "");
    EXPECT_EQ(file->GetPreambleCount(), 5U);
    ASSERT_EQ(file->GetRegisterCount(), 8U);
    const CRegFieldsIF& alarm = *file->GetRegister(2);
    EXPECT_STREQ(alarm.GetName(), "STATUS_ALARM");
    EXPECT_EQ(alarm.GetAddress2Wire(), 1U);
    EXPECT_EQ(alarm.GetLsb(), 1);
    EXPECT_EQ(alarm.GetRw(), 0);
    EXPECT_STREQ(alarm.GetDescription(), "The temperature was outside of the limits");
    EXPECT_STREQ(alarm.GetFunction(), "status");
}

TEST(RegisterFileExamples, Converter) {
    const Reader file = SectionedReader();
    EXPECT_TRUE(file->Load(ProjectFile("examples/registers/converter.rgi").c_str()));
    EXPECT_EQ(ErrorsOf(*file), "");
    ASSERT_EQ(file->GetRegisterCount(), 7U);
    EXPECT_TRUE(file->GetRegister(0)->GetBigEndian(0));
    EXPECT_FALSE(file->GetRegister(6)->GetBigEndian(1));
    EXPECT_EQ(file->GetRegister(3)->GetRw(), 255);
}

TEST(RegisterFileExamples, SignalChain) {
    const Reader file = LineBasedReader();
    EXPECT_TRUE(file->Load(ProjectFile("examples/registers/signal_chain.txt").c_str()));
    EXPECT_EQ(ErrorsOf(*file), "");
    ASSERT_EQ(file->GetRegisterCount(), 7U);
    EXPECT_STREQ(file->GetRegister(0)->GetFunction(),
                 "CHIP_ID     %Xhr       0000 0 8\r\nIdentification, always 5A.");
    EXPECT_EQ(file->GetRegister(1)->GetRecordValue2(), 9U);
    EXPECT_EQ(file->GetRegister(2)->GetRecordValue2(), 0xFBU);
    EXPECT_EQ(file->GetRegister(5)->GetAddress2Wire(), 0x120020U);
    EXPECT_TRUE(file->GetRegister(5)->GetBigEndian(1));
    EXPECT_EQ(file->GetRegister(6)->GetAddress2Wire(), 0x100034U);
    EXPECT_TRUE(MergeSplitRegisters(file.get()));
    ASSERT_EQ(file->GetRegisterCount(), 6U);
    EXPECT_EQ(file->GetRegister(3)->GetRecordValue2(), 0x21U);
}

TEST(RegisterFileExamples, TheDocumentShowsThemAndExplainsEveryMessage) {
    const std::string document = TextOf("docs/register-files.md");
    EXPECT_THAT(document, HasSubstr(TextOf("examples/registers/temperature_sensor.rgi")));
    EXPECT_THAT(document, HasSubstr(TextOf("examples/registers/converter.rgi")));
    EXPECT_THAT(document, HasSubstr(TextOf("examples/registers/signal_chain.txt")));
    for (const std::string message :
         {"File open error. (",
          "File read error. (",
          "Can't find [ENDIAN] or [REGISTER].",
          "Can't find [REGISTER] section.",
          "Unknown endian's letter. (",
          "Need ':' after 'B' or 'L'.",
          "Can't find start address. (don't digit or hex-digit)",
          "Can't find address separator('..') .",
          "Can't find end address. (don't digit or hex-digit. or invalid separator '..')",
          "Invaid letters or strings after end address.",
          "Unknown end address in [ENDIAN] section.",
          "Unknown keyword in register header. (",
          "Can't find separator(,).",
          "Can't find register header fields.",
          "REGISTER_NAME field is not alphabet or numeric.",
          "ADDRESS_2WIRE filed is not numric.",
          "ADDRESS_3WIRE filed is not numric.",
          "LSB filed is not numric or invalid value.",
          "LENGTH filed is not numric.",
          "RW filed is invalid keyword.",
          "This line format is invalid.",
          "REGISTER_NAME field is not defined.",
          "Address field is not defined both 2WIRE and 3WIRE.",
          "LSB field is not defined.",
          "LENGTH field is not defined.",
          "RW field is not defined.",
          ") is defined in [REGISTER] section, but there is no address in [ENDIAN] section.",
          "find invalid letter(s) in file.",
          "Can't find [\"] for the end of string.",
          " is out of range",
          "Invalid HiAddress description.",
          "Invalid InitiaValue description."})
        EXPECT_THAT(document, HasSubstr(message));
}

}  // namespace
