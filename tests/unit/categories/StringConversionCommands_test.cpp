#include "categories/StringConversionCommands.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <string>

#include "support/CommandCaller.h"

namespace macroengine::test {
namespace {

struct Case {
    std::string text;
    std::string expected;
};

/// Each case in a macro file of its own.
void Check(const char* command, const std::vector<Case>& cases) {
    for (const Case& c : cases)
        EXPECT_EQ(CommandCaller().Call(command, {Text(c.text)}), c.expected) << command << " of " << c.text;
}

void CheckRefusals(const char* command) {
    const std::string name = command;
    const std::string count = Error(name + "() argument error. (argument count is invalid)");
    const std::string noText = Error(name + "() argument error. (argument[0] type isn't string)") + "\n" +
                               Error("Error: target string is null.");
    CommandCaller caller;
    EXPECT_EQ(caller.Call(name, {}), count);
    EXPECT_EQ(caller.Call(name, {Text("1"), Text("2")}), count);
    EXPECT_EQ(caller.Call(name, {Integer(1)}), noText);
    EXPECT_EQ(caller.Call(name, {ArrayOf({Text("1")})}), noText);
    EXPECT_EQ(caller.Call(name, {Text("")}), Error("Error: target string is null."));
    const CMacroCommonValue assigned = Integer(1);
    EXPECT_EQ(caller.Call(name, {Text("1")}, &assigned),
              Error("assigned value isn't needed at " + name + "()"));
    EXPECT_EQ(caller.Call(name, {Text("")}, &assigned), Error("Error: target string is null."));
}

TEST(Hex2Dec, ConvertsWhatBeginsTheText) {
    Check("string.hex2dec", {
                                {"0", "integer 0"},
                                {"1a", "integer 26"},
                                {"1A", "integer 26"},
                                {"0x1F", "integer 31"},
                                {"0X1f", "integer 31"},
                                {"  0x1aG2 ", "integer 26"},
                                {"+0x10", "integer 16"},
                                {"-0x10", "integer -16"},
                                {"-1", "integer -1"},
                                {"7FFFFFFF", "integer 2147483647"},
                                {"80000000", "integer -2147483648"},
                                {"FFFFFFFF", "integer -1"},
                                {"-FFFFFFFF", "integer 1"},
                                {"0000000000000000001", "integer 1"},
                                {"0x0x10", "integer 0"},
                                {"12 34", "integer 18"},
                            });
}

TEST(Hex2Dec, RefusesWhatIsNoNumber) {
    const std::string none = Error("Error: Can't be converted to decimal a hexadecimal.");
    const std::string stopped = Error("Error: Can't be converted to adecimal a hexadecimal.");
    Check("string.hex2dec", {
                                {"   ", none},
                                {"xyz", none},
                                {"0x", none},
                                {" 0X ", none},
                                {"\t1", none},
                                {"x10", none},
                                {"-", stopped},
                                {"+", stopped},
                                {"-0x", stopped},
                                {"- 5", stopped},
                                {"--5", stopped},
                            });
    CheckRefusals("string.hex2dec");
}

TEST(Hex2Dec, NamesTheCleanedTextThatIsOutOfRange) {
    Check("string.hex2dec",
          {
              {"100000000", Error("Error: 100000000 is out of range")},
              {" 0x1FFFFFFFFz", Error("Error: 1FFFFFFFF is out of range")},
              {"-0x100000000", Error("Error: -100000000 is out of range")},
              {std::string(5000, 'F'), Error("Error: " + std::string(5000, 'F') + " is out of range")},
          });
}

TEST(Str2Dec, ConvertsWhatBeginsTheText) {
    Check("string.str2dec", {
                                {"0", "integer 0"},
                                {"12abc", "integer 12"},
                                {"  42 ", "integer 42"},
                                {"+7", "integer 7"},
                                {"-7", "integer -7"},
                                {"3.9", "integer 3"},
                                {"0x10", "integer 0"},
                                {"2147483647", "integer 2147483647"},
                                {"2147483648", "integer -2147483648"},
                                {"4294967295", "integer -1"},
                                {"-4294967295", "integer 1"},
                            });
}

TEST(Str2Dec, RefusesWhatIsNoNumber) {
    const std::string none = Error("Error: Can't be converted to decimal a string.");
    Check("string.str2dec", {
                                {"abc", none},
                                {"   ", none},
                                {"-", none},
                                {"+x", none},
                                {"\t5", none},
                                {"4294967296", Error("Error: 4294967296 is out of range")},
                                {" -99999999999 ", Error("Error: -99999999999 is out of range")},
                            });
    CheckRefusals("string.str2dec");
}

TEST(Str2Float, ConvertsWhatBeginsTheText) {
    Check("string.str2float", {
                                  {"3.14.15", "floating 3.14"},
                                  {"2e3", "floating 2"},
                                  {"1e5", "floating 1"},
                                  {" -0.5 ", "floating -0.5"},
                                  {"+.25x", "floating 0.25"},
                                  {"7", "floating 7"},
                                  {"7.", "floating 7"},
                                  {"-0", "floating -0"},
                                  {"0x10", "floating 0"},
                                  {"0." + std::string(400, '0') + "1", "floating 0"},
                              });
}

TEST(Str2Float, RefusesWhatIsNoNumber) {
    const std::string none = Error("Error: Can't be converted to float a string.");
    const std::string large(400, '9');
    Check("string.str2float", {
                                  {".", none},
                                  {"-", none},
                                  {"-.", none},
                                  {"..5", none},
                                  {"abc", none},
                                  {"inf", none},
                                  {"nan", none},
                                  {"   ", none},
                                  {" " + large, Error("Error: " + large + " is out of range")},
                                  {"-" + large + ".5x", Error("Error: -" + large + ".5 is out of range")},
                              });
    CheckRefusals("string.str2float");
}

TEST(RangeIndicator, IsNotClearedBetweenConversions) {
    CommandCaller caller;
    EXPECT_EQ(caller.Call("string.str2dec", {Text("12")}), "integer 12");
    EXPECT_EQ(caller.Call("string.hex2dec", {Text("100000000")}), Error("Error: 100000000 is out of range"));
    EXPECT_EQ(caller.Call("string.hex2dec", {Text(" 0x12 ")}), Error("Error: 12 is out of range"));
    EXPECT_EQ(caller.Call("string.str2dec", {Text("5")}), Error("Error: 5 is out of range"));
    EXPECT_EQ(caller.Call("string.str2float", {Text("1.5")}), Error("Error: 1.5 is out of range"));
    // It is looked at before the place where the conversion stopped, but after the text was cut.
    EXPECT_EQ(caller.Call("string.hex2dec", {Text("-")}), Error("Error: - is out of range"));
    EXPECT_EQ(caller.Call("string.hex2dec", {Text("x")}),
              Error("Error: Can't be converted to decimal a hexadecimal."));
}

TEST(RangeIndicator, BelongsToOneRunOfOneMacroFile) {
    CommandCaller caller;
    EXPECT_EQ(caller.Call("string.str2dec", {Text("4294967296")}),
              Error("Error: 4294967296 is out of range"));
    EXPECT_EQ(CommandCaller().Call("string.str2dec", {Text("5")}), "integer 5");
    caller.GetList().BeginRun();
    EXPECT_EQ(caller.Call("string.str2dec", {Text("5")}), "integer 5");
}

TEST(RangeIndicator, HasNothingToDoWithErrno) {
    for (const char* command : {"string.hex2dec", "string.str2dec"}) {
        errno = ERANGE;
        EXPECT_EQ(CommandCaller().Call(command, {Text("9")}), "integer 9");
    }
    errno = ERANGE;
    EXPECT_EQ(CommandCaller().Call("string.str2float", {Text("9")}), "floating 9");
    EXPECT_EQ(errno, ERANGE);
    errno = 0;
    CommandCaller().Call("string.hex2dec", {Text("100000000")});
    EXPECT_EQ(errno, 0);
}

}  // namespace
}  // namespace macroengine::test
