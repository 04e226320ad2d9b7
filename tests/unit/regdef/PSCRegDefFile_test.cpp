#include "regdef/PSCRegDefFile.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/TemporaryFolder.h"

namespace macroengine {
namespace {

using Lines = std::vector<std::string>;

/// Each record as "name@address lsb+length=value", numbers in decimal.
Lines RegistersOf(PSCRegDefFile& file) {
    Lines lines;
    for (std::uint32_t i = 0; i < file.GetRegisterCount(); ++i) {
        const CRegFieldsIF& fields = *file.GetRegister(i);
        lines.push_back(std::string(fields.GetName()) + "@" + std::to_string(fields.GetAddress2Wire()) + " " +
                        std::to_string(fields.GetLsb()) + "+" + std::to_string(fields.GetLength()) + "=" +
                        std::to_string(fields.GetRecordValue2()));
    }
    return lines;
}

Lines FunctionsOf(PSCRegDefFile& file) {
    Lines functions;
    for (std::uint32_t i = 0; i < file.GetRegisterCount(); ++i)
        functions.emplace_back(file.GetRegister(i)->GetFunction());
    return functions;
}

class PSCRegDefFileTest : public ::testing::Test {
protected:
    void Load(const std::string& bytes) {
        path_ = folder_.Write("t.txt", bytes);
        EXPECT_TRUE(file_.Load(path_.c_str()));
    }

    /// The error lines without the path.
    Lines Errors() const {
        Lines errors;
        for (std::uint32_t i = 0; i < file_.GetErrorCount(); ++i) {
            const std::string line = file_.GetErrorMessage(i);
            EXPECT_EQ(line.substr(0, path_.size()), path_);
            errors.push_back(line.substr(path_.size()));
        }
        return errors;
    }

    Lines Functions() { return FunctionsOf(file_); }
    Lines Registers() { return RegistersOf(file_); }

    test::TemporaryFolder folder_;
    std::string path_;
    PSCRegDefFile file_;
};

TEST_F(PSCRegDefFileTest, LinesOfEveryKind) {
    Load(
        "\tHiAddress\t12\t// the upper half\r\n"
        "\r\n"
        "  // a comment\r\n"
        "\t GAIN\th1F 34 0 8 \t\r\n"
        "//.note\r\n"
        "HiAddress 0\n"
        "OFFSET -5 10 0 8");
    EXPECT_EQ(Errors(), Lines{});
    EXPECT_EQ(Registers(), (Lines{"GAIN@1179700 0+8=31", "OFFSET@16 0+8=251"}));
    EXPECT_EQ(Functions(), (Lines{"GAIN %Xh 34 0 8\r\nnote", "OFFSET %ds 10 0 8"}));
    EXPECT_EQ(file_.GetRegister(0)->GetRecordValue(), 4);
    EXPECT_EQ(file_.GetRegister(1)->GetRecordValue(), 7);
    EXPECT_EQ(file_.GetPreambleCount(), 0U);
}

TEST_F(PSCRegDefFileTest, HighAddresses) {
    const struct {
        std::string line;
        std::uint32_t address;  // of a register at 1, after the high address 5
        bool isGood = true;
    } cases[] = {
        {"HiAddress 12", 0x120001},
        {"HiAddress abCD", 0xABCD0001},
        {"HiAddress12", 0x120001},
        {"HiAddress \t 12 \t ", 0x120001},
        {"HiAddress 12//34", 0x120001},
        {"HiAddress 12 // 34 // 56", 0x120001},
        {"HiAddress 12345", 0x23450001},
        {"HiAddress FFFFFFFF", 0xFFFF0001},
        {"HiAddress 0", 1},
        {"HiAddress", 0x50001, false},
        {"HiAddress // 12", 0x50001, false},
        {"HiAddress 0x12", 0x50001, false},
        {"HiAddress 12h", 0x50001, false},
        {"HiAddress 1 2", 0x50001, false},
        {"HiAddress -1", 0x50001, false},
        {"HiAddress: 12", 0x50001, false},
        {"HiAddresses 12", 0x50001, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        const std::string path = folder_.Write("high.txt", "HiAddress 5\n" + c.line + "\nA 0 1 0 8\n");
        PSCRegDefFile file;
        EXPECT_TRUE(file.Load(path.c_str()));
        ASSERT_EQ(file.GetRegisterCount(), 1U);
        EXPECT_EQ(file.GetRegister(0)->GetAddress2Wire(), c.address);
        ASSERT_EQ(file.GetErrorCount(), c.isGood ? 0U : 1U);
        EXPECT_EQ(file.GetErrorMessage(0),
                  c.isGood ? "" : path + "(2): error : Invalid HiAddress description.");
    }
}

TEST_F(PSCRegDefFileTest, WordsThatOnlyResembleAHighAddressAreRegisters) {
    Load("hiaddress 12\nHiAddr 5 10 0 8\nAHiAddress 5 10 0 8\n");
    EXPECT_EQ(Errors(), Lines{});
    EXPECT_EQ(Registers(), (Lines{"hiaddress@0 0+0=0", "HiAddr@16 0+8=5", "AHiAddress@16 0+8=5"}));
}

TEST_F(PSCRegDefFileTest, ABadExpressionIsReportedAndItsRegisterKept) {
    Load("A 1*x+2r 10 0 8\n\nB 1*2+3 10 0 8\nC * 10 0 8\n");
    EXPECT_EQ(Errors(), (Lines{"(1): error : Invalid InitiaValue description.",
                               "(4): error : Invalid InitiaValue description."}));
    EXPECT_EQ(Registers(), (Lines{"A@16 0+8=0", "B@16 0+8=5", "C@16 0+8=0"}));
    EXPECT_EQ(Functions(), (Lines{"A %dr 10 0 8", "B %s 10 0 8", "C %d 10 0 8"}));
}

TEST_F(PSCRegDefFileTest, NotesBelongToTheRegisterBefore) {
    const struct {
        std::string text;
        Lines functions;
    } cases[] = {
        {"A 0\n//.one\n//.two\n", {"A %d\r\none\r\ntwo"}},
        {"A 0\n// comment\n//.one", {"A %d\r\none"}},
        {"A 0\n// see //. one \n", {"A %d\r\n one"}},
        {"A 0\n///.one\n", {"A %d\r\none"}},
        {"A 0\n//.//.one\n", {"A %d\r\n//.one"}},
        {"A 0\n//.\n//.\n", {"A %d\r\n\r\n"}},
        {"A 0\n//.100 %\n", {"A %d\r\n100 %"}},
        {"A 0\n//./\n", {"A %d\r\n/"}},
        {"A 0\n\n//.one\n", {"A %d"}},
        {"A 0\n \t \n//.one\n", {"A %d"}},
        {"A 0\nHiAddress 1\n//.one\n", {"A %d"}},
        {"A 0\nHiAddress x\n//.one\n", {"A %d"}},
        {"//.one\nA 0\n", {"A %d"}},
        {"A 0\n//.one\nB 0\n//.two\n", {"A %d\r\none", "B %d\r\ntwo"}},
        {"A 0 //.one\n", {"A %d //.one"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        PSCRegDefFile file;
        EXPECT_TRUE(file.Load(folder_.Write("notes.txt", c.text).c_str()));
        EXPECT_EQ(FunctionsOf(file), c.functions);
    }
}

TEST_F(PSCRegDefFileTest, NotesOfAFurtherFileDoNotReachBack) {
    Load("A 0");
    Load("//.one\n");
    EXPECT_EQ(Functions(), Lines{"A %d"});
}

TEST_F(PSCRegDefFileTest, LoadsAddUp) {
    Load("HiAddress 5\nA 0 1 0 8\nHiAddress x");
    CRegFieldsIF* const first = file_.GetRegister(0);
    Load("B 0 1 0 8\nHiAddress x");
    EXPECT_EQ(Registers(), (Lines{"A@327681 0+8=0", "B@1 0+8=0"}));
    EXPECT_EQ(Errors(), (Lines{"(3): error : Invalid HiAddress description.",
                               "(2): error : Invalid HiAddress description."}));
    EXPECT_EQ(file_.GetRegister(0), first);
}

TEST_F(PSCRegDefFileTest, AFileThatCannotBeOpened) {
    const std::string missing = folder_.PathOf("missing.txt");
    EXPECT_FALSE(file_.Load(missing.c_str()));
    EXPECT_FALSE(file_.Load(nullptr));
    EXPECT_FALSE(file_.Load(""));
    ASSERT_EQ(file_.GetErrorCount(), 3U);
    EXPECT_EQ(file_.GetErrorMessage(0), "error : File open error. (" + missing + ")");
    EXPECT_STREQ(file_.GetErrorMessage(1), "error : File open error. ()");
    EXPECT_STREQ(file_.GetErrorMessage(2), "error : File open error. ()");
}

TEST_F(PSCRegDefFileTest, AnEmptyFileIsGood) {
    Load("");
    EXPECT_EQ(file_.GetErrorCount(), 0U);
    EXPECT_EQ(file_.GetRegisterCount(), 0U);
    EXPECT_TRUE(file_.MergeSplitRegisters());
}

TEST_F(PSCRegDefFileTest, ALineEndsAtANul) {
    Load(std::string("A 0 10 0 8\0x\nB\0 0 10 0 8\n\0\nC 0", 30));
    EXPECT_EQ(Functions(), (Lines{"A %d 10 0 8", "B", "C %d"}));
}

TEST_F(PSCRegDefFileTest, TheListingFollowsTheRuleForNoEndianSection) {
    Load("A h12 3000 4 8\n//.note\n");
    const std::string listing = file_.GetListing();
    EXPECT_EQ(listing.substr(0, 8), "0:TRUE\r\n");
    EXPECT_EQ(listing.substr(listing.find("-\r\n") + 3),
              "(0)*******\r\n Name:A\r\n Address3W:3000\r\n Address2W:3000\r\n LSB:4\r\n Length:8\r\n"
              " Description:A\r\n Function:A %Xh 3000 4 8\r\nnote\r\n");
}

// --- merging

TEST_F(PSCRegDefFileTest, MergingJoinsWhatContinues) {
    const struct {
        std::string name;
        std::string text;
        Lines merged;
    } cases[] = {
        {"two halves", "A h1 10 0 4\nB h2 10 4 4\n", {"A@16 0+8=33"}},
        {"one", "A h1 10 0 4\n", {"A@16 0+4=1"}},
        {"none", "", {}},
        {"four parts, and what is left",
         "A h1 10 0 2\nB h2 10 2 2\nC h3 10 4 2\nD h1 10 6 2\nE 5 10 0 4\n",
         {"A@16 0+8=121", "E@16 0+4=5"}},
        {"another address", "A h1 10 0 4\nB h2 11 4 4\n", {"A@16 0+4=1", "B@17 4+4=2"}},
        {"a gap", "A h1 10 0 4\nB h2 10 5 3\n", {"A@16 0+4=1", "B@16 5+3=2"}},
        {"an overlap", "A h1 10 0 4\nB h2 10 3 4\n", {"A@16 0+4=1", "B@16 3+4=2"}},
        {"the wrong order", "A h2 10 4 4\nB h1 10 0 4\n", {"A@16 4+4=2", "B@16 0+4=1"}},
        {"not next to each other",
         "A h1 10 0 4\nX 1 20 0 4\nB h2 10 4 4\n",
         {"A@16 0+4=1", "X@32 0+4=1", "B@16 4+4=2"}},
        {"begins above bit 0", "A h1 10 2 2\nB h3 10 4 2\n", {"A@16 2+4=13"}},
        {"a second one follows the first",
         "A 1 10 0 1\nB 1 10 1 1\nC 1 20 0 1\nD 1 20 1 1\n",
         {"A@16 0+2=3", "C@32 0+2=3"}},
        {"no width", "A 1 10 0 0\nB 3 10 0 4\n", {"A@16 0+4=3"}},
        {"beyond 32 bits", "A -1 10 0 32\nB -1 10 32 8\n", {"A@16 0+40=4294967295"}},
        {"the value wraps around", "A -1 10 0 31\nB 3 10 31 2\n", {"A@16 0+33=4294967295"}},
        {"the length wraps around", "A 0 10 0 200\nB 0 10 200 100\n", {"A@16 0+44=0"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        PSCRegDefFile file;
        ASSERT_TRUE(file.Load(folder_.Write("merge.txt", c.text).c_str()));
        EXPECT_TRUE(file.MergeSplitRegisters());
        EXPECT_EQ(RegistersOf(file), c.merged);
    }
}

TEST_F(PSCRegDefFileTest, TheRegisterThatStaysKeepsItsTexts) {
    Load("LOW h1 10 0 4 // first\n//.note\nHIGH h2 10 4 4 // second\n");
    EXPECT_TRUE(file_.MergeSplitRegisters());
    ASSERT_EQ(file_.GetRegisterCount(), 1U);
    const CRegFieldsIF& fields = *file_.GetRegister(0);
    EXPECT_EQ(fields.GetRecordValue(), 1);
    EXPECT_STREQ(fields.GetDescription(), "LOW");
    EXPECT_STREQ(fields.GetFunction(), "LOW %Xh 10 0 4 // first\r\nnote");
    EXPECT_TRUE(fields.GetFlag1());
    EXPECT_TRUE(fields.GetFlag2());
}

TEST_F(PSCRegDefFileTest, RegistersAreMergedOverFiles) {
    Load("A h1 10 0 4\n");
    Load("B h2 10 4 4\n");
    EXPECT_TRUE(file_.MergeSplitRegisters());
    EXPECT_TRUE(file_.MergeSplitRegisters());
    EXPECT_EQ(Registers(), Lines{"A@16 0+8=33"});
    Load("C 0 20 0 4\n//.note\n");
    EXPECT_EQ(Registers(), (Lines{"A@16 0+8=33", "C@32 0+4=0"}));
}

}  // namespace
}  // namespace macroengine
