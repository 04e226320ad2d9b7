#include "categories/ArrayCommands.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/CommandCaller.h"

namespace macroengine {
namespace {

using test::ArrayOf;
using test::Boolean;
using test::CommandCaller;
using test::Describe;
using test::Error;
using test::Floating;
using test::Integer;
using test::Text;

TEST(ArrayInit, GivesAnArrayOfItsArguments) {
    const std::vector<std::vector<CMacroCommonValue>> cases = {
        {Integer(1)},    {Integer(3), Integer(-1), Integer(INT32_MIN), Integer(INT32_MAX)},
        {Floating(0.5)}, {Floating(1.0), Floating(-2.5), Floating(1e300)},
        {Text("a")},     {Text("a"), Text(""), Text("c"), Text(std::string(5000, 'x'))},
    };
    CommandCaller caller;
    for (const auto& arguments : cases)
        EXPECT_EQ(caller.Call("array.init", arguments), Describe(ArrayOf(arguments)));
}

TEST(ArrayInit, TakesAnyNumberOfArguments) {
    std::vector<CMacroCommonValue> arguments;
    for (int i = 0; i < 10000; ++i)
        arguments.push_back(Integer(i * i));
    EXPECT_EQ(CommandCaller().Call("array.init", arguments), Describe(ArrayOf(arguments)));
}

TEST(ArrayInit, AllArgumentsAreOfTheKindOfTheFirst) {
    const std::string mixed = Error("array.init() argument error. (mixed difference types)");
    const std::vector<std::vector<CMacroCommonValue>> cases = {
        {Integer(1), Floating(1.0)},       {Floating(1.0), Integer(1)},
        {Integer(1), Text("1")},           {Text("1"), Integer(1)},
        {Floating(1.0), Text("1")},        {Integer(1), Integer(2), Integer(3), Boolean(true)},
        {Text("a"), ArrayOf({Text("b")})}, {Integer(1), Text("x"), Floating(1.0)},
    };
    CommandCaller caller;
    for (const auto& arguments : cases)
        EXPECT_EQ(caller.Call("array.init", arguments), mixed);
}

TEST(ArrayInit, AFirstArgumentOfAnotherKindIsASystemError) {
    CommandCaller caller;
    for (const CMacroCommonValue& first : {Boolean(true), ArrayOf({}), ArrayOf({Integer(1)})}) {
        EXPECT_EQ(caller.Call("array.init", {first}), Error("array.init() system error"));
        EXPECT_EQ(caller.Call("array.init", {first, Integer(1)}), Error("array.init() system error"));
    }
}

TEST(ArrayInit, NeedsAnArgument) {
    EXPECT_EQ(CommandCaller().Call("array.init", {}),
              Error("array.init() argument error. (argument count is invalid)"));
}

TEST(ArrayMax, GivesTheNumberOfElements) {
    CommandCaller caller;
    EXPECT_EQ(caller.Call("array.max", {ArrayOf({})}), "integer 0");
    EXPECT_EQ(caller.Call("array.max", {ArrayOf({Integer(9)})}), "integer 1");
    EXPECT_EQ(caller.Call("array.max", {ArrayOf({Integer(9), Integer(8), Integer(7)})}), "integer 3");
    EXPECT_EQ(caller.Call("array.max", {ArrayOf({ArrayOf({Text("a"), Text("b")}), Text("c")})}), "integer 2");
}

TEST(ArrayMax, NeedsOneArray) {
    CommandCaller caller;
    for (const CMacroCommonValue& other : {Integer(1), Floating(1.0), Text("abc"), Boolean(true)}) {
        EXPECT_EQ(caller.Call("array.max", {other}), Error("array.max() : argument[0] is not array."));
    }
    const std::string count = Error("array.max() argument error. (argument count is invalid)");
    EXPECT_EQ(caller.Call("array.max", {}), count);
    EXPECT_EQ(caller.Call("array.max", {ArrayOf({}), ArrayOf({})}), count);
}

}  // namespace
}  // namespace macroengine
