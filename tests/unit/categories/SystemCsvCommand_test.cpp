#include "categories/SystemCsvCommand.h"

#include <gtest/gtest.h>
#include <string>

#include "support/CommandCaller.h"
#include "support/TemporaryFolder.h"

namespace macroengine::test {
namespace {

class CsvfileRead : public testing::Test {
protected:
    std::string Call(const std::vector<CMacroCommonValue>& arguments) {
        return caller_.Call("system.csvfile_read", arguments);
    }
    std::string ReadText(const std::string& text) {
        folder_.Write("a.csv", text);
        return Call({Text("a.csv")});
    }
    std::string ReadConverted(const std::string& text) {
        folder_.Write("a.csv", text);
        return Call({Text("a.csv"), Integer(1)});
    }

    TemporaryFolder folder_;
    CommandCaller caller_{folder_.Path()};
};

TEST_F(CsvfileRead, GivesTextsUnlessToldToConvert) {
    const std::string texts = R"([[text "12", text "-7", text "0x1F", text "3.5", text "abc"]])";
    EXPECT_EQ(ReadText("12,-7,0x1F,3.5,abc\n"), texts);
    EXPECT_EQ(Call({Text("a.csv"), Integer(0)}), texts);
    EXPECT_EQ(Call({Text("a.csv"), Integer(1)}),
              R"([[integer 12, integer -7, integer 31, floating 3.5, text "abc"]])");
}

TEST_F(CsvfileRead, ClassifiesEachCell) {
    const struct {
        const char* cell;
        const char* expected;
    } cases[] = {
        {"0", "integer 0"},
        {"007", "integer 7"},
        {"-", "integer 0"},
        {"-0", "integer 0"},
        {"2147483647", "integer 2147483647"},
        {"2147483648", "integer 2147483647"},
        {"-99999999999999999999", "integer -2147483648"},
        {"+5", "text \"+5\""},
        {"1-2", "text \"1-2\""},
        {"--1", "text \"--1\""},
        {" 5", "text \" 5\""},
        {"5 ", "text \"5 \""},
        {"0x1f", "integer 31"},
        {"0XFFFFFFFF", "integer -1"},
        {"0x000000000FF", "integer 255"},
        {"0x", "integer 0"},
        {"-0x1", "text \"-0x1\""},
        {"0xg", "text \"0xg\""},
        {"0x1.", "text \"0x1.\""},
        {"1f", "text \"1f\""},
        {"0f", "text \"0f\""},
        {"1x2", "text \"1x2\""},
        {"3.5", "floating 3.5"},
        {"-3.5", "floating -3.5"},
        {"5.", "floating 5"},
        {"-5.", "floating -5"},
        {"00.5", "floating 0.5"},
        {".5", "text \".5\""},
        {"-.5", "text \"-.5\""},
        {"-.", "text \"-.\""},
        {".", "text \".\""},
        {"1.2.3", "text \"1.2.3\""},
        {"1.-2", "text \"1.-2\""},
        {"1e5", "text \"1e5\""},
        {"1.0e5", "text \"1.0e5\""},
        {"abc", "text \"abc\""},
        {"", "text \"\""},
        {"\"12\"", "integer 12"},
        {"\"1,5\"", "text \"1,5\""},
        {"\"\"", "text \"\""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ReadConverted(c.cell + std::string("\n")), "[[" + std::string(c.expected) + "]]") << c.cell;
        // Beside others, in any place: integers alone are kept in another form than the rest.
        EXPECT_EQ(ReadConverted("1," + std::string(c.cell) + ",2"),
                  "[[integer 1, " + std::string(c.expected) + ", integer 2]]");
        EXPECT_EQ(ReadConverted("x," + std::string(c.cell)),
                  "[[text \"x\", " + std::string(c.expected) + "]]");
    }
}

TEST_F(CsvfileRead, NamesTheCellThatIsOutOfRange) {
    EXPECT_EQ(ReadConverted("1,0x100000000\n"), Error("Error: 0x100000000 is out of range"));
    EXPECT_EQ(caller_.ResultOfFailure(), "none");
    const std::string large = std::string(400, '9') + ".5";
    EXPECT_EQ(ReadConverted("1\n-" + large + "\n"), Error("Error: -" + large + " is out of range"));
    EXPECT_EQ(ReadText("0x100000000"), R"([[text "0x100000000"]])");
    EXPECT_EQ(ReadConverted("0." + std::string(400, '0') + "1"), "[[floating 0]]");
    // The conversions of texts do not hear of it.
    EXPECT_EQ(caller_.Call("string.str2dec", {Text("5")}), "integer 5");
}

TEST_F(CsvfileRead, KeepsRowsOfAnyLength) {
    EXPECT_EQ(ReadText("a,b,c\nd\n\ne,f"),
              R"([[text "a", text "b", text "c"], [text "d"], [text ""], [text "e", text "f"]])");
    EXPECT_EQ(ReadConverted("\xEF\xBB\xBF"
                            "1,2\r\n\"a,b\",3\r\n4"),
              R"([[integer 1, integer 2], [text "a,b", integer 3], [integer 4]])");
    EXPECT_EQ(ReadText(""), "[]");
}

TEST_F(CsvfileRead, TakesRelativeAndAbsolutePaths) {
    folder_.MakeFolder("sub");
    folder_.Write("sub/b.csv", "1");
    EXPECT_EQ(Call({Text(R"(sub\b.csv)")}), R"([[text "1"]])");
    EXPECT_EQ(Call({Text("sub/b.csv")}), R"([[text "1"]])");
    EXPECT_EQ(Call({Text(folder_.PathOf("sub/b.csv"))}), R"([[text "1"]])");
}

TEST_F(CsvfileRead, RefusesArguments) {
    const std::string name = "system.csvfile_read() argument error. ";
    EXPECT_EQ(Call({}), Error(name + "(argument count is invalid)"));
    EXPECT_EQ(Call({Text("a"), Integer(0), Integer(0)}), Error(name + "(argument count is invalid)"));
    EXPECT_EQ(Call({Integer(0)}), Error(name + "(argument[0] type isn't string)"));
    EXPECT_EQ(Call({Text(""), Integer(2)}), Error("Error: target file is null string"));
    EXPECT_EQ(Call({Text("a"), Integer(2)}), Error(name + "(argument[1] is out of range.)"));
    EXPECT_EQ(Call({Text("a"), Text("1")}), Error(name + "(argument[1] type isn't interger)"));
    const CMacroCommonValue assigned = Integer(1);
    EXPECT_EQ(caller_.Call("system.csvfile_read", {Text("a.csv")}, &assigned),
              Error("assigned value isn't needed at system.csvfile_read()"));
    EXPECT_EQ(Call({Text("no.csv")}), Error("File open error. (" + folder_.Path() + "\\no.csv)"));
    EXPECT_EQ(Call({Text(folder_.Path())}), Error("File open error. (" + folder_.Path() + ")"));
}

}  // namespace
}  // namespace macroengine::test
