#include "categories/StringCommands.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "support/CommandCaller.h"

namespace macroengine {
namespace {

using test::ArrayOf;
using test::Boolean;
using test::CommandCaller;
using test::Error;
using test::Floating;
using test::Integer;
using test::Text;

struct CallCase {
    std::vector<CMacroCommonValue> arguments;
    std::string expected;
};

void Expect(const char* command, const std::vector<CallCase>& cases) {
    CommandCaller caller;
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(caller.Call(command, cases[i].arguments), cases[i].expected) << command << ", case " << i;
}

TEST(StringFormat, WritesItsOneValue) {
    Expect("string.format", {
                                {{Text("%05d"), Integer(42)}, "text \"00042\""},
                                {{Text("%d"), Integer(-1)}, "text \"-1\""},
                                {{Text("%u"), Integer(-1)}, "text \"4294967295\""},
                                {{Text("0x%08X!"), Integer(48879)}, "text \"0x0000BEEF!\""},
                                {{Text("%.2f V"), Floating(3.14159)}, "text \"3.14 V\""},
                                {{Text("%g"), Floating(0.5)}, "text \"0.5\""},
                                {{Text("<%s>"), Text("abc")}, "text \"<abc>\""},
                                {{Text("<%8.2s>"), Text("abc")}, "text \"<      ab>\""},
                                {{Text("%s"), Text("")}, "text \"\""},
                                {{Text("100%%"), Integer(1)}, "text \"100%\""},
                                {{Text("plain"), Floating(1.0)}, "text \"plain\""},
                            });
}

TEST(StringFormat, AFormatThatDoesNotSuitTheValueIsRefused) {
    const std::string unsuited = Error("string.format() argument error. (format does not suit the value)");
    Expect("string.format", {
                                {{Text("%s"), Integer(1)}, unsuited},
                                {{Text("%d"), Floating(1.0)}, unsuited},
                                {{Text("%f"), Integer(1)}, unsuited},
                                {{Text("%d"), Text("1")}, unsuited},
                                {{Text("%d %d"), Integer(1)}, unsuited},
                                {{Text("%n"), Integer(1)}, unsuited},
                                {{Text("%*d"), Integer(1)}, unsuited},
                                {{Text("%"), Integer(1)}, unsuited},
                            });
}

TEST(StringFormat, NeedsAFormat) {
    const std::string null = Error("Error: format string is null.");
    const std::string noText =
        Error("string.format() argument error. (argument[0] type isn't string)") + "\n" + null;
    Expect("string.format", {
                                {{Text(""), Integer(1)}, null},
                                {{Text(""), ArrayOf({})}, null},
                                {{Integer(5), Integer(1)}, noText},
                                {{ArrayOf({Text("%d")}), Integer(1)}, noText},
                            });
}

TEST(StringFormat, AValueOfAnotherKindGivesTheEmptyText) {
    Expect("string.format", {
                                {{Text("%d"), Boolean(true)}, "text \"\""},
                                {{Text("%s"), ArrayOf({Integer(1)})}, "text \"\""},
                                {{Text("%n%n%n"), Boolean(false)}, "text \"\""},
                            });
}

TEST(StringFormat, ATextOf1024CharactersFailsSilently) {
    const std::string fits(1023, 'x');
    Expect("string.format", {
                                {{Text(fits), Integer(1)}, "text \"" + fits + "\""},
                                {{Text(fits + "x"), Integer(1)}, "failed"},
                                {{Text("%s"), Text(fits)}, "text \"" + fits + "\""},
                                {{Text("%s"), Text(fits + "x")}, "failed"},
                                {{Text(fits + "%s"), Text("")}, "text \"" + fits + "\""},
                                {{Text(fits + "%s"), Text("y")}, "failed"},
                                {{Text("%1023d"), Integer(7)}, "text \"" + std::string(1022, ' ') + "7\""},
                                {{Text("%1024d"), Integer(7)}, "failed"},
                                {{Text("%.900f"), Floating(1e300)}, "failed"},
                                {{Text("%s"), Text(std::string(200000, 'z'))}, "failed"},
                                {{Text("%.3s"), Text(std::string(200000, 'z'))}, "text \"zzz\""},
                            });
}

TEST(StringFormat, NeedsTwoArguments) {
    const std::string count = Error("string.format() argument error. (argument count is invalid)");
    Expect("string.format",
           {{{}, count}, {{Text("%d")}, count}, {{Text("%d"), Integer(1), Integer(2)}, count}});
}

TEST(StringFormat, CanNotBeAssignedTo) {
    const CMacroCommonValue assigned = Integer(1);
    EXPECT_EQ(CommandCaller().Call("string.format", {Text("%d"), Integer(1)}, &assigned),
              Error("assigned value isn't needed at string.format()"));
    // Before the format is looked at, after the arguments are counted.
    EXPECT_EQ(CommandCaller().Call("string.format", {Text(""), Integer(1)}, &assigned),
              Error("assigned value isn't needed at string.format()"));
    EXPECT_EQ(CommandCaller().Call("string.format", {Text("")}, &assigned),
              Error("string.format() argument error. (argument count is invalid)"));
}

TEST(StringInt2Dec, WritesADecimalNumber) {
    Expect("string.int2dec", {
                                 {{Integer(0)}, "text \"0\""},
                                 {{Integer(7)}, "text \"7\""},
                                 {{Integer(-7)}, "text \"-7\""},
                                 {{Integer(INT32_MAX)}, "text \"2147483647\""},
                                 {{Integer(INT32_MIN)}, "text \"-2147483648\""},
                             });
}

TEST(StringInt2Dec, FillsTheWidthWithBlanksOrZeros) {
    Expect("string.int2dec", {
                                 {{Integer(7), Integer(3)}, "text \"  7\""},
                                 {{Integer(7), Integer(1)}, "text \"7\""},
                                 {{Integer(1234), Integer(2)}, "text \"1234\""},
                                 {{Integer(-5), Integer(4)}, "text \"  -5\""},
                                 {{Integer(-5), Integer(4), Integer(0)}, "text \"-005\""},
                                 {{Integer(-5), Integer(4), Integer(1)}, "text \"  -5\""},
                                 {{Integer(5), Integer(8), Integer(0)}, "text \"00000005\""},
                                 {{Integer(-5), Integer(2), Integer(0)}, "text \"-5\""},
                                 {{Integer(-5), Integer(1), Integer(0)}, "text \"-5\""},
                                 {{Integer(0), Integer(2), Integer(0)}, "text \"00\""},
                                 {{Integer(INT32_MIN), Integer(12), Integer(0)}, "text \"-02147483648\""},
                                 {{Integer(7), Integer(32)}, "text \"" + std::string(31, ' ') + "7\""},
                                 {{Integer(INT32_MIN), Integer(32), Integer(0)},
                                  "text \"-" + std::string(21, '0') + "2147483648\""},
                             });
}

TEST(StringInt2Dec, ChecksItsArguments) {
    const std::string count = Error("string.int2dec() argument error. (argument count is invalid)");
    const std::string range1 = Error("string.int2dec() argument error. (argument[1] is out of range.)");
    const std::string range2 = Error("string.int2dec() argument error. (argument[2] is out of range.)");
    Expect("string.int2dec",
           {
               {{}, count},
               {{Integer(1), Integer(1), Integer(1), Integer(1)}, count},
               {{Text("1")}, Error("string.int2dec() argument error. (argument[0] type isn't interger)")},
               {{Floating(1.0)}, Error("string.int2dec() argument error. (argument[0] type isn't interger)")},
               {{Integer(1), Floating(1.0)},
                Error("string.int2dec() argument error. (argument[1] type isn't interger)")},
               {{Integer(1), Integer(1), Text("0")},
                Error("string.int2dec() argument error. (argument[2] type isn't interger)")},
               {{Integer(1), Integer(0)}, range1},
               {{Integer(1), Integer(33)}, range1},
               {{Integer(1), Integer(-1)}, range1},
               {{Integer(1), Integer(0), Integer(5)}, range1},
               {{Integer(1), Integer(1), Integer(2)}, range2},
               {{Integer(1), Integer(1), Integer(-1)}, range2},
           });
    const CMacroCommonValue assigned = Text("x");
    EXPECT_EQ(CommandCaller().Call("string.int2dec", {Integer(1)}, &assigned),
              Error("assigned value isn't needed at string.int2dec()"));
    EXPECT_EQ(CommandCaller().Call("string.int2dec", {Integer(1), Integer(0)}, &assigned), range1);
}

TEST(StringInt2Hex, WritesUnsignedUpperCaseDigits) {
    Expect("string.int2hex", {
                                 {{Integer(0)}, "text \"0\""},
                                 {{Integer(255)}, "text \"FF\""},
                                 {{Integer(255), Integer(4)}, "text \"00FF\""},
                                 {{Integer(-1)}, "text \"FFFFFFFF\""},
                                 {{Integer(-1), Integer(1)}, "text \"FFFFFFFF\""},
                                 {{Integer(-1), Integer(10)}, "text \"00FFFFFFFF\""},
                                 {{Integer(INT32_MIN)}, "text \"80000000\""},
                                 {{Integer(305441741)}, "text \"1234ABCD\""},
                                 {{Integer(4096), Integer(2)}, "text \"1000\""},
                                 {{Integer(0), Integer(2)}, "text \"00\""},
                                 {{Integer(10), Integer(32)}, "text \"" + std::string(31, '0') + "A\""},
                             });
}

TEST(StringInt2Hex, ChecksItsArguments) {
    const std::string count = Error("string.int2hex() argument error. (argument count is invalid)");
    const std::string range = Error("string.int2hex() argument error. (argument[1] is out of range.)");
    Expect("string.int2hex",
           {
               {{}, count},
               {{Integer(1), Integer(1), Integer(1)}, count},
               {{Boolean(true)}, Error("string.int2hex() argument error. (argument[0] type isn't interger)")},
               {{ArrayOf({Integer(1)})},
                Error("string.int2hex() argument error. (argument[0] type isn't interger)")},
               {{Integer(1), Text("4")},
                Error("string.int2hex() argument error. (argument[1] type isn't interger)")},
               {{Integer(1), Integer(0)}, range},
               {{Integer(1), Integer(33)}, range},
               {{Integer(1), Integer(INT32_MIN)}, range},
           });
    const CMacroCommonValue assigned = Integer(1);
    EXPECT_EQ(CommandCaller().Call("string.int2hex", {Integer(1)}, &assigned),
              Error("assigned value isn't needed at string.int2hex()"));
}

}  // namespace
}  // namespace macroengine
